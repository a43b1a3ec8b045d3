#pragma once
#include "gui/GUI_ChildLayout.h"
#include "gui/GUI_LayoutOf.h"

#include <QHBoxLayout>

/// A row nested in another layout.
class GUI_HBoxLayout : public GUI_LayoutOf<QHBoxLayout, GUI_ChildLayout>
{
    COM_CLASS(GUI_HBoxLayout)
public:
    using GUI_ChildLayout::setParent;

protected:
    GUI_HBoxLayout();
    ~GUI_HBoxLayout() override = default;
};
