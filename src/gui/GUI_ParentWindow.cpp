#include "gui/GUI_ParentWindow.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_Workspace.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

GUI_ParentWindow::GUI_ParentWindow(const std::string& name, bool isContainer)
    : QMainWindow(nullptr, Qt::Window)
    , mChildren(COM_Map<unsigned long, GUI_ChildWindow>::New())
{
    COM_TYPE(GUI_ParentWindow);
    setName(name);
    setContainerFlag(isContainer);
    applyFont(*this);
}

GUI_ParentWindow::GUI_ParentWindow()
    : GUI_ParentWindow("Parent Window", false)
{}

GUI_ParentWindow::GUI_ParentWindow(GUI_ParentWindow& /*parent*/, bool isContainer)
    : GUI_ParentWindow("Parent Window", isContainer)
{}

GUI_ParentWindow::~GUI_ParentWindow()
{
    GUI_Grave::orphanCounted(*this);
    if (mWorkspace != nullptr) {
        mWorkspace->Delete();
    }
    mChildren->Delete();
}

unsigned long GUI_ParentWindow::getInverseAgregatedObjectsCount() const
{
    return (mMenu != nullptr ? 1 : 0) + (mPanel != nullptr ? 1 : 0) + mChildren->size();
}

void GUI_ParentWindow::resetInverseAgregatedObjects()
{
    mIsCondemned = true;
    resetChildren();
    resetPanel();
    resetMenu();
}

void GUI_ParentWindow::show()
{
    if (mIsCondemned) {
        return;
    }
    mIsClosed = false;
    keepOnScreen();
    QMainWindow::show();
    setFocus();
}

bool GUI_ParentWindow::close(bool /*flag*/)
{
    const COM_Guard guard(*this);
    resetChildren();
    resetMenu();
    resetPanel();
    mIsClosed = closeQtSide();
    return mIsClosed;
}

void GUI_ParentWindow::closeEvent(QCloseEvent* event)
{
    if (mIsQtClosing || mIsCondemned) {
        event->accept();
        return;
    }
    const GUI_EventScope scope;
    mIsInCloseEvent = true;
    event->setAccepted(close(false));
    mIsInCloseEvent = false;
}

bool GUI_ParentWindow::closeQtSide()
{
    // Qt ignores a close inside a close event; accepting the event closes the window.
    if (mIsInCloseEvent) {
        return true;
    }
    mIsQtClosing = true;
    const bool isClosed = QMainWindow::close();
    mIsQtClosing = false;
    return isClosed;
}

void GUI_ParentWindow::commitEdits()
{
    if (QWidget* const field = focusWidget()) {
        field->clearFocus();
    }
}

void GUI_ParentWindow::keepOnScreen()
{
    if (!isWindow() || !testAttribute(Qt::WA_Moved)) {
        return;
    }
    const QList<QScreen*> screens = QGuiApplication::screens();
    const bool isSeen = std::any_of(screens.begin(), screens.end(), [this](const QScreen* screen) {
        return screen->geometry().intersects(frameGeometry());
    });
    if (!isSeen && QGuiApplication::primaryScreen() != nullptr) {
        move(QGuiApplication::primaryScreen()->availableGeometry().topLeft());
    }
}

void GUI_ParentWindow::bringToFront()
{
    if (isMinimized()) {
        showNormal();
    }
    show();
    raise();
    activateWindow();
}

void GUI_ParentWindow::setContainerFlag(bool flag)
{
    if (!flag) {
        mWorkspace = nullptr;
        return;
    }
    auto* const box = new QFrame(this);
    box->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* const layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    mWorkspace = GUI_Workspace::New(box);
    layout->addWidget(mWorkspace);
    setCentre(*box);
}

void GUI_ParentWindow::setCentre(QWidget& widget)
{
    // Set over it, Qt would delete the present one.
    if (QWidget* const former = takeCentralWidget()) {
        former->setParent(this);
        former->hide();
    }
    setCentralWidget(&widget);
    // A widget that has left another window is hidden.
    widget.show();
}

void GUI_ParentWindow::setPanel(GUI_RootPanel& panel)
{
    if (mPanel == &panel) {
        return;
    }
    resetPanel();
    associate(mPanel, &panel);
    panel.setWindow(*this);
    setCentre(panel);
}

void GUI_ParentWindow::resetPanel()
{
    if (mPanel == nullptr) {
        return;
    }
    GUI_RootPanel* const panel = mPanel;
    const COM_Guard guard(*panel);
    dissociate(mPanel);
    panel->resetWindow();
    if (centralWidget() == panel) {
        takeCentralWidget();
    }
    GUI_Grave::detach(*panel);
}

void GUI_ParentWindow::setMenu(GUI_MenuPanel& menu)
{
    if (mMenu == &menu) {
        return;
    }
    resetMenu();
    associate(mMenu, &menu);
    menu.setWindow(*this);
    setMenuBar(&menu);
    menu.show();
}

void GUI_ParentWindow::resetMenu()
{
    if (mMenu == nullptr) {
        return;
    }
    GUI_MenuPanel* const menu = mMenu;
    const COM_Guard guard(*menu);
    dissociate(mMenu);
    menu->resetWindow();
    // Taken off by Qt's own operation it would be deleted.
    GUI_Grave::detach(*menu);
}

