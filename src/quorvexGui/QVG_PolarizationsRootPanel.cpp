#include "quorvexGui/QVG_PolarizationsRootPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "quorvexGui/QVG_PolarizationPanel.h"

QVG_PolarizationsRootPanel::QVG_PolarizationsRootPanel(GUI_ParentWindow& window,
                                                       COM_Array<LA_RealMatrix>& polarizations)
    : GUI_RootPanel(window)
{
    COM_TYPE(QVG_PolarizationsRootPanel);
    associate(mPolarizations, &polarizations);
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*this));
    arrangePanels();
}

QVG_PolarizationsRootPanel::~QVG_PolarizationsRootPanel()
{
    dissociate(mPolarizations);
}

void QVG_PolarizationsRootPanel::arrangePanels()
{
    while (getChildren().size() > mPolarizations->size()) {
        removeFromChildren(static_cast<int>(getChildren().size()) - 1);
    }
    for (unsigned long i = 0; i < mPolarizations->size(); ++i) {
        if (i < getChildren().size()) {
            dynamic_cast<QVG_PolarizationPanel&>(getChildren()[i])
                .setMatrix(mPolarizations->get(i));
        } else {
            addPanel(i);
        }
    }
}

void QVG_PolarizationsRootPanel::addPanel(unsigned long index)
{
    const COM_Scoped panel(QVG_PolarizationPanel::New(*this, index));
    if (index < mLabelsLength) {
        panel->setLabel(translate(mLabels[index]));
    }
    panel->setMatrix(mPolarizations->get(index));
    getMainLayout()->addPanel(*panel);
}

void QVG_PolarizationsRootPanel::updateValues()
{
    const COM_Guard guard(*this);
    const GUI_Display display(*this);
    arrangePanels();
    GUI_RootPanel::updateValues();
}

void QVG_PolarizationsRootPanel::componentClicked(GUI_ActionComponent& /*component*/) {}
