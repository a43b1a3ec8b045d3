#include "quorvexGui/QVG_PolarizationsWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_TableFit.h"
#include "quorvexGui/QVG_PolarizationPanel.h"
#include "quorvexGui/QVG_PolarizationsRootPanel.h"

QVG_PolarizationsWindow::QVG_PolarizationsWindow(GUI_ParentWindow& parent,
                                                 COM_Array<LA_RealMatrix>& polarizations)
    : GUI_ChildWindow(parent)
{
    COM_TYPE(QVG_PolarizationsWindow);
    initComponents(polarizations);
}

void QVG_PolarizationsWindow::initComponents(COM_Array<LA_RealMatrix>& polarizations)
{
    setName(translate("Initial Polarizations Window"));
    const COM_Scoped panel(QVG_PolarizationsRootPanel::New(*this, polarizations));
    fit(*panel);
}

void QVG_PolarizationsWindow::fit(const QVG_PolarizationsRootPanel& panel)
{
    constexpr int cells = 5;
    QSize size = sizeHint();
    for (unsigned long i = 0; i < panel.getChildren().size(); ++i) {
        const GUI_Table& table =
            *dynamic_cast<QVG_PolarizationPanel&>(panel.getChildren()[i]).getTable();
        const QSize missing = GUI_TableFit::wholeSize(table, cells, cells) - table.sizeHint();
        size.rwidth() += missing.width();
        size.rheight() += i == 0 ? missing.height() : 0; // all have as many rows
    }
    GUI_TableFit::setSize(*this, size);
}
