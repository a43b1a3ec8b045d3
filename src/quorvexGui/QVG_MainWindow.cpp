#include "quorvexGui/QVG_MainWindow.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_File.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "metaModel/MM_Class.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvexGui/QVG_ClassFactory.h"
#include "quorvexGui/QVG_MainMenu.h"

#include <QRect>
#include <QScreen>

#include <fstream>
#include <iostream>

namespace {

constexpr int startWidth = 800;
constexpr int startHeight = 50; ///< As low as the bars allow.
constexpr const char* textWindowType = "GUI_TextWindow";
constexpr const char* newProjectWindowType = "GUI_NewProjectWindow";
constexpr const char* resultFiles = "*.res";
constexpr const char* plotterWindowFiles = "plotter_window_saving_*.xml";
/// The window's number follows.
constexpr const char* plotterWindowFile = "plotter_window_saving_";

/// A name that is empty would stand for no file at all, and the present one stays.
void readName(const MM_Class& metaClass, const char* key, std::string& name)
{
    std::string read;
    metaClass.getAttributeFromMetaFields(key, &read);
    if (!read.empty()) {
        name = read;
    }
}

} // namespace

QVG_MainWindow::QVG_MainWindow(const std::string& caption, bool isContainer)
    : GUI_RootWindow(caption, isContainer)
{
    COM_TYPE(QVG_MainWindow);
    setSavingPath("./");
    setSavingFile("");
    initComponents();
}

void QVG_MainWindow::initComponents()
{
    const COM_Scoped menu(QVG_MainMenu::New(*this));
    setSize(startWidth, startHeight);
    // A window that has to grow when it is shown loses its title bar above the edge of the screen.
    resize(size().expandedTo(minimumSizeHint()));
    move(0, 0);
}

QV_Problem* QVG_MainWindow::getProblem() const
{
    const GUI_Application* const application = getApplication();
    return application == nullptr ? nullptr : dynamic_cast<QV_Problem*>(application->getModel());
}

QV_Problem* QVG_MainWindow::findProblem(GUI_ParentWindow* window)
{
    const auto* const mainWindow =
        window != nullptr ? dynamic_cast<QVG_MainWindow*>(window->getRoot()) : nullptr;
    return mainWindow != nullptr ? mainWindow->getProblem() : nullptr;
}

void QVG_MainWindow::updateMenus() const
{
    if (GUI_MenuPanel* const menu = getMenu()) {
        menu->updateStateMenus();
    }
}

// ---------------------------------------------------------------- a new project

void QVG_MainWindow::createFile(const std::string& path, const std::string& file)
{
    closeProjectWindows();
    setSavingPath(path);
    setSavingFile(file);
    setDefaultModel();
    save();
    updateMenus();
}

void QVG_MainWindow::closeProjectWindows()
{
    const COM_Scoped children(COM_Array<GUI_ChildWindow>::New());
    getChildren(*children);
    for (unsigned long i = 0; i < children->size(); ++i) {
        GUI_ChildWindow& child = (*children)[i];
        if (!child.instanceOf(newProjectWindowType)) {
            child.close(false);
            removeFromChildren(child);
        }
    }
}

void QVG_MainWindow::setDefaultModel()
{
    if (getApplication() == nullptr) {
        return;
    }
    // What the atoms share outlives a problem: a default one starts as the first of a process does.
    getApplication()->resetModel();
    QV_Bloch::resetShared();
    const COM_Scoped problem(QV_1DProblem::New());
    getApplication()->setModel(*problem);
}

// ---------------------------------------------------------------- saving

void QVG_MainWindow::saveModelFile(const std::string& file) const
{
    if (QV_Problem* const problem = getProblem()) {
        const COM_Scoped writer(QV_LoaderWriter::New());
        writer->save(file, *problem);
    }
}

void QVG_MainWindow::save() const
{
    if (getSavingFile().empty()) {
        return;
    }
    const std::string model = getSavingPath() + mModelFileName;
    std::cout << "save the model file " << model << "...\n";
    saveModelFile(model);
    GUI_File::removeFiles(getSavingPath(), plotterWindowFiles);
    COM_FileWriter list(getSavingPath() + mPlotterWindowsFileName);
    if (!list.isOpen()) {
        return;
    }
    saveWindows(list.stream());
    std::cout << "save the project file..\n";
    {
        const COM_Scoped factory(QVG_ClassFactory::New());
        factory->save(getSavingPath() + getSavingFile(), *this);
    }
    std::cout << "saving finished.\n";
    list.commit();
}

