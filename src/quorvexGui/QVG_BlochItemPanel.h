#pragma once
#include "gui/GUI_ItemPanel.h"
#include "gui/GUI_VectorPanel.h"

/// The editor for the level frequencies of the system that is selected.
class QVG_BlochItemPanel : public GUI_ItemPanel
{
    COM_CLASS(QVG_BlochItemPanel)
public:
    void updateValues() override;

protected:
    explicit QVG_BlochItemPanel(GUI_ParentPanel& parent);
    ~QVG_BlochItemPanel() override = default;

private:
    GUI_VectorPanel<double>* mPanel = nullptr; ///< Child 0, counted there.
};
