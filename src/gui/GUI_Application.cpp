#include "gui/GUI_Application.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_BaseDirectory.h"
#include "gui/GUI_ClassFactory.h"
#include "gui/GUI_Component.h"
#include "gui/GUI_File.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_RootWindow.h"
#include "metaModel/MM_Class.h"

#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

#include <clocale>
#include <filesystem>
#include <iostream>

std::string GUI_Application::TRANSLATOR_FILE = "qt_";
std::string GUI_Application::TRANSLATOR_PATH = GUI_BaseDirectory::find() + "/linguist/";
std::string GUI_Application::DICTIONARY_FILE = "dictionary.xml";
std::string GUI_Application::DOC_FILE = "index.html";
std::string GUI_Application::DOC_ABOUT = "about.txt";
std::string GUI_Application::DOC_PATH = GUI_BaseDirectory::find() + "/doc/quorvexGui/html/";
std::string GUI_Application::WORKING_PATH = "./";

namespace {

/// Qt reads the number of arguments as long as the application lives.
int& kept(int number)
{
    static int argumentsNumber = 0;
    argumentsNumber = number;
    return argumentsNumber;
}

/// UTF-8; bytes that are none are taken for Latin-1.
QString decoded(const QByteArray& bytes)
{
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

/// True for a file that holds something but no root object of that class.
bool isForeign(const std::string& file, const std::string& className)
{
    std::error_code error;
    return std::filesystem::is_regular_file(file, error)
           && std::filesystem::file_size(file, error) > 0
           && GUI_File::getRootClassName(file) != className;
}

} // namespace

GUI_Application::GUI_Application(int argc, char** argv)
    : QApplication(kept(argc), argv)
{
    COM_TYPE(GUI_Application);
    // Qt has switched to the locale of the desktop, in which a file of numbers might hold decimal commas.
    std::setlocale(LC_NUMERIC, "C");
    updateTranslator();
}

GUI_Application::~GUI_Application()
{
    resetModel();
    GUI_Grave::flush();
    delete mTranslator;
}

unsigned long GUI_Application::getInverseAgregatedObjectsCount() const
{
    return mMainWindow != nullptr ? 1 : 0;
}

void GUI_Application::resetInverseAgregatedObjects()
{
    resetMainWindow();
}

void GUI_Application::destroy() const
{
    delete this;
}

void GUI_Application::setMainWindow(GUI_RootWindow& window)
{
    if (mMainWindow == &window) {
        return;
    }
    resetMainWindow();
    associate(mMainWindow, &window);
    window.setApplication(*this);
}

void GUI_Application::setMainWindow(GUI_RootWindow* window)
{
    if (window == nullptr) {
        resetMainWindow();
    } else {
        setMainWindow(*window);
    }
}

void GUI_Application::resetMainWindow()
{
    if (mMainWindow == nullptr) {
        return;
    }
    GUI_RootWindow* const window = mMainWindow;
    const COM_Guard guard(*window);
    dissociate(mMainWindow);
    window->resetApplication();
}

void GUI_Application::run()
{
    if (mMainWindow != nullptr) {
        mMainWindow->show();
    }
    exec();
    GUI_Grave::flush();
    Delete();
}

void GUI_Application::loadPreferences(const std::string& file)
{
    const COM_Scoped factory(GUI_ClassFactory::New());
    factory->load(file, *this);
    mPreferencesFile = file;
}

void GUI_Application::savePreferences(const std::string& file) const
{
    if (isForeign(file, getClassName())) {
        std::cout << "ERROR:" << file << " can not be created !! \n";
        return;
    }
    const COM_Scoped factory(GUI_ClassFactory::New());
    factory->save(file, *this);
}

void GUI_Application::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("TRANSLATOR_PATH", TRANSLATOR_PATH);
    metaClass.addAttributeToMetaFields("TRANSLATOR_FILE", TRANSLATOR_FILE);
    metaClass.addAttributeToMetaFields("DICTIONARY_FILE", DICTIONARY_FILE);
    metaClass.addAttributeToMetaFields("LANG", getLang());
    metaClass.addAttributeToMetaFields("ICONS_PATH", GUI_Action::ICONS_PATH);
    metaClass.addAttributeToMetaFields("DOC_PATH", DOC_PATH);
    metaClass.addAttributeToMetaFields("DOC_ABOUT", DOC_ABOUT);
    metaClass.addAttributeToMetaFields("DOC_FILE", DOC_FILE);
    metaClass.addAttributeToMetaFields("WORKING_PATH", WORKING_PATH);
    metaClass.addAttributeToMetaFields("FONT", mFontName);
}

void GUI_Application::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("TRANSLATOR_PATH", &TRANSLATOR_PATH);
    metaClass.getAttributeFromMetaFields("TRANSLATOR_FILE", &TRANSLATOR_FILE);
    std::string dictionary;
    metaClass.getAttributeFromMetaFields("DICTIONARY_FILE", &dictionary);
    unsigned char lang = getLang();
    metaClass.getAttributeFromMetaFields("LANG", &lang);
    metaClass.getAttributeFromMetaFields("ICONS_PATH", &GUI_Action::ICONS_PATH);
    metaClass.getAttributeFromMetaFields("DOC_PATH", &DOC_PATH);
    metaClass.getAttributeFromMetaFields("DOC_ABOUT", &DOC_ABOUT);
    metaClass.getAttributeFromMetaFields("DOC_FILE", &DOC_FILE);
    metaClass.getAttributeFromMetaFields("WORKING_PATH", &WORKING_PATH);
    metaClass.getAttributeFromMetaFields("FONT", &mFontName);

    GUI_Component::ICONS_PATH = GUI_Action::ICONS_PATH;
    setLang(lang);
    if (!dictionary.empty()) {
        chooseDictionary(dictionary);
    }
    updateTranslator();
}

void GUI_Application::chooseDictionary(const std::string& file)
{
    DICTIONARY_FILE = file;
    const bool isPath = file.find('/') != std::string::npos;
    setDictionaryFile(isPath ? file : TRANSLATOR_PATH + file);
}

void GUI_Application::updateTranslator()
{
    const bool isFrench = getLang() == DICO_Dictionary::LANG_FR;
    delete mTranslator;
    mTranslator = new QTranslator;
    const std::string file = TRANSLATOR_FILE + (isFrench ? "fr" : "") + ".qm";
    if (!mTranslator->load(toQString(file), toQString(TRANSLATOR_PATH)) && isFrench) {
        // What the machine's Qt brings along says the same; without it Qt's own texts stay English.
        static_cast<void>(
            mTranslator->load("qtbase_fr", QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    }
    installTranslator(mTranslator);
}

void GUI_Application::about()
{
    QFile file(toQString(DOC_PATH + DOC_ABOUT));
    const QString text = file.open(QIODevice::ReadOnly) ? decoded(file.readAll()) : QString();
    GUI_Message::printAbout(mMainWindow, translate("About"), toTString(text));
}
