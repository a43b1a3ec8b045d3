#include "quorvexGui/QVG_VisualizationRootPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_RadioButton.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_RootWindow.h"
#include "quorvexGui/QVG_Captor.h"
#include "quorvexGui/QVG_CaptorsSelectionPanel.h"
#include "quorvexGui/QVG_ResultsPlot.h"
#include "quorvexGui/QVG_VisualizationWindow.h"

#include <string>

QVG_VisualizationRootPanel::QVG_VisualizationRootPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(QVG_VisualizationRootPanel);
    initComponents();
}

void QVG_VisualizationRootPanel::initComponents()
{
    const COM_Scoped layout(
        GUI_RootVBoxLayout::New(*this, GUI_ParentLayout::MARGIN, GUI_ParentLayout::SPACING));
    const COM_Scoped captors(createCaptorsPanel());
    layout->addPanel(*captors);
    const COM_Scoped normalization(GUI_RadioButton::New(*this, COMPO_E_NORMALIZATION));
    normalization->setLabel(translate("E Fields Normalization"));
    addCentred(*normalization);
    const COM_Scoped button(GUI_Button::New(*this, COMPO_VISUALIZE_BUTTON));
    button->setLabel(translate("Visualize"));
    addCentred(*button);
}

void QVG_VisualizationRootPanel::addCentred(GUI_ActionComponent& component)
{
    const COM_Scoped row(GUI_HBoxLayout::New());
    getMainLayout()->addToChildren(*row);
    row->addSpacer(0);
    row->addToComponents(component);
    row->addSpacer(0);
}

std::string QVG_VisualizationRootPanel::getDirectory() const
{
    GUI_ParentWindow* const window = getWindow();
    const GUI_RootWindow* const root = window != nullptr ? window->getRoot() : nullptr;
    return root != nullptr ? root->getSavingPath() : std::string();
}

QVG_CaptorsSelectionPanel* QVG_VisualizationRootPanel::createCaptorsPanel()
{
    QVG_CaptorsSelectionPanel* const panel = QVG_CaptorsSelectionPanel::New(*this);
    QV_Results results;
    results.readCaptors(getDirectory());
    const unsigned long number = results.getCaptors().size();
    unsigned long place = 0;
    for (const QV_Results::Captor& read : results.getCaptors()) {
        const COM_Scoped captor(QVG_Captor::New());
        captor->setLocation(read.mLocation);
        captor->setRelativePosition(read.mRelativePosition);
        captor->setPosition(read.mPosition);
        captor->setRhoSize(read.mRhoSize);
        captor->setBlochEquationsNumber(read.mBlochEquationsNumber);
        captor->setEDimension(read.mEDimension);
        panel->addToItems(*captor,
                          GUI_SelectionPanel::numberedName(translate("Captor"), ++place, number));
    }
    panel->selectFirst();
    return panel;
}

void QVG_VisualizationRootPanel::updateValues()
{
    GUI_RootPanel::updateValues();
    QGroupBox::update();
}

void QVG_VisualizationRootPanel::componentClicked(GUI_ActionComponent& component)
{
    const COM_Guard guard(*this);
    switch (component.getFlagId()) {
    case COMPO_VISUALIZE_BUTTON:
        visualize();
        break;
    case COMPO_E_NORMALIZATION:
        mIsENormalized = COM_Integer::parseInt(component.getValue()) != 0;
        break;
    default:
        break;
    }
    updateValues();
}

void QVG_VisualizationRootPanel::visualize()
{
    const auto* const captors = dynamic_cast<QVG_CaptorsSelectionPanel*>(getChild(0));
    auto* const window = dynamic_cast<QVG_VisualizationWindow*>(getWindow());
    GUI_RootWindow* const root = window != nullptr ? window->getRoot() : nullptr;
    if (captors == nullptr || root == nullptr) {
        return;
    }
    window->checkResults();
    QVG_ResultsPlot::show(*root, *captors, mIsENormalized);
}
