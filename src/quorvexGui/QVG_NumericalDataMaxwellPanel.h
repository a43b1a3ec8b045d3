#pragma once
#include "quorvexGui/QVG_FormPanel.h"

/// How many steps, and how long they are.
class QVG_NumericalDataMaxwellPanel : public QVG_FormPanel
{
    Q_OBJECT
    COM_CLASS(QVG_NumericalDataMaxwellPanel)
public:
    static constexpr unsigned char COMPO_LE_TIME = 0;
    static constexpr unsigned char COMPO_LE_CFL = 1;

protected:
    explicit QVG_NumericalDataMaxwellPanel(GUI_ParentPanel& parent);
    ~QVG_NumericalDataMaxwellPanel() override = default;

    void showModel(const Model& model) override;
    void editModel(GUI_ActionComponent& component, const Model& model) override;

private:
    /// The steps of a run, cut to what a long can hold.
    static long stepsOf(const QV_1DProblem& problem);
};
