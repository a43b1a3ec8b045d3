#include "gui/GUI_File.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Dialog.h"
#include "gui/GUI_Message.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_ClassFactory.h"
#include "metaModel/MM_Parser.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTreeView>

#include <fstream>

namespace {

constexpr int width = 800; ///< Of the dialogs: names, sizes and dates in full.
constexpr int height = 480;

QString toQString(const std::string& text)
{
    return GUI_Object::toQString(text);
}

std::string toTString(const QString& text)
{
    return GUI_Object::toTString(text);
}

QStringList entries(const std::string& path, const std::string& filter)
{
    if (path.empty()) {
        return {};
    }
    static const QRegularExpression separators("[ ;]");
    return QDir(toQString(path))
        .entryList(toQString(filter).split(separators, Qt::SkipEmptyParts),
                   QDir::Files | QDir::CaseSensitive, QDir::Name);
}

void copyFile(const QString& source, const QString& target)
{
    // Through links and other spellings, source and target may be one file.
    if (QFileInfo(source).canonicalFilePath() == QFileInfo(target).canonicalFilePath()) {
        return;
    }
    std::ifstream in(toTString(source), std::ios::binary);
    if (!in.is_open()) {
        return;
    }
    COM_FileWriter out(toTString(target));
    // Inserting a buffer without a character would count as a failure.
    if (in.peek() != std::ifstream::traits_type::eof()) {
        out.stream() << in.rdbuf();
    }
    if (!in.bad()) {
        out.commit();
    }
}

/// A dialog that looks alike on every desktop and takes the shared font.
void prepare(QFileDialog& dialog, const std::string& oldPath, const std::string& title,
             const std::string& text)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(toQString(title));
    dialog.resize(width, height);
    if (auto* const list = dialog.findChild<QTreeView*>()) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }
    const QFileInfo start(toQString(oldPath));
    if (start.isDir()) {
        dialog.setDirectory(start.filePath());
    } else if (!oldPath.empty() && start.dir().exists()) {
        dialog.setDirectory(start.dir());
        dialog.selectFile(start.fileName());
    }
    if (!text.empty() && text != "...") {
        dialog.setLabelText(QFileDialog::FileName, toQString(text));
    }
}

void setFilter(QFileDialog& dialog, const std::string& filter)
{
    if (!filter.empty()) {
        dialog.setNameFilter(toQString(filter));
    }
}

std::string answer(QFileDialog& dialog)
{
    // Taken when it is accepted: afterwards the field, no longer the one with the focus, may follow a late
    // selection in the list.
    QString chosen;
    const QObject watch;
    QObject::connect(&dialog, &QFileDialog::fileSelected, &watch,
                     [&chosen](const QString& name) { chosen = name; });
    return GUI_Dialog::run(dialog) == QDialog::Accepted ? toTString(chosen) : std::string();
}

} // namespace

GUI_File::GUI_File()
{
    COM_TYPE(GUI_File);
}

void GUI_File::getFiles(const std::string& path, const std::string& filter,
                        std::vector<std::string>& files)
{
    for (const QString& name : entries(path, filter)) {
        files.push_back(toTString(name));
    }
}

void GUI_File::removeFiles(const std::string& path, const std::string& filter)
{
    QDir directory(toQString(path));
    for (const QString& name : entries(path, filter)) {
        directory.remove(name);
    }
}

void GUI_File::copyFiles(const std::string& srcPath, const std::string& filter,
                         const std::string& destPath)
{
    if (destPath.empty()) {
        return;
    }
    const QDir source(toQString(srcPath));
    const QDir destination(toQString(destPath));
    for (const QString& name : entries(srcPath, filter)) {
        copyFile(source.filePath(name), destination.filePath(name));
    }
}

std::string GUI_File::getRootClassName(const std::string& fileName)
{
    const QFileInfo file(toQString(fileName));
    if (!file.isFile() || !file.isReadable()) {
        return {};
    }
    const COM_Scoped package(MM_ClassFactory::New());
    MM_Parser::parseXMLMetaModelFile(fileName, *package);
    const MM_Class* const root = package->getRootMetaClass();
    return root == nullptr ? std::string() : root->getName();
}

std::string GUI_File::selectFile(GUI_ParentWindow* parent, const std::string& oldPath,
                                 const std::string& filter, const std::string& title,
                                 const std::string& text, bool mustExist)
{
    QFileDialog dialog(GUI_Dialog::parent(parent));
    prepare(dialog, oldPath, title, text);
    dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    setFilter(dialog, filter);
    return answer(dialog);
}

std::string GUI_File::selectSavingFile(GUI_ParentWindow* parent, const std::string& oldPath,
                                       const std::string& filter, const std::string& title,
                                       const std::string& text)
{
    QFileDialog dialog(GUI_Dialog::parent(parent));
    prepare(dialog, oldPath, title, text);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The question is ours, so that it is asked once.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    setFilter(dialog, filter);
    std::string name = answer(dialog);
    while (!name.empty() && !isReplacementAllowed(parent, name)) {
        name = answer(dialog);
    }
    return name;
}

bool GUI_File::isReplacementAllowed(GUI_ParentWindow* parent, const std::string& fileName)
{
    return !QFileInfo::exists(toQString(fileName))
           || GUI_Message::printWarning(parent, GUI_Object::translate("Warning"),
                                        GUI_Object::translate("The file already exists") + ".\n"
                                            + GUI_Object::translate("Do you want to replace it ?"),
                                        GUI_Object::translate("Yes"), GUI_Object::translate("No"))
                  == GUI_Message::YES;
}

std::string GUI_File::selectPath(GUI_ParentWindow* parent, const std::string& oldPath,
                                 const std::string& title, const std::string& text)
{
    QFileDialog dialog(GUI_Dialog::parent(parent));
    prepare(dialog, oldPath, title, text);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const std::string path = answer(dialog);
    return path.empty() || path.ends_with('/') ? path : path + "/";
}