void GUI_ParentWindow::addToChildren(GUI_ChildWindow& child)
{
    if (getChild(getId(child)) != nullptr) {
        return;
    }
    mChildren->put(getId(child), child);
    child.setParent(*this);
}

void GUI_ParentWindow::removeFromChildren(GUI_ChildWindow& child)
{
    const COM_Guard guard(child);
    if (mChildren->remove(getId(child))) {
        child.resetParent();
    }
}

void GUI_ParentWindow::resetChildren()
{
    std::vector<unsigned long> ids = mChildren->keys();
    std::reverse(ids.begin(), ids.end()); // the newest goes first
    for (const unsigned long id : ids) {
        if (GUI_ChildWindow* const child = getChild(id)) {
            removeFromChildren(*child);
        }
    }
}

void GUI_ParentWindow::getChildren(COM_Array<GUI_ChildWindow>& children) const
{
    mChildren->values(children);
}

void GUI_ParentWindow::getAllDescents(COM_Array<GUI_ChildWindow>& descents) const
{
    descents.clear();
    for (const unsigned long id : mChildren->keys()) {
        GUI_ChildWindow& child = (*mChildren)[id];
        descents.add(child);
        const COM_Scoped below(COM_Array<GUI_ChildWindow>::New());
        child.getAllDescents(*below);
        descents.merge(*below);
    }
}

GUI_ChildWindow* GUI_ParentWindow::getChild(unsigned long id) const
{
    return mChildren->get(id);
}

unsigned long GUI_ParentWindow::getId(const GUI_ChildWindow& child)
{
    return child.getIdentityNumber();
}

void GUI_ParentWindow::openForm(unsigned long& id,
                                const std::function<GUI_ChildWindow*(GUI_ParentWindow&)>& make)
{
    if (GUI_ChildWindow* const open = getChild(id)) {
        open->bringToFront();
        return;
    }
    const COM_Scoped form(make(*this));
    id = getId(*form);
    form->show();
}

void GUI_ParentWindow::closeChildrenWindow()
{
    const COM_Scoped children(COM_Array<GUI_ChildWindow>::New());
    getChildren(*children);
    for (unsigned long i = 0; i < children->size(); ++i) {
        (*children)[i].close(false);
    }
}

void GUI_ParentWindow::updateValues()
{
    const COM_Guard guard(*this);
    if (mPanel != nullptr) {
        const COM_Guard panelGuard(*mPanel);
        mPanel->updateValues();
    }
    // An update may close windows, this one among them. The copy keeps the children, and those that have left
    // are passed over.
    const COM_Scoped children(COM_Array<GUI_ChildWindow>::New());
    getChildren(*children);
    for (unsigned long i = 0; i < children->size(); ++i) {
        GUI_ChildWindow& child = (*children)[i];
        if (getChild(getId(child)) != nullptr) {
            child.updateValues();
        }
    }
}

void GUI_ParentWindow::getPathAndFileName(const std::string& fileName, std::string& path,
                                          std::string& file)
{
    const std::size_t slash = fileName.rfind('/');
    path = slash == std::string::npos ? "./" : fileName.substr(0, slash + 1);
    file = slash == std::string::npos ? fileName : fileName.substr(slash + 1);
}

void GUI_ParentWindow::createFile(const std::string& path, const std::string& file)
{
    mSavingPath = path;
    mSavingFile = file;
}

void GUI_ParentWindow::createFile(const std::string& fileName)
{
    std::string path;
    std::string file;
    getPathAndFileName(fileName, path, file);
    createFile(path, file);
}

void GUI_ParentWindow::load(const std::string& path, const std::string& file)
{
    mSavingPath = path;
    mSavingFile = file;
    load();
}

void GUI_ParentWindow::load(const std::string& fileName)
{
    std::string path;
    std::string file;
    getPathAndFileName(fileName, path, file);
    load(path, file);
}

void GUI_ParentWindow::load() {}

void GUI_ParentWindow::save() const {}

void GUI_ParentWindow::save(const std::string& path, const std::string& file) const
{
    mSavingPath = path;
    mSavingFile = file;
    save();
}

void GUI_ParentWindow::save(const std::string& fileName) const
{
    std::string path;
    std::string file;
    getPathAndFileName(fileName, path, file);
    save(path, file);
}

void GUI_ParentWindow::saveAs(const std::string& path, const std::string& file) const
{
    save(path, file);
}

void GUI_ParentWindow::setSize(int width, int height)
{
    resize(width, height);
}

void GUI_ParentWindow::setFont(const std::string& font)
{
    applyFont(*this, font);
}

void GUI_ParentWindow::setName(const std::string& name)
{
    setWindowTitle(toQString(name));
    setObjectName(toQString(name));
}

std::string GUI_ParentWindow::getName() const
{
    return toTString(windowTitle());
}

void GUI_ParentWindow::setStatusMessage(const std::string& text)
{
    statusBar()->showMessage(toQString(text));
}
