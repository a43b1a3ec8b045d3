#pragma once
#include "gui/GUI_LayoutOf.h"
#include "gui/GUI_RootLayout.h"

#include <QHBoxLayout>

/// The main layout of a panel, one row.
class GUI_RootHBoxLayout : public GUI_LayoutOf<QHBoxLayout, GUI_RootLayout>
{
    COM_CLASS(GUI_RootHBoxLayout)
protected:
    GUI_RootHBoxLayout();
    /// Installed on the panel without margin.
    explicit GUI_RootHBoxLayout(GUI_ParentPanel& panel);
    ~GUI_RootHBoxLayout() override = default;
};
