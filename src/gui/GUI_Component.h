#pragma once
#include "gui/GUI_Object.h"

#include <string>

class GUI_ParentLayout;
class GUI_ParentPanel;
class GUI_ToolBar;
class QWidget;

/// A small widget in a layout, in a tool bar, or in both, told apart by its flag.
///
/// Layout and tool bar own the component by its count; the component counts them in turn. The panel that
/// is given at construction is only the parent of the widget.
class GUI_Component : public virtual GUI_Object
{
public:
    static std::string ICONS_PATH; ///< Prefix of the icon files of buttons, with its end "/".

    /// The caller's number for this component. It may change at any time; layouts find the new one.
    void setFlagId(const unsigned char& flag) { mFlagId = flag; }
    const unsigned char& getFlagId() const { return mFlagId; }

    /// Two-way link with `GUI_ParentLayout::addToComponents` and `removeFromComponents`.
    void setLayout(GUI_ParentLayout& layout);
    /// Null takes the component out of its layout.
    void setLayout(GUI_ParentLayout* layout);
    void resetLayout();
    GUI_ParentLayout* getLayout() const { return mLayout; }

    /// Two-way link with `GUI_ToolBar::addToComponents` and `removeFromComponents`. A bar that has another
    /// component of that flag takes no second one: the component is in no bar then.
    void setTool(GUI_ToolBar& tool);
    /// Null takes the component out of its tool bar.
    void setTool(GUI_ToolBar* tool);
    void resetTool();
    GUI_ToolBar* getTool() const { return mTool; }

    /// The widget of the concrete class; null while that one is not constructed.
    QWidget* qtWidget();

protected:
    explicit GUI_Component(const unsigned char& flag = 0);
    ~GUI_Component() override = default;

private:
    unsigned char mFlagId;
    GUI_ParentLayout* mLayout = nullptr; ///< Counted back reference.
    GUI_ToolBar* mTool = nullptr;        ///< Counted back reference.
};
