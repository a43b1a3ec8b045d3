#include "gui/GUI_RootWindow.h"
#include "quorvexGui/StartTest.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

// The program's entry in a build for French and in one for English.
int quorvexMain_fr(int argc, char** argv);
int quorvexMain_en(int argc, char** argv);

namespace {

std::function<void(GUI_Application&)> visit; ///< Called when the program's loop runs.

void arrangeVisit()
{
    QTimer::singleShot(0, qApp, [] {
        if (visit) {
            visit(dynamic_cast<GUI_Application&>(*qApp));
        }
    });
}
Q_COREAPP_STARTUP_FUNCTION(arrangeVisit)

class QVG_MainTest : public StartTest
{
protected:
    ~QVG_MainTest() override { visit = {}; }
};

} // namespace

TEST_F(QVG_MainTest, ThePathsFollowFromTheBaseDirectory)
{
    GUI_Action::ICONS_PATH = "elsewhere";
    GUI_Component::ICONS_PATH = "elsewhere";
    GUI_Application::TRANSLATOR_PATH = "elsewhere";
    GUI_Application::DOC_PATH = "elsewhere";
    GUI_Application::DOC_FILE = "elsewhere";
    GUI_Application::DOC_ABOUT = "elsewhere";
    GUI_Object::setLang(DICO_Dictionary::LANG_GE);
    bool isVisited = false;
    visit = [&isVisited](GUI_Application& application) {
        isVisited = true;
        const std::string base = GUI_BaseDirectory::find();
        EXPECT_TRUE(base.ends_with("/src/data/")) << base;
        EXPECT_EQ(GUI_Application::TRANSLATOR_PATH, base + "/linguist/");
        EXPECT_EQ(GUI_Application::TRANSLATOR_FILE, "qt_");
        EXPECT_EQ(GUI_Application::DICTIONARY_FILE, "dictionary.xml");
        EXPECT_EQ(GUI_Application::DOC_FILE, "index.html");
        EXPECT_EQ(GUI_Application::DOC_ABOUT, "about.txt");
        EXPECT_EQ(GUI_Application::DOC_PATH, base + "/doc/quorvexGui/html/");
        EXPECT_EQ(GUI_Application::WORKING_PATH, "./");
        EXPECT_EQ(GUI_Action::ICONS_PATH, base + "/icons/");
        EXPECT_EQ(GUI_Component::ICONS_PATH, base + "/icons/");
        EXPECT_EQ(GUI_Object::getDictionaryFile(), base + "/linguist/dictionary.xml");
        EXPECT_EQ(GUI_Object::getFontName(), "");
        EXPECT_EQ(GUI_Object::getLang(), DICO_Dictionary::LANG_FR);
        ASSERT_NE(application.getMainWindow(), nullptr);
        EXPECT_TRUE(application.getMainWindow()->isVisible());
        EXPECT_EQ(application.getMainWindow()->getName(), "Simulation Quorvex");
        application.getMainWindow()->close(false);
    };
    char** const argv = arguments({});
    EXPECT_EQ(quorvexMain_fr(argumentsNumber(), argv), 0);
    EXPECT_TRUE(isVisited);
    EXPECT_EQ(qApp, nullptr);
}

TEST_F(QVG_MainTest, ThePreferencesMayReplaceThePathsAndTheLanguage)
{
    const std::string file = writePreferences("mine.xml");
    bool isVisited = false;
    visit = [&isVisited](GUI_Application& application) {
        isVisited = true;
        EXPECT_EQ(application.getMainWindow()->getName(), "Quorvex Simulation");
        EXPECT_EQ(application.getMainWindow()->getSavingPath(), "work/");
        EXPECT_EQ(GUI_Action::ICONS_PATH, "icons/");
        application.getMainWindow()->close(false);
    };
    char** const argv = arguments({file});
    EXPECT_EQ(quorvexMain_fr(argumentsNumber(), argv), 0);
    EXPECT_TRUE(isVisited);
}

TEST_F(QVG_MainTest, WhateverEndsTheLoopTheProgramReturnsZero)
{
    visit = [](GUI_Application&) { QCoreApplication::exit(7); };
    char** const argv = arguments({"none.xml"});
    EXPECT_EQ(quorvexMain_fr(argumentsNumber(), argv), 0);
    EXPECT_EQ(qApp, nullptr);
}

TEST_F(QVG_MainTest, NumbersKeepTheirDecimalPoint)
{
    std::string text;
    visit = [&text](GUI_Application& application) {
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "%.1f", 1.5);
        text = buffer;
        application.getMainWindow()->close(false);
    };
    char** const argv = arguments({});
    EXPECT_EQ(quorvexMain_fr(argumentsNumber(), argv), 0);
    EXPECT_EQ(text, "1.5");
}

TEST_F(QVG_MainTest, ABuildForAnotherLanguageSpeaksEnglish)
{
    std::string caption;
    visit = [&caption](GUI_Application& application) {
        caption = application.getMainWindow()->getName();
        EXPECT_EQ(GUI_Object::getLang(), DICO_Dictionary::LANG_EN);
        application.getMainWindow()->close(false);
    };
    char** const argv = arguments({});
    EXPECT_EQ(quorvexMain_en(argumentsNumber(), argv), 0);
    EXPECT_EQ(caption, "Quorvex Simulation");
}
