#pragma once
#include "common/COM_Guard.h"

/// What a panel in a panel, a layout in a layout and a menu in a menu share: the child's end of the two-way
/// link with `addToChildren` and `removeFromChildren` of its parent.
///
/// `Child` is the class that derives from this one, `Parent` what it is inside of and is itself, `Root` the
/// top of such a tree.
template <typename Child, typename Parent, typename Root>
class GUI_ChildOf : public Parent
{
public:
    /// Leaves its former parent and enters the new one, as its last child.
    void setParent(Parent& parent)
    {
        if (mParent == &parent) {
            return;
        }
        const COM_Guard guard(*this);
        resetParent();
        this->associate(mParent, &parent);
        parent.addToChildren(static_cast<Child&>(*this));
    }
    /// Null is `resetParent`.
    void setParent(Parent* parent)
    {
        if (parent != nullptr) {
            setParent(*parent);
        } else {
            resetParent();
        }
    }
    void resetParent()
    {
        if (mParent == nullptr) {
            return;
        }
        const COM_Guard guard(*this);
        Parent* const parent = mParent;
        mParent = nullptr;
        parent->removeFromChildren(static_cast<Child&>(*this));
        parent->subReference(this);
    }
    /// Null without one.
    virtual Parent* getParent() const { return mParent; }

    /// That of its parent; null without one.
    Root* getRoot() override { return mParent != nullptr ? mParent->getRoot() : nullptr; }

protected:
    GUI_ChildOf() = default;
    ~GUI_ChildOf() override = default;

private:
    Parent* mParent = nullptr; ///< Counted back reference.
};
