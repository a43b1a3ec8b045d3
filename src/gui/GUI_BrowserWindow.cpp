#include "gui/GUI_BrowserWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_BrowserEdit.h"
#include "gui/GUI_BrowserMenu.h"
#include "gui/GUI_BrowserPanel.h"
#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_RichTextPrinter.h"

#include <QDataStream>
#include <QFile>
#include <QStatusBar>

#include <algorithm>

namespace {

constexpr int startWidth = 860;
constexpr int startHeight = 680;
constexpr qsizetype historyLength = 20;

/// The list of strings in a file of Qt's own format. Empty for a file that is missing or damaged.
QStringList readList(const std::string& fileName)
{
    QFile file(GUI_Object::toQString(fileName));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_3_1);
    quint32 count = 0;
    stream >> count;
    // Qt takes the memory for so many at once, however short the file is. Each begins with its length.
    if (count > file.size() / static_cast<qint64>(sizeof(quint32))) {
        return {};
    }
    file.seek(0);
    QStringList list;
    stream >> list;
    return stream.status() == QDataStream::Ok ? list : QStringList();
}

/// Puts the paths one over the other: the last one stays, under a number that no entry of a menu has.
void putAll(const QStringList& paths, COM_Map<int, COM_String>& map)
{
    for (const QString& path : paths) {
        const COM_Scoped text(COM_String::New(GUI_Object::toTString(path)));
        map.put(0, *text);
    }
}

} // namespace

GUI_BrowserWindow::GUI_BrowserWindow(GUI_ParentWindow& parent, const std::string& name, bool flag)
    : GUI_ChildWindow(parent)
    , mHistory(COM_Map<int, COM_String>::New())
    , mBookmarks(COM_Map<int, COM_String>::New())
{
    COM_TYPE(GUI_BrowserWindow);
    initComponents(name, flag);
}

GUI_BrowserWindow::GUI_BrowserWindow(GUI_ParentWindow* parent, const std::string& name, bool flag)
    : GUI_BrowserWindow(*parent, name, flag)
{}

GUI_BrowserWindow::~GUI_BrowserWindow()
{
    mBookmarks->Delete();
    mHistory->Delete();
}

void GUI_BrowserWindow::initComponents(const std::string& name, bool flag)
{
    setName(translate(name));
    setSavingPath("./");
    setSavingFile("textWindow.txt");
    const COM_Scoped menu(GUI_BrowserMenu::New(*this, flag));
    const COM_Scoped panel(GUI_BrowserPanel::New(*this));
    // Made by the first message, it would take its lines from the page.
    statusBar();
    setSize(startWidth, startHeight);
    readHistory();
    readBookmarks();
}

void GUI_BrowserWindow::readHistory()
{
    QStringList paths = readList(getSavingPath() + "/.history");
    while (paths.size() > historyLength) {
        paths.removeFirst();
    }
    putAll(paths, *mHistory);
}

void GUI_BrowserWindow::readBookmarks()
{
    putAll(readList(getSavingPath() + "/.bookmarks"), *mBookmarks);
}

GUI_BrowserEdit* GUI_BrowserWindow::getBrowserEdit() const
{
    const auto* const panel = dynamic_cast<GUI_BrowserPanel*>(getPanel());
    return panel == nullptr ? nullptr : panel->getBrowserEdit();
}

GUI_BrowserMenu* GUI_BrowserWindow::getBrowserMenu() const
{
    return dynamic_cast<GUI_BrowserMenu*>(getMenu());
}

void GUI_BrowserWindow::show()
{
    GUI_ChildWindow::show();
    if (GUI_BrowserEdit* const edit = getBrowserEdit()) {
        edit->setFocus();
    }
}

void GUI_BrowserWindow::close()
{
    close(false);
}

void GUI_BrowserWindow::openFile()
{
    GUI_BrowserEdit* const edit = getBrowserEdit();
    const std::string present = edit == nullptr ? std::string() : edit->getContext();
    const std::string name = GUI_File::selectFile(this, present.empty() ? getSavingPath() : present,
                                                  "", translate("Open a File"), translate("Open"));
    // The window may have been closed meanwhile.
    if (!name.empty() && edit == getBrowserEdit() && edit != nullptr) {
        edit->setFile(name);
    }
}

