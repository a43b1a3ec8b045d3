#pragma once
#include "common/COM_Map.h"
#include "gui/GUI_FramePanel.h"

#include <string>

class GUI_ItemPanel;
class GUI_ListPanel;

/// A list of named objects and, beside it, an editor for the one that is selected.
///
/// Heirs say how an object is made and which editor shows it. Objects are known by the name in the list:
/// of two objects with one name the later takes the place of the earlier, while the list shows both.
class GUI_SelectionPanel : public GUI_FramePanel
{
    Q_OBJECT
public:
    /// With the object's identity string as its name, at the end.
    virtual void addToItems(COM_Object& object);
    virtual void addToItems(COM_Object* object);
    /// At the end.
    virtual void addToItems(COM_Object& object, const std::string& name);
    virtual void addToItems(COM_Object* object, const std::string& name);
    /// Before the item of that index, beyond the end or below 0 at the end, and selects it. Null: nothing.
    virtual void addToItems(COM_Object* object, const std::string& name, int index);
    virtual void addToItems(COM_Object& object, const std::string& name, int index);
    /// Takes the object of that item out. The list itself is left as it is: the list panel, which calls
    /// this, changes it. False if there is no such object.
    virtual bool removeItem(int index);
    /// A new object for the list and its name; the reference is the caller's. Null: none is made.
    virtual COM_Object* NewItem(std::string& name);

protected:
    /// The editor, a child of this panel; the reference is the caller's. Null: there is none.
    virtual GUI_ItemPanel* NewItemPanel();

public:
    unsigned long getObjectsNumber() const { return mObjects->size(); }
    /// The object of that item, or null.
    COM_Object* getObject(int index) const;
    COM_Object* getSelectedObject() const;
    /// Shows the object of that item in the editor. Without such an object the editor keeps what it shows.
    void setSelectedItem(int index);
    /// Marks the first item in the list and shows it in the editor. Nothing in an empty list.
    void selectFirst();
    /// A name for one of `count` items: `kind` and a number from 1 on, with zeros in front up to the digits of
    /// `count`, so that sorting by name keeps the order.
    static std::string numberedName(const std::string& kind, unsigned long number,
                                    unsigned long count);

    /// By name, ascending.
    void sort();
    /// Whether new items go to the end and the last one is deleted, whatever is selected.
    void setEndAdding(bool flag);
    void setDeleteButtonEnabled(bool flag);
    void setAddButtonEnabled(bool flag);

protected:
    explicit GUI_SelectionPanel(GUI_ParentPanel* parent);
    explicit GUI_SelectionPanel(GUI_ParentPanel& parent);
    ~GUI_SelectionPanel() override;

    /// Makes list and editor. Last statement in the constructor of the heir, whose `NewItemPanel` it calls.
    void initComponents(bool showAdd, bool showDelete);

    /// Child 0, or null.
    GUI_ListPanel* getListPanel() const;
    /// Child 1, or null.
    GUI_ItemPanel* getItemPanel() const;

private:
    COM_Map<std::string, COM_Object>* mObjects; ///< By the name in the list. Counted, never null.
};
