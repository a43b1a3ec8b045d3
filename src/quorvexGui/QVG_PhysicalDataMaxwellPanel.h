#pragma once
#include "quorvexGui/QVG_FormPanel.h"

/// The light: the ends of the domain, the components of the field, and the pulse that enters.
class QVG_PhysicalDataMaxwellPanel : public QVG_FormPanel
{
    Q_OBJECT
    COM_CLASS(QVG_PhysicalDataMaxwellPanel)
public:
    static constexpr unsigned char COMPO_CB_IF = 1;
    static constexpr unsigned char COMPO_LE_E_MAX = 2;
    static constexpr unsigned char COMPO_LE_LAMBDA = 3;
    static constexpr unsigned char COMPO_LE_DURATION = 4;
    static constexpr unsigned char COMPO_DIMENSION = 5;
    static constexpr unsigned char COMPO_CKB_LASER = 6;
    static constexpr unsigned char COMPO_CKB_RLASER = 7;
    static constexpr unsigned char COMPO_LASER_COEF = 8;

protected:
    explicit QVG_PhysicalDataMaxwellPanel(GUI_ParentPanel& parent);
    ~QVG_PhysicalDataMaxwellPanel() override = default;

    void showModel(const Model& model) override;
    void editModel(GUI_ActionComponent& component, const Model& model) override;

private:
    /// What light meets at the ends of the domain.
    void addEnds(GUI_HBoxLayout& row);
    void setDimension(long dimension, QV_1DProblem& problem);
};