/// Texts and plots are saved with the project.
void QVG_MainWindow::saveWindows(std::ostream& list) const
{
    const COM_Scoped windows(COM_Array<GUI_ChildWindow>::New());
    getAllDescents(*windows);
    for (unsigned long i = 0; i < windows->size(); ++i) {
        const GUI_ChildWindow& window = (*windows)[i];
        std::cout << window.getClassName() << "\n";
        unsigned long index = 0;
        for (const std::string& type : window.getTypes()) {
            std::cout << "Types[" << index++ << "]=" << type << "\n";
        }
        if (window.instanceOf(textWindowType)) {
            window.save();
        }
        if (const auto* const plotter = dynamic_cast<const GUI2D_PlotterWindow*>(&window)) {
            savePlotterWindow(*plotter, list);
        }
    }
}

void QVG_MainWindow::savePlotterWindow(const GUI2D_PlotterWindow& window, std::ostream& list) const
{
    const std::string name = plotterWindowFile + std::to_string(getId(window)) + ".xml";
    std::cout << "save the plotter window in " << name << "...\n";
    window.save(getSavingPath(), name);
    list << name << " " << window.pos().x() << " " << window.pos().y() << " " << window.width()
         << " " << window.height() << "\n";
}

void QVG_MainWindow::saveAs(const std::string& path, const std::string& file) const
{
    const std::string former = getSavingPath();
    std::cout << "copy the files \n";
    GUI_File::copyFiles(former, resultFiles, path);
    GUI_File::copyFiles(former, DESCRIPTION_FILE, path);
    moveTexts(former, path);
    std::cout << "saving the other files \n";
    GUI_RootWindow::save(path, file);
    updateMenus();
}

/// Texts that belong to the project go with it: what is typed in them from now on is the new project's.
void QVG_MainWindow::moveTexts(const std::string& from, const std::string& to) const
{
    const COM_Scoped windows(COM_Array<GUI_ChildWindow>::New());
    getAllDescents(*windows);
    for (unsigned long i = 0; i < windows->size(); ++i) {
        GUI_ChildWindow& window = (*windows)[i];
        if (window.instanceOf(textWindowType) && window.getSavingPath() == from) {
            window.setSavingPath(to);
        }
    }
}

// ---------------------------------------------------------------- loading

bool QVG_MainWindow::loadModelFile(const std::string& file)
{
    const COM_Scoped loader(QV_LoaderWriter::New());
    loader->load(file);
    if (loader->getProblem() == nullptr) {
        setDefaultModel();
        return false;
    }
    if (getApplication() != nullptr) {
        getApplication()->setModel(*loader->getProblem());
    }
    return true;
}

void QVG_MainWindow::load()
{
    std::cout << "close all opening child windows...\n";
    closeChildrenWindow();
    resetChildren();
    const std::string file = getSavingPath() + getSavingFile();
    std::cout << " loading project file name " << file << "\n";
    {
        const COM_Scoped factory(QVG_ClassFactory::New());
        factory->load(file, *this);
    }
    const std::string model = getSavingPath() + mModelFileName;
    std::cout << "load the model file:" << model << "\n";
    loadModelFile(model);
    if (const auto* const menu = dynamic_cast<QVG_MainMenu*>(getMenu())) {
        if (GUI_Action* const parameters = menu->getParametersAction()) {
            parameters->toDo();
        }
    }
    std::cout << "loading finished.\n";
    loadPlotterWindows();
    updateMenus();
}

void QVG_MainWindow::loadPlotterWindows()
{
    std::ifstream list(getSavingPath() + mPlotterWindowsFileName);
    std::string name;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    while (list >> name >> x >> y >> width >> height) {
        loadPlotterWindow(name, QRect(x, y, width, height));
    }
}

void QVG_MainWindow::loadPlotterWindow(const std::string& name, const QRect& place)
{
    std::cout << "create the plotter window corresponding to file " << name << "...\n";
    const COM_Scoped window(
        GUI2D_PlotterWindow::New(*this, translate("Quorvex Visualization"), false));
    window->load(getSavingPath(), name);
    if (!window->isLoaded()) {
        window->close(false);
        return;
    }
    // A list written by hand could ask for a window that takes all memory.
    const QSize size = place.size().boundedTo(screen()->virtualSize());
    window->setSize(size.width(), size.height());
    window->move(place.topLeft());
    window->show();
}

void QVG_MainWindow::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mSavingFile", getSavingFile());
    metaClass.addAttributeToMetaFields("mSavingModelFile", mModelFileName);
    metaClass.addAttributeToMetaFields("mPlotterWindowsFileName", mPlotterWindowsFileName);
}

void QVG_MainWindow::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    std::string file = getSavingFile();
    readName(metaClass, "mSavingFile", file);
    setSavingFile(file);
    readName(metaClass, "mSavingModelFile", mModelFileName);
    readName(metaClass, "mPlotterWindowsFileName", mPlotterWindowsFileName);
}
