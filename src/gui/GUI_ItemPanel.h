#pragma once
#include "gui/GUI_FramePanel.h"

/// An editor for the object that is selected in a `GUI_SelectionPanel`. Heirs show `getItem()` in
/// `updateValues`.
class GUI_ItemPanel : public GUI_FramePanel
{
    Q_OBJECT
public:
    void setItem(COM_Object& item) { setItem(&item); }
    /// Keeps the object and shows it. Null is `resetItem`.
    void setItem(COM_Object* item);
    /// Shows nothing new: the components keep their texts.
    void resetItem();
    /// Null before the first selection.
    COM_Object* getItem() const { return mItem; }

protected:
    explicit GUI_ItemPanel(GUI_ParentPanel* parent);
    explicit GUI_ItemPanel(GUI_ParentPanel& parent);
    ~GUI_ItemPanel() override;

private:
    COM_Object* mItem = nullptr; ///< Counted.
};
