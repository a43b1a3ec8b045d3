#pragma once
#include "gui/GUI_FramePanel.h"

#include <string>

class GUI_ListBox;
class GUI_SelectionPanel;

/// The list of a `GUI_SelectionPanel`, its parent, with buttons that add and delete. It tells the parent
/// what the user does; inside any other parent it does nothing.
class GUI_ListPanel : public GUI_FramePanel
{
    Q_OBJECT
    COM_CLASS(GUI_ListPanel)
public:
    static constexpr unsigned char COMPO_LIST = 0;
    static constexpr unsigned char COMPO_ADD = 1;
    static constexpr unsigned char COMPO_DELETE = 2;

    void componentClicked(GUI_ActionComponent& component) override;

    /// Before the item of that index; beyond the end or below 0 at the end.
    void addToList(const std::string& name, int index);
    /// The name of an item, empty outside the list.
    std::string getValue(int index) const;
    bool hasItem(int index) const;
    int getItemsNumber() const;
    /// -1 when nothing is selected.
    int getCurrentIndex() const;
    /// Moves the mark in the list and nothing else. Below 0: nothing is selected.
    void setCurrentIndex(int index);
    /// By name, ascending.
    void sort();
    void setEndAdding(bool flag) { mEndAdding = flag; }
    void setDeleteButtonEnabled(bool flag) { enable(COMPO_DELETE, flag); }
    void setAddButtonEnabled(bool flag) { enable(COMPO_ADD, flag); }

protected:
    GUI_ListPanel(GUI_ParentPanel* parent, bool showAdd, bool showDelete);
    GUI_ListPanel(GUI_ParentPanel& parent, bool showAdd, bool showDelete);
    ~GUI_ListPanel() override = default;

private:
    void initComponents();
    void addItem(GUI_SelectionPanel& parent);
    void deleteItem(GUI_SelectionPanel& parent);
    void removeFromList(int index);
    /// Null while the panel has no layout.
    GUI_ListBox* getListBox() const;

    bool mShowAddAction;
    bool mShowDeleteAction;
    bool mEndAdding = false; ///< New items go to the end, and the last one is deleted.
};
