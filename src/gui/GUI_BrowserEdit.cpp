#include "gui/GUI_BrowserEdit.h"

#include "gui/GUI_BrowserMenu.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_ParentLayout.h"
#include "gui/GUI_ParentWindow.h"
#include "gui/GUI_RootLayout.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QUrl>

namespace {

bool isFile(const QString& path)
{
    return QFileInfo(path).isFile();
}

} // namespace

GUI_BrowserEdit::GUI_BrowserEdit(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    initComponents();
}

GUI_BrowserEdit::GUI_BrowserEdit(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_BrowserEdit(&panel, flag)
{}

void GUI_BrowserEdit::initComponents()
{
    COM_TYPE(GUI_BrowserEdit);
    setPath(".");
    // Followed by Qt, a link to a missing page would show an empty one.
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const GUI_EventScope scope;
        follow(link);
    });
    connect(this, &QTextEdit::textChanged, this, &GUI_BrowserEdit::toDo);
    // While the text changes, the source is still that of the page before.
    connect(this, &QTextBrowser::historyChanged, this, &GUI_BrowserEdit::toDo);
    connect(this, &QTextBrowser::backwardAvailable, this, &GUI_BrowserEdit::setBackwardAvailable);
    connect(this, &QTextBrowser::forwardAvailable, this, &GUI_BrowserEdit::setForwardAvailable);
}

void GUI_BrowserEdit::setPath(const std::string& path)
{
    setSearchPaths({toQString(path)});
}

bool GUI_BrowserEdit::setFile(const std::string& fileName)
{
    return !fileName.empty() && follow(addressOf(toQString(fileName)));
}

bool GUI_BrowserEdit::follow(const QUrl& link)
{
    if (!link.isLocalFile()) {
        const std::string name = toTString(link.toString());
        const bool isOpened = QDesktopServices::openUrl(link);
        tell(isOpened ? name : translate("The link can not be opened") + ": " + name);
        return false;
    }
    const QString page = link.toLocalFile();
    if (!isFile(page)) {
        tell(translate("The file can not be loaded") + ": " + toTString(page));
        return false;
    }
    tell("");
    setSource(link);
    return true;
}

QUrl GUI_BrowserEdit::addressOf(const QString& name) const
{
    const QString path = pathOf(name);
    const QUrl link(name);
    if (!isFile(path) && !link.scheme().isEmpty()) {
        return link;
    }
    QUrl address = QUrl::fromLocalFile(path);
    const qsizetype hash = name.lastIndexOf('#');
    if (!isFile(path) && hash > 0) {
        address = QUrl::fromLocalFile(pathOf(name.left(hash)));
        address.setFragment(name.mid(hash + 1));
    }
    return address;
}

QString GUI_BrowserEdit::pathOf(const QString& name) const
{
    const QFileInfo file(name);
    if (source().isLocalFile() && file.isRelative()) {
        const QDir besidePage = QFileInfo(source().toLocalFile()).dir();
        const QString path = QDir::cleanPath(besidePage.filePath(name));
        if (isFile(path) || !name.contains('/')) {
            return path;
        }
    }
    return QDir::cleanPath(file.absoluteFilePath());
}

std::string GUI_BrowserEdit::getContext() const
{
    return toTString(source().toString(QUrl::PreferLocalFile | QUrl::RemoveFragment));
}

void GUI_BrowserEdit::setValue(const std::string& value)
{
    setText(toQString(value));
}

std::string GUI_BrowserEdit::getValue() const
{
    return toTString(toPlainText());
}

void GUI_BrowserEdit::setBackwardAvailable(bool flag)
{
    const GUI_ParentWindow* const window = findWindow();
    auto* const menu =
        window == nullptr ? nullptr : dynamic_cast<GUI_BrowserMenu*>(window->getMenu());
    if (menu != nullptr) {
        menu->setBackwardAvailable(flag);
    }
}

void GUI_BrowserEdit::setForwardAvailable(bool flag)
{
    const GUI_ParentWindow* const window = findWindow();
    auto* const menu =
        window == nullptr ? nullptr : dynamic_cast<GUI_BrowserMenu*>(window->getMenu());
    if (menu != nullptr) {
        menu->setForwardAvailable(flag);
    }
}

// Qt follows the link that has the focus.
void GUI_BrowserEdit::keyPressEvent(QKeyEvent* event)
{
    const GUI_EventScope scope;
    const int key = event->key();
    QTextBrowser::keyPressEvent(event);
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        toDo();
    }
}

QVariant GUI_BrowserEdit::loadResource(int type, const QUrl& name)
{
    const bool isPage =
        type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource;
    if (!isPage || !name.isLocalFile()) {
        return QTextBrowser::loadResource(type, name);
    }
    QFile file(name.toLocalFile());
    if (!file.open(QIODevice::ReadOnly)) {
        // Back to a page that is gone.
        return toQString(translate("The file can not be loaded") + ": ")
               + name.toLocalFile().toHtmlEscaped();
    }
    const QByteArray text = file.readAll();
    // A page without a character is none for Qt, a plain text is no HTML.
    if (text.isEmpty() || file.fileName().endsWith(".txt", Qt::CaseInsensitive)) {
        return "<pre style=\"white-space: pre-wrap\">" + QString::fromUtf8(text).toHtmlEscaped()
               + "</pre>";
    }
    return text;
}

void GUI_BrowserEdit::tell(const std::string& text) const
{
    if (GUI_ParentWindow* const window = findWindow()) {
        window->setStatusMessage(text);
    }
}

GUI_ParentWindow* GUI_BrowserEdit::findWindow() const
{
    GUI_RootLayout* const layout = getLayout() == nullptr ? nullptr : getLayout()->getRoot();
    GUI_ParentPanel* const panel = layout == nullptr ? nullptr : layout->getPanel();
    return panel == nullptr ? nullptr : panel->findWindow();
}
