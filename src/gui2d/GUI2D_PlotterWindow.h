#pragma once
#include "gui/GUI_ChildWindow.h"
#include "gui2d/GUI2D_Window.h"

#include <string>
#include <vector>

class COM_Color;
class GUI2D_Plotter;
class LA_RealVector;

/// The window of a plotter, with its menus and its tool bar. Its file holds the plotter: curves, views,
/// colours and options.
class GUI2D_PlotterWindow : public GUI_ChildWindow, public GUI2D_Window
{
    COM_CLASS(GUI2D_PlotterWindow)
public:
    GUI2D_DrawPanel* getDrawPanel() const override;
    /// Null only when the window is closed.
    GUI2D_Plotter* getPlotter() const;

    void addPlot(const LA_RealVector& x, const LA_RealVector& y, const std::string& name,
                 bool shown, COM_Color& color);
    void addPlot(const std::vector<double>& x, const std::vector<double>& y,
                 const std::string& name, COM_Color& color);
    void curvesYNormalization(const std::string& key, double value);
    unsigned long getPlotsNumber() const;

    using GUI_ChildWindow::load;
    using GUI_ChildWindow::save;
    /// Writes the plotter to the window's file.
    void save() const override;
    /// Reads the plotter from the window's file.
    void load() override;
    /// Whether the last `load` found a plotter; otherwise the present one was left as it was.
    bool isLoaded() const { return mIsLoaded; }
    /// Whether the last `save` wrote its file; otherwise the file is as it was.
    bool isSaved() const { return mIsSaved; }

protected:
    GUI2D_PlotterWindow(GUI_ParentWindow& parent, const std::string& name,
                        bool isContainer = false);
    ~GUI2D_PlotterWindow() override = default;

private:
    /// After each new view that no action has made.
    void updateMenus() const;

    bool mIsLoaded = false;
    mutable bool mIsSaved = false;
};
