#pragma once
#include "quorvexGui/QVG_FormPanel.h"

/// The method, and when its iterations end.
///
/// With several components of the field the method is the splitting, and the choice is locked from then on,
/// until the form is made anew.
class QVG_NumericalDataBlochPanel : public QVG_FormPanel
{
    Q_OBJECT
    COM_CLASS(QVG_NumericalDataBlochPanel)
public:
    static constexpr unsigned char COMPO_LE_CONV = 1;
    static constexpr unsigned char COMPO_CB_METHOD = 3;
    static constexpr unsigned char COMPO_CB_SPLIT = 4;

protected:
    explicit QVG_NumericalDataBlochPanel(GUI_ParentPanel& parent);
    ~QVG_NumericalDataBlochPanel() override = default;

    void showModel(const Model& model) override;
    void editModel(GUI_ActionComponent& component, const Model& model) override;
};
