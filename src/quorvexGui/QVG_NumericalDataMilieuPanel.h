#pragma once
#include "quorvexGui/QVG_FormPanel.h"

/// The fineness of the mesh.
class QVG_NumericalDataMilieuPanel : public QVG_FormPanel
{
    Q_OBJECT
    COM_CLASS(QVG_NumericalDataMilieuPanel)
public:
    static constexpr unsigned char COMPO_SB_DISCR = 0;

protected:
    explicit QVG_NumericalDataMilieuPanel(GUI_ParentPanel& parent);
    ~QVG_NumericalDataMilieuPanel() override = default;

    void showModel(const Model& model) override;
    void editModel(GUI_ActionComponent& component, const Model& model) override;
};
