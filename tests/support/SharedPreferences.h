#pragma once
#include "gui/GUI_Action.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_Component.h"
#include "support/Printed.h"

#include <string>

/// Puts the preferences back at the end of the scope, and the application's file to none.
class SharedPreferences
{
public:
    SharedPreferences() = default;
    ~SharedPreferences()
    {
        GUI_Application::TRANSLATOR_FILE = mTranslatorFile;
        GUI_Application::TRANSLATOR_PATH = mTranslatorPath;
        GUI_Application::DICTIONARY_FILE = mDictionaryFile;
        GUI_Application::DOC_FILE = mDocFile;
        GUI_Application::DOC_ABOUT = mDocAbout;
        GUI_Application::DOC_PATH = mDocPath;
        GUI_Application::WORKING_PATH = mWorkingPath;
        GUI_Action::ICONS_PATH = mIconsPath;
        GUI_Component::ICONS_PATH = mIconsPath;
        GUI_Object::setFontName(mFontName);
        printedBy([] { application().loadPreferences(""); });
        GUI_Object::setDictionaryFile(mWholeDictionaryFile);
        GUI_Object::setLang(mLang);
    }
    SharedPreferences(const SharedPreferences&) = delete;
    SharedPreferences& operator=(const SharedPreferences&) = delete;

    static GUI_Application& application() { return dynamic_cast<GUI_Application&>(*qApp); }

private:
    std::string mTranslatorFile = GUI_Application::TRANSLATOR_FILE;
    std::string mTranslatorPath = GUI_Application::TRANSLATOR_PATH;
    std::string mDictionaryFile = GUI_Application::DICTIONARY_FILE;
    std::string mDocFile = GUI_Application::DOC_FILE;
    std::string mDocAbout = GUI_Application::DOC_ABOUT;
    std::string mDocPath = GUI_Application::DOC_PATH;
    std::string mWorkingPath = GUI_Application::WORKING_PATH;
    std::string mIconsPath = GUI_Action::ICONS_PATH;
    std::string mFontName = GUI_Object::getFontName();
    std::string mWholeDictionaryFile = GUI_Object::getDictionaryFile();
    unsigned char mLang = GUI_Object::getLang();
};
