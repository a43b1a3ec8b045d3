#pragma once
#include "gui/GUI_RootPanel.h"

/// The choice of logarithms and Fourier transforms for all curves of a plotter, which opens a new window for
/// their result.
class GUI2D_ToolsPanel : public GUI_RootPanel
{
    COM_CLASS(GUI2D_ToolsPanel)
public:
    static constexpr unsigned char COMPO_LOGX = 0;
    static constexpr unsigned char COMPO_LOGY = 1;
    static constexpr unsigned char COMPO_FFTX = 2;
    static constexpr unsigned char COMPO_FFTY = 3;
    static constexpr unsigned char COMPO_FFTX_PERIOD = 4;
    static constexpr unsigned char COMPO_FFTY_PERIOD = 5;
    static constexpr unsigned char COMPO_FFT2P = 6;
    static constexpr unsigned char COMPO_LABEL_FFT = 7;
    static constexpr unsigned char COMPO_OK = 8;
    static constexpr unsigned char COMPO_CANCEL = 9;

    /// Shows the choice, limited to the points that the plotter has now.
    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI2D_ToolsPanel(GUI_ParentWindow& window);
    ~GUI2D_ToolsPanel() override = default;

private:
    void initComponents();
    /// Of the shortest curve; 0 without a plotter.
    unsigned long getPointsNumber();
    /// The exponent of the largest power of two that is not above `getPointsNumber()`, or 0.
    unsigned long getMaxPower();
    void showLabel();
    static void edit(GUI_ActionComponent& component, double& period);
    void visualize();

    bool mIsLogX = false;
    bool mIsLogY = false;
    bool mIsFFTX = false;
    bool mIsFFTY = false;
    unsigned long mP = 0;  ///< Exponent of the length of the Fourier transforms.
    double mPeriodX = 1.0; ///< Sampling periods, not negative.
    double mPeriodY = 1.0;
};
