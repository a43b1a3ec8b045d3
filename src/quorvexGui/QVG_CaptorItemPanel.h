#pragma once
#include "gui/GUI_ItemPanel.h"
#include "gui/GUI_MatrixPanel.h"

class GUI_GridLayout;
class QVG_Captor;

/// The form of the captor that is selected: where it is, and which components of the field and elements of the
/// density matrices are to be plotted.
///
/// There is no switch for the third component.
class QVG_CaptorItemPanel : public GUI_ItemPanel
{
    COM_CLASS(QVG_CaptorItemPanel)
public:
    static constexpr unsigned char COMPO_Ex = 0;
    static constexpr unsigned char COMPO_Ey = 1;
    static constexpr unsigned char COMPO_Ez = 2;
    static constexpr unsigned char COMPO_POSITION = 3;
    static constexpr unsigned char COMPO_RELATIVE_POSITION = 4;
    static constexpr unsigned char COMPO_LOCATION = 5;
    static constexpr unsigned char COMPO_BLOCH_NUMBER = 6;

    /// Shows the captor. Components that were not saved are taken out of what is to be plotted.
    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit QVG_CaptorItemPanel(GUI_ParentPanel& parent);
    ~QVG_CaptorItemPanel() override = default;

private:
    void initComponents();
    void addField(GUI_GridLayout& grid, int row, const std::string& text, unsigned char flag);
    void addSwitch(GUI_GridLayout& grid, int row, const std::string& text, unsigned char flag);
    void addSystem(GUI_GridLayout& grid, int row);
    QVG_Captor* getCaptor() const;
    void showSystem(QVG_Captor& captor, long index);

    GUI_MatrixPanel<unsigned long>* mMarks = nullptr; ///< Child 0, counted there.
};
