#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_Object.h"

#include <string>

class GUI_ActionComponent;
class GUI_ChildPanel;
class GUI_Component;
class GUI_ParentWindow;
class GUI_RootLayout;
class GUI_RootPanel;
class QWidget;

/// A rectangle of a window: a layout with components, and child panels.
///
/// The panel owns its main layout and its child panels by their counts; each of them counts the panel
/// in turn. The concrete class brings the widget. `componentClicked` of a panel is told about every
/// component in the tree of its own main layout, and about no other.
class GUI_ParentPanel : public virtual GUI_Object
{
public:
    /// Two-way link with `GUI_RootLayout::setPanel` and `resetPanel`.
    virtual void setMainLayout(GUI_RootLayout& layout);
    /// Null releases the layout.
    virtual void setMainLayout(GUI_RootLayout* layout);
    virtual void resetMainLayout();
    /// The panel at the top of the tree, or null while there is none.
    virtual GUI_RootPanel* getRoot() = 0;
    /// The window that the panel stands in, or null.
    GUI_ParentWindow* findWindow();
    /// Shows the model: the child panels in order, then a repaint. Forms load their components under a
    /// `GUI_Display` and end with this one.
    virtual void updateValues();
    /// The user's acts arrive here, also when nothing was changed, and some of them more than once.
    /// Never called while the panel displays.
    virtual void componentClicked(GUI_ActionComponent& component);
    /// Whether the mouse is followed without a button held.
    virtual void setMouseMoveListener(bool flag);
    /// Everything inside follows.
    virtual void setEnabled(bool flag);

    GUI_RootLayout* getMainLayout() const { return mMainLayout; }

    /// Two-way link with `GUI_ChildPanel::setParent` and `resetParent`.
    void addToChildren(GUI_ChildPanel& child);
    void removeFromChildren(GUI_ChildPanel& child);
    /// By index; nothing outside.
    void removeFromChildren(int index);
    void resetChildren();
    /// Null outside.
    GUI_ChildPanel* getChild(int index) const;
    const COM_Array<GUI_ChildPanel>& getChildren() const { return *mChildren; }

    /// The component of that flag: the main layout's, else the first that a child panel has, else null.
    GUI_Component* getComponent(unsigned char flag) const;
    /// Shows the value in the component of that flag, unless it has that value: set to its own number, a
    /// spin box would drop what is being typed into it. Nothing without such a component.
    void showValue(unsigned char flag, const std::string& value) const;
    /// Nothing without such a component.
    void enable(unsigned char flag, bool isEnabled) const;

    /// True while a `GUI_Display` of this panel lives.
    bool isDisplaying() const { return mDisplays > 0; }
    /// The widget of the concrete class; null while that one is not constructed.
    QWidget* qtWidget();
    /// The same for a pointer that may be null.
    static QWidget* qtWidget(GUI_ParentPanel* panel);

protected:
    GUI_ParentPanel();
    ~GUI_ParentPanel() override;

    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    friend class GUI_Display;

    COM_Array<GUI_ChildPanel>* mChildren;  ///< Counted, never null.
    GUI_RootLayout* mMainLayout = nullptr; ///< Counted.
    unsigned mDisplays = 0;                ///< Living `GUI_Display`s of this panel.
};
