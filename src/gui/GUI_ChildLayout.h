#pragma once
#include "gui/GUI_ChildOf.h"
#include "gui/GUI_ParentLayout.h"

/// A layout nested in another one.
class GUI_ChildLayout : public GUI_ChildOf<GUI_ChildLayout, GUI_ParentLayout, GUI_RootLayout>
{
protected:
    GUI_ChildLayout() = default;
    ~GUI_ChildLayout() override = default;
};
