#pragma once
#include "gui/GUI_ItemPanel.h"
#include "gui/GUI_ListPanel.h"
#include "gui/GUI_SelectionPanel.h"
#include "support/TestObject.h"

#include <string>
#include <vector>

/// An editor without components.
class ObjectPanel : public GUI_ItemPanel
{
    COM_CLASS(ObjectPanel)
protected:
    explicit ObjectPanel(GUI_ParentPanel& parent)
        : GUI_ItemPanel(parent)
    {}
    ~ObjectPanel() override = default;
};

/// A selection panel that makes test objects named "new 1", "new 2" ...
class SelectionOfObjects : public GUI_SelectionPanel
{
    COM_CLASS(SelectionOfObjects)
public:
    bool mGivesItems = true; ///< False: `NewItem` gives null.

    COM_Object* NewItem(std::string& name) override
    {
        if (!mGivesItems) {
            return nullptr;
        }
        name = "new " + std::to_string(++mMade);
        return TestObject::New();
    }

    GUI_ItemPanel& editor() const { return *getItemPanel(); }

    void fill(const std::vector<std::string>& names)
    {
        for (const std::string& name : names) {
            TestObject* const object = TestObject::New();
            addToItems(*object, name);
            object->Delete();
        }
    }
    /// As they stand in the list.
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (int i = 0; i < getListPanel()->getItemsNumber(); ++i) {
            result.push_back(getListPanel()->getValue(i));
        }
        return result;
    }

protected:
    explicit SelectionOfObjects(GUI_ParentPanel& parent, bool showAdd = true,
                                bool showDelete = true)
        : GUI_SelectionPanel(parent)
    {
        initComponents(showAdd, showDelete);
    }
    ~SelectionOfObjects() override = default;

    GUI_ItemPanel* NewItemPanel() override { return ObjectPanel::New(*this); }

private:
    int mMade = 0;
};

/// A selection panel that is a list alone.
class SelectionWithoutEditor : public GUI_SelectionPanel
{
    COM_CLASS(SelectionWithoutEditor)
protected:
    explicit SelectionWithoutEditor(GUI_ParentPanel& parent)
        : GUI_SelectionPanel(parent)
    {
        initComponents(false, false);
    }
    ~SelectionWithoutEditor() override = default;
};
