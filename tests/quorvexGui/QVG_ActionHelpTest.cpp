#include "quorvexGui/QVG_ActionHelp.h"

#include "gui/GUI_BrowserEdit.h"
#include "gui/GUI_BrowserWindow.h"
#include "quorvexGui/TestMainWindow.h"
#include "support/DialogAnswers.h"
#include "support/SharedPreferences.h"

#include <QMessageBox>
#include <QStatusBar>

#include <gtest/gtest.h>

namespace {

/// A main window whose manual is an English page without title.
class Manual
{
public:
    Manual()
    {
        GUI_Application::DOC_PATH = mWindow.directory().slashed();
        GUI_Application::DOC_FILE = "start.html";
        write("start.html");
    }
    /// Writes a page of the manual.
    void write(const std::string& name) const
    {
        mWindow.directory().write(name, "<html><body>" + name + "</body></html>");
    }
    void writeFrench() const
    {
        std::filesystem::create_directory("fr");
        write("fr/start.html");
    }
    /// The page that the last of so many windows shows when the action has been taken.
    std::string open(std::size_t windows = 1) const
    {
        mWindow.action(QVG_MainMenu::HELP, 0).trigger();
        const std::vector<GUI_BrowserWindow*> open = childrenOf<GUI_BrowserWindow>(*mWindow);
        EXPECT_EQ(open.size(), windows);
        EXPECT_TRUE(open.back()->isVisible());
        return open.back()->getBrowserEdit()->getValue();
    }
    const TestMainWindow& window() const { return mWindow; }

private:
    SharedPreferences mPreferences;
    TestMainWindow mWindow;
};

} // namespace

TEST(QVG_ActionHelp, TheManualOpensInABrowser)
{
    const Manual manual;
    EXPECT_EQ(manual.open(), "start.html");
    EXPECT_EQ(manual.window().children(),
              std::vector<std::string>{manual.window().directory().file("start.html")});
    EXPECT_EQ(manual.open(2), "start.html") << "each time in a window of its own";
}

TEST(QVG_ActionHelp, TheManualIsInTheLanguageOfTheTextsWhereItCanBe)
{
    const Manual manual;
    EXPECT_EQ(manual.open(1), "start.html");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    EXPECT_EQ(manual.open(2), "start.html") << "there is no French one";
    manual.writeFrench();
    EXPECT_EQ(manual.open(3), "fr/start.html");
    GUI_Object::setLang(DICO_Dictionary::LANG_GE);
    EXPECT_EQ(manual.open(4), "start.html");
    GUI_Object::setLang(DICO_Dictionary::LANG_EN);
    EXPECT_EQ(manual.open(5), "start.html");
}

TEST(QVG_ActionHelp, WithoutManualTheWindowHasItsNameAndTellsTheMissingFile)
{
    const Manual manual;
    GUI_Application::DOC_FILE = "none.html";
    EXPECT_EQ(manual.open(), "");
    const GUI_BrowserWindow& window = *childrenOf<GUI_BrowserWindow>(*manual.window()).front();
    EXPECT_EQ(window.getName(), "Help Window");
    EXPECT_EQ(window.findChild<QStatusBar*>()->currentMessage().toStdString(),
              "The file can not be loaded: " + manual.window().directory().file("none.html"));
}

TEST(QVG_ActionHelp, TheManualBringsTheMenusUpToDate)
{
    const Manual manual;
    manual.window().createProject();
    manual.window().write("tps.res", "");
    manual.window()->getMenu()->updateStateMenus();
    EXPECT_TRUE(manual.window().action(QVG_MainMenu::VISUALIZE, 0).isEnabled());
    std::filesystem::remove(manual.window().file("tps.res"));
    manual.open();
    EXPECT_FALSE(manual.window().action(QVG_MainMenu::VISUALIZE, 0).isEnabled());
}

TEST(QVG_ActionHelp, AboutShowsTheTextOfItsFile)
{
    const TestMainWindow window;
    const std::string former = GUI_Application::DOC_PATH;
    GUI_Application::DOC_PATH = window.directory().slashed();
    window.directory().write("about.txt", "Pulses in resonant media.");
    std::string title;
    std::string text;
    DialogAnswers answers;
    answers.add<QMessageBox>([&title, &text](QMessageBox& dialog) {
        title = dialog.windowTitle().toStdString();
        text = dialog.text().toStdString();
    });
    window.action(QVG_MainMenu::HELP, 1).trigger();
    GUI_Application::DOC_PATH = former;
    EXPECT_EQ(title, "About");
    EXPECT_EQ(text, "Pulses in resonant media.");
}

TEST(QVG_ActionHelp, TheTypeChoosesTheLabel)
{
    const TestMainWindow window;
    const COM_Scoped about(QVG_ActionHelp::New(QVG_ActionHelp::ABOUT_TYPE));
    const COM_Scoped manual(QVG_ActionHelp::New(QVG_ActionHelp::MANUAL_TYPE));
    EXPECT_EQ(about->getLabel(), "About");
    EXPECT_EQ(manual->getLabel(), "Manual");
    EXPECT_EQ(QVG_ActionHelp::ABOUT_TYPE, 0);
    EXPECT_EQ(QVG_ActionHelp::MANUAL_TYPE, 1);
}

TEST(QVG_ActionHelp, OutsideAMenuItDoesNothing)
{
    const TestMainWindow window;
    const COM_Scoped about(QVG_ActionHelp::New(QVG_ActionHelp::ABOUT_TYPE));
    const COM_Scoped manual(QVG_ActionHelp::New(QVG_ActionHelp::MANUAL_TYPE));
    DialogAnswers noDialogs;
    about->toDo();
    manual->toDo();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.children().empty());
}