void GUI_BrowserWindow::newWindow()
{
    GUI_BrowserEdit* const edit = getBrowserEdit();
    GUI_ParentWindow* const parent = getParent();
    if (edit == nullptr || parent == nullptr) {
        return;
    }
    const COM_Scoped window(GUI_BrowserWindow::New(*parent));
    const std::string page = edit->getContext();
    if (!page.empty()) {
        window->setHome(page);
    }
    window->show();
}

void GUI_BrowserWindow::print()
{
    if (const GUI_BrowserEdit* const edit = getBrowserEdit()) {
        GUI_RichTextPrinter::print(*edit->document(), *this);
    }
}

void GUI_BrowserWindow::forward()
{
    if (GUI_BrowserEdit* const edit = getBrowserEdit()) {
        edit->forward();
    }
}

void GUI_BrowserWindow::backward()
{
    if (GUI_BrowserEdit* const edit = getBrowserEdit()) {
        edit->backward();
    }
}

void GUI_BrowserWindow::home()
{
    if (GUI_BrowserEdit* const edit = getBrowserEdit()) {
        edit->home();
    }
}

void GUI_BrowserWindow::historyChosen(int id)
{
    choose(*mHistory, id);
}

void GUI_BrowserWindow::bookmarkChosen(int id)
{
    choose(*mBookmarks, id);
}

void GUI_BrowserWindow::choose(const COM_Map<int, COM_String>& paths, int id) const
{
    const COM_String* const path = paths.get(id);
    GUI_BrowserEdit* const edit = getBrowserEdit();
    if (path != nullptr && edit != nullptr) {
        edit->setFile(path->getString());
    }
}

void GUI_BrowserWindow::addBookmark()
{
    const GUI_BrowserEdit* const edit = getBrowserEdit();
    GUI_BrowserMenu* const menu = getBrowserMenu();
    const std::string page = edit == nullptr ? std::string() : edit->getContext();
    if (menu == nullptr || page.empty()) {
        return;
    }
    const COM_Scoped text(COM_String::New(page));
    mBookmarks->put(menu->addBookmark(getName()), *text);
}

void GUI_BrowserWindow::help() {}

void GUI_BrowserWindow::about()
{
    GUI_Message::printAbout(this, translate("About"),
                            "<p>This example implements a simple HTML browser"
                            "using Qt's rich text capabilities</p>"
                            "<p>The browser is small.</p>");
}

void GUI_BrowserWindow::setHome(const std::string& path)
{
    GUI_BrowserEdit* const edit = getBrowserEdit();
    GUI_BrowserMenu* const menu = getBrowserMenu();
    if (edit == nullptr || menu == nullptr) {
        return;
    }
    const std::string page = edit->setFileName(path) ? edit->getContext() : path;
    menu->showPath(page);
    if (std::find(mPaths.begin(), mPaths.end(), page) == mPaths.end()) {
        mPaths.push_back(page);
    }
}

void GUI_BrowserWindow::setPathSelected(const std::string& path)
{
    GUI_BrowserEdit* const edit = getBrowserEdit();
    if (edit == nullptr || !edit->setFile(path)) {
        return;
    }
    const std::string page = edit->getContext();
    if (!isInHistory(page)) {
        addToHistory(page);
    }
    // The same page may have been typed in another form.
    if (GUI_BrowserMenu* const menu = getBrowserMenu()) {
        menu->showPath(page);
    }
    edit->setFocus();
}

bool GUI_BrowserWindow::isInHistory(const std::string& path) const
{
    for (const int id : mHistory->keys()) {
        if ((*mHistory)[id].getString() == path) {
            return true;
        }
    }
    return false;
}

void GUI_BrowserWindow::addToPaths(const std::string& path)
{
    mPaths.push_back(path);
    addToHistory(path);
}

void GUI_BrowserWindow::addToHistory(const std::string& path)
{
    if (GUI_BrowserMenu* const menu = getBrowserMenu()) {
        const COM_Scoped text(COM_String::New(path));
        mHistory->put(menu->addHistory(path), *text);
    }
}
