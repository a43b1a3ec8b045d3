#pragma once
#include "gui/GUI_RootPanel.h"
#include "quorvex/QV_Results.h"

#include <string>

class GUI_ActionComponent;
class QVG_CaptorsSelectionPanel;

/// The form of the results: the captors with what is to be plotted at each of them, and the button that plots
/// it in a new window, a curve for each choice.
class QVG_VisualizationRootPanel : public GUI_RootPanel
{
    COM_CLASS(QVG_VisualizationRootPanel)
public:
    // Names of the result files, or what stands before and behind the numbers in them. QV_Results reads them.
    static constexpr const char* CAPTORS_FILE = QV_Results::CAPTORS_FILE;
    static constexpr const char* E_FILE = "E_at_";
    static constexpr const char* E_EXT = ".res";
    static constexpr const char* RHO_FILE = "Rho_Bloch";
    static constexpr const char* RHO_EXT = ".res";
    static constexpr unsigned char COMPO_VISUALIZE_BUTTON = 4;
    static constexpr unsigned char COMPO_E_NORMALIZATION = 10;

    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

    /// Plots what is chosen, from the files as they are now. Without a curve a message says so.
    void visualize();
    /// Whether the curves of the field are divided by the greatest value of them all.
    bool isENormalized() const { return mIsENormalized; }

protected:
    explicit QVG_VisualizationRootPanel(GUI_ParentWindow& window);
    ~QVG_VisualizationRootPanel() override = default;

private:
    void initComponents();
    /// The list of the captors in the project's directory, in the order of their locations; the reference is
    /// the caller's.
    QVG_CaptorsSelectionPanel* createCaptorsPanel();
    void addCentred(GUI_ActionComponent& component);
    std::string getDirectory() const;

    bool mIsENormalized = false;
};
