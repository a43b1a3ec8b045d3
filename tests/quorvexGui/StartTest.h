#pragma once
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_BaseDirectory.h"
#include "gui/GUI_Component.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Starts programs in this process: command lines, and the shared paths and words as they were before.
class StartTest : public testing::Test
{
protected:
    StartTest()
    {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
    }
    ~StartTest() override
    {
        GUI_Application::TRANSLATOR_PATH = GUI_BaseDirectory::find() + "/linguist/";
        GUI_Application::TRANSLATOR_FILE = "qt_";
        GUI_Application::DICTIONARY_FILE = "dictionary.xml";
        GUI_Application::WORKING_PATH = "./";
        GUI_Object::setLang(DICO_Dictionary::LANG_FR);
        GUI_Object::setFontName("");
        GUI_Object::setDictionaryFile(GUI_BaseDirectory::find() + "/linguist/dictionary.xml");
    }

    /// The command line "quorvex" with these arguments. Good until the next one.
    char** arguments(const std::vector<std::string>& texts)
    {
        mTexts = texts;
        mTexts.insert(mTexts.begin(), "quorvex");
        mPointers.clear();
        for (std::string& text : mTexts) {
            mPointers.push_back(text.data());
        }
        mPointers.push_back(nullptr);
        return mPointers.data();
    }
    int argumentsNumber() const { return static_cast<int>(mTexts.size()); }

    /// Writes a preferences file for English texts and the working path "work/". Its name.
    std::string writePreferences(const std::string& name) const
    {
        const auto field = [](const char* key, const std::string& value) {
            return std::string("\t\t<MM_FIELD mName=\"") + key + "\">\n\t\t\t<MM_VALUE>" + value
                   + "</MM_VALUE>\n\t\t</MM_FIELD>\n";
        };
        return mDirectory.write(
            name, "\n<MM_PACKAGE mRootMetaClassId=\"15QVG_Application@1\">\n"
                  "\t<MM_CLASS mId=\"15QVG_Application@1\" mName=\"15QVG_Application\">\n"
                      + field("TRANSLATOR_PATH", GUI_Application::TRANSLATOR_PATH)
                      + field("TRANSLATOR_FILE", "qt_") + field("DICTIONARY_FILE", "dictionary.xml")
                      + field("LANG", "0") + field("ICONS_PATH", "icons/")
                      + field("DOC_PATH", "doc/") + field("DOC_ABOUT", "about.txt")
                      + field("DOC_FILE", "index.html") + field("WORKING_PATH", "work/")
                      + field("FONT", "") + "\t</MM_CLASS>\n</MM_PACKAGE>\n");
    }

    const TestDirectory mDirectory;

private:
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
    std::vector<std::string> mTexts;
    std::vector<char*> mPointers;
};
