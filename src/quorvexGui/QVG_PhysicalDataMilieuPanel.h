#pragma once
#include "quorvexGui/QVG_FormPanel.h"

/// The domain: its length, its index, where the atoms are, and where the captors are.
class QVG_PhysicalDataMilieuPanel : public QVG_FormPanel
{
    Q_OBJECT
    COM_CLASS(QVG_PhysicalDataMilieuPanel)
public:
    static constexpr unsigned char COMPO_LE_LONG = 0;
    static constexpr unsigned char COMPO_LE_DEB = 1;
    static constexpr unsigned char COMPO_LE_FIN = 2;
    static constexpr unsigned char COMPO_LE_IND = 3;
    static constexpr unsigned char COMPO_PB_CAP = 4;

protected:
    explicit QVG_PhysicalDataMilieuPanel(GUI_ParentPanel& parent);
    ~QVG_PhysicalDataMilieuPanel() override = default;

    void showModel(const Model& model) override;
    void editModel(GUI_ActionComponent& component, const Model& model) override;

private:
    void showCaptors(QV_1DMilieu& milieu);

    unsigned long mCaptorsWinId = 0; ///< Of the window opened last; 0 before that.
};
