#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "gui/GUI_Object.h"

class GUI_ChildLayout;
class GUI_Component;
class GUI_ParentPanel;
class GUI_RootLayout;
class QLayout;

/// An arrangement of components, panels and nested layouts.
///
/// Components and nested layouts are owned by their counts and count the layout in turn; panels are
/// only arranged, the tree of panels owns them. The concrete class brings the layout of the widgets.
class GUI_ParentLayout : public GUI_Object
{
public:
    // Of all forms, in pixels.
    static constexpr int MARGIN = 11;
    static constexpr int SPACING = 6;

    /// Two-way link with `GUI_Component::setLayout` and `resetLayout`.
    virtual void removeFromComponents(GUI_Component& component);
    /// Null: nothing.
    virtual void removeFromComponents(GUI_Component* component);
    /// False, and nothing else, when the component is there already.
    virtual bool addToComponents(GUI_Component& component);
    /// False for null.
    virtual bool addToComponents(GUI_Component* component);
    /// Arranges the panel's widget. Always true.
    virtual bool addPanel(GUI_ParentPanel& panel) = 0;
    /// False for null.
    virtual bool addPanel(GUI_ParentPanel* panel);
    /// The layout at the top of the tree, or null while there is none.
    virtual GUI_RootLayout* getRoot() = 0;

    /// Two-way link with `GUI_ChildLayout::setParent` and `resetParent`. False when it is there already.
    virtual bool addToChildren(GUI_ChildLayout& child);
    virtual void removeFromChildren(GUI_ChildLayout& child);
    void resetChildren();
    const COM_Array<GUI_ChildLayout>& getChildren() const { return *mChildren; }

    void resetComponents();
    /// Replaces the contents of `components`, in the order in which the components were made.
    void getComponents(COM_Array<GUI_Component>& components) const;
    /// The component of that flag here or, first found, in the nested layouts; null if there is none. Of
    /// several components with one flag the youngest is found.
    GUI_Component* getComponent(unsigned char flag) const;

    /// The layout of the widgets; null while the concrete class is not constructed.
    QLayout* qtLayout();

protected:
    GUI_ParentLayout();
    ~GUI_ParentLayout() override;

    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    void updateFlagId() const;

    /// By identity number. Counted, never null.
    COM_Map<unsigned long, GUI_Component>* mComponents;
    /// The same by flag, as a cache: flags may change, so a flag that is missing here has it rebuilt, and
    /// every removal empties it. Counted, never null.
    COM_Map<unsigned char, GUI_Component>* mFlagComponents;
    COM_Array<GUI_ChildLayout>* mChildren; ///< Counted, never null.
};
