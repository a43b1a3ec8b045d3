#include "quorvexGui/QVG_BlochItemPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_Bloch.h"

QVG_BlochItemPanel::QVG_BlochItemPanel(GUI_ParentPanel& parent)
    : GUI_ItemPanel(parent)
{
    COM_TYPE(QVG_BlochItemPanel);
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*this));
    const COM_Scoped panel(GUI_VectorPanel<double>::New(*this, false));
    mPanel = panel.get();
    layout->addPanel(*panel);
    panel->setValuesLabel(translate("Frequencies"));
}

void QVG_BlochItemPanel::updateValues()
{
    const GUI_Display display(*this);
    // Drawing frequencies gives a system another vector.
    const auto* const bloch = dynamic_cast<QV_Bloch*>(getItem());
    mPanel->setVector(bloch != nullptr ? bloch->getLevelsFrequency() : nullptr);
    GUI_ItemPanel::updateValues();
}
