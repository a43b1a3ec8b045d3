#pragma once
#include "gui/GUI_RootPanel.h"

#include <string>

class GUI2D_DrawPanel;
class QColor;

/// The looks of a draw panel: steps, texts, colours, and what is printed. Each change is in the panel at
/// once; the form then shows what was accepted.
class GUI2D_OptionsPanel : public GUI_RootPanel
{
    COM_CLASS(GUI2D_OptionsPanel)
public:
    static constexpr unsigned char COMPO_SB_PANX = 0;
    static constexpr unsigned char COMPO_SB_PANY = 1;
    static constexpr unsigned char COMPO_SB_DIGIT = 2;
    static constexpr unsigned char COMPO_LE_ZOOM = 3;
    static constexpr unsigned char COMPO_LE_TITLE = 4;
    static constexpr unsigned char COMPO_LE_XLABEL = 5;
    static constexpr unsigned char COMPO_LE_YLABEL = 6;
    static constexpr unsigned char COMPO_BUTTON_SCALE = 7;
    static constexpr unsigned char COMPO_BUTTON_XLABEL = 8;
    static constexpr unsigned char COMPO_BUTTON_YLABEL = 9;
    static constexpr unsigned char COMPO_BUTTON_TITLE = 10;
    static constexpr unsigned char COMPO_BUTTON_BACKGROUND = 11;
    static constexpr unsigned char COMPO_BUTTON_AXE = 12;
    static constexpr unsigned char COMPO_BUTTON_GRID = 13;
    static constexpr unsigned char COMPO_BUTTON_BORDER = 14;
    static constexpr unsigned char COMPO_BUTTON_BORDER_LINE = 15;
    static constexpr unsigned char COMPO_RB_ORTHO = 16;
    static constexpr unsigned char COMPO_RB_SCALE = 17;
    static constexpr unsigned char COMPO_RB_TITLE = 18;
    static constexpr unsigned char COMPO_RB_XLABEL = 19;
    static constexpr unsigned char COMPO_RB_YLABEL = 20;

    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI2D_OptionsPanel(GUI_ParentWindow& window);
    ~GUI2D_OptionsPanel() override = default;

private:
    enum Kind { SPIN_BOX, LINE_EDIT, COLOR_BUTTON, RADIO_BUTTON };

    struct Row
    {
        Kind mKind = LINE_EDIT;
        unsigned char mFlag = 0;
        const char* mLabel = ""; ///< Key of the text.
        int mMaximum = 0;        ///< Of a spin box, from 0 on.
    };

    void initComponents();
    GUI_ActionComponent* newField(const Row& row);
    /// Writes the value of a component.
    static void edit(const GUI_ActionComponent& component, GUI2D_DrawPanel& panel);
    static void setZoomFactor(const std::string& text, GUI2D_DrawPanel& panel);
    static void printScale(bool flag, GUI2D_DrawPanel& panel);

    void show(unsigned char flag, unsigned long value);
    void show(unsigned char flag, const QColor& value);
    void show(unsigned char flag, bool value);
};
