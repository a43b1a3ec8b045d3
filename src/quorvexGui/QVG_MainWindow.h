#pragma once
#include "gui/GUI_RootWindow.h"
#include "metaModel/MM_Object.h"

#include <iosfwd>
#include <string>

class GUI2D_PlotterWindow;
class QRect;
class QV_Problem;

/// The root window, and the owner of the project on disk.
///
/// A project is a directory: the project file, which as a persistent object is this window, the model's
/// parameters, the list of open plotter windows with one file for each, a description, and the result files
/// of the last run. The application's model is the problem of the project. docs/file-formats.md has the
/// grammars. Nothing is reported to the user here; the steps are logged on standard output.
class QVG_MainWindow : public GUI_RootWindow, public MM_Object
{
    COM_CLASS(QVG_MainWindow)
public:
    using GUI_RootWindow::createFile;
    using GUI_RootWindow::load;
    using GUI_RootWindow::save;

    /// A text of the user, in the project directory.
    static constexpr const char* DESCRIPTION_FILE = "projectDescription.txt";

    /// Begins a project with a default problem and saves it. Windows that show the former project are closed;
    /// the dialog that asks for the new one closes itself.
    void createFile(const std::string& path, const std::string& file) override;
    /// Reads the project of the window's path and file, whose directory may have been moved, and opens its
    /// plots.
    void load() override;
    /// Writes the project with the texts and the plots that are open. Without a project, that is a file name,
    /// nothing.
    void save() const override;
    /// Goes on in another directory, with copies of the results and of the description.
    void saveAs(const std::string& path, const std::string& file) const override;
    /// Writes the parameters. Without a problem, nothing.
    virtual void saveModelFile(const std::string& file) const;
    /// Makes the problem of the file the model, or, when it holds none, a default one. Returns which.
    virtual bool loadModelFile(const std::string& file);
    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;

    /// Names in the project directory.
    const std::string& getModelFileName() const { return mModelFileName; }
    const std::string& getPlotterWindowsFileName() const { return mPlotterWindowsFileName; }
    /// The application's model, or null while it is no problem.
    QV_Problem* getProblem() const;
    /// That of the main window above `window`, which may be null; null without a main window.
    static QV_Problem* findProblem(GUI_ParentWindow* window);

protected:
    QVG_MainWindow(const std::string& caption, bool isContainer);
    ~QVG_MainWindow() override = default;

private:
    void initComponents();
    void closeProjectWindows();
    void setDefaultModel();
    void saveWindows(std::ostream& list) const;
    void savePlotterWindow(const GUI2D_PlotterWindow& window, std::ostream& list) const;
    void loadPlotterWindows();
    void loadPlotterWindow(const std::string& name, const QRect& place);
    void moveTexts(const std::string& from, const std::string& to) const;
    void updateMenus() const;

    std::string mModelFileName = "parameters.xml";
    std::string mPlotterWindowsFileName = "savingPlotterWindows.txt";
};
