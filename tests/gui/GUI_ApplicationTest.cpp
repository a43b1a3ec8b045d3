#include "gui/GUI_Application.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_Component.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_ClassFactory.h"
#include "support/DialogAnswers.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestNode.h"
#include "support/TestObject.h"
#include "support/TestWindows.h"

#include <QLibraryInfo>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace {

GUI_Application& application()
{
    return dynamic_cast<GUI_Application&>(*qApp);
}

/// Puts back what the preferences change.
class GUI_ApplicationTest : public testing::Test
{
protected:
    ~GUI_ApplicationTest() override
    {
        for (const auto& [text, former] : mFormer) {
            *text = former;
        }
        GUI_Object::setLang(mLang);
        GUI_Object::setDictionaryFile(GUI_Object::getDictionaryFile());
        application().resetMainWindow();
        application().resetModel();
        application().updateTranslator();
    }

    /// Points every path at the test's own values.
    static void setPaths()
    {
        GUI_Application::TRANSLATOR_PATH = "/t/";
        GUI_Application::TRANSLATOR_FILE = "tr_";
        GUI_Application::DICTIONARY_FILE = "words.xml";
        GUI_Action::ICONS_PATH = "/i/";
        GUI_Application::DOC_PATH = "/d/";
        GUI_Application::DOC_ABOUT = "a.txt";
        GUI_Application::DOC_FILE = "d.html";
        GUI_Application::WORKING_PATH = "/w/";
        GUI_Object::setFontName("Serif,14");
        GUI_Object::setLang(4);
    }
    /// Writes a preferences file with those fields in place of those of the application.
    std::string preferences(const std::map<std::string, std::string>& fields) const
    {
        std::string text = "<MM_PACKAGE mRootMetaClassId=\"x\"><MM_CLASS mName=\""
                           + application().getClassName() + "\" mId=\"x\">";
        for (const auto& [key, value] : fields) {
            text += "<MM_FIELD mName=\"" + key + "\"><MM_VALUE>" + value + "</MM_VALUE></MM_FIELD>";
        }
        return mDirectory.write("preferences.xml", text + "</MM_CLASS></MM_PACKAGE>");
    }
    /// Loads preferences with those fields; what that prints.
    std::string load(const std::map<std::string, std::string>& fields) const
    {
        const std::string file = preferences(fields);
        return printedBy([&file] { application().loadPreferences(file); });
    }
    /// A dictionary with one French word.
    std::string dictionary(const std::string& name, const std::string& french) const
    {
        const COM_Scoped words(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
        words->addWord("Tree", french);
        words->save(mDirectory.file(name));
        return mDirectory.file(name);
    }

    TestDirectory mDirectory;

private:
    std::map<std::string*, std::string> mFormer = {
        {&GUI_Application::TRANSLATOR_PATH, GUI_Application::TRANSLATOR_PATH},
        {&GUI_Application::TRANSLATOR_FILE, GUI_Application::TRANSLATOR_FILE},
        {&GUI_Application::DICTIONARY_FILE, GUI_Application::DICTIONARY_FILE},
        {&GUI_Application::DOC_PATH, GUI_Application::DOC_PATH},
        {&GUI_Application::DOC_ABOUT, GUI_Application::DOC_ABOUT},
        {&GUI_Application::DOC_FILE, GUI_Application::DOC_FILE},
        {&GUI_Application::WORKING_PATH, GUI_Application::WORKING_PATH},
        {&GUI_Action::ICONS_PATH, GUI_Action::ICONS_PATH},
        {&GUI_Component::ICONS_PATH, GUI_Component::ICONS_PATH},
        {&GUI_Object::mFontName, GUI_Object::mFontName},
        {&GUI_Object::mDictionaryFile, GUI_Object::mDictionaryFile}};
    unsigned char mLang = GUI_Object::getLang();
};

/// Runs the application without another reference to it, closes its window by the title bar, and ends the
/// process with 7 if all is gone.
void runToTheEnd()
{
    GUI_Application& self = application();
    const QPointer<QObject> applicationLife = &self;
    QPointer<QWidget> windowLife;
    {
        const TestFamily family;
        self.setMainWindow(*family.mRoot);
        windowLife = family.mRoot;
        const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
        child->show();
    }
    QTimer::singleShot(20, &self, [windowLife] { windowLife->close(); });
    self.run();
    std::_Exit(windowLife.isNull() && applicationLife.isNull() && qApp == nullptr ? 7 : 1);
}

/// The same, closed by the window's own action.
void runToTheEndByAction()
{
    GUI_Application& self = application();
    QPointer<QWidget> windowLife;
    {
        const TestFamily family;
        self.setMainWindow(*family.mRoot);
        windowLife = family.mRoot;
        GUI_RootWindow* const root = family.mRoot;
        family.mQuit->mWork = [root] { root->close(false); };
        QTimer::singleShot(20, family.mQuit, &QAction::trigger);
    }
    self.run();
    std::_Exit(windowLife.isNull() && qApp == nullptr ? 7 : 1);
}

} // namespace

TEST_F(GUI_ApplicationTest, TheSharedPathsStartAsTold)
{
    EXPECT_EQ(GUI_Application::TRANSLATOR_FILE, "qt_");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, "dictionary.xml");
    EXPECT_EQ(GUI_Application::DOC_FILE, "index.html");
    EXPECT_EQ(GUI_Application::DOC_ABOUT, "about.txt");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "./");
    EXPECT_TRUE(GUI_Application::TRANSLATOR_PATH.ends_with("/src/data//linguist/"));
    EXPECT_TRUE(GUI_Application::DOC_PATH.ends_with("/src/data//doc/quorvexGui/html/"));
    EXPECT_EQ(GUI_Application::TRANSLATOR_PATH + GUI_Application::DICTIONARY_FILE,
              GUI_Object::getDictionaryFile());
}

TEST_F(GUI_ApplicationTest, ANewApplicationHasNeitherWindowNorModelNorPreferences)
{
    EXPECT_EQ(application().getTypes(), (std::vector<std::string>{"COM_Object", "GUI_Object",
                                                                  "MM_Object", "GUI_Application"}));
    EXPECT_EQ(application().getMainWindow(), nullptr);
    EXPECT_EQ(application().getModel(), nullptr);
    EXPECT_EQ(application().getPreferencesFile(), "");
    EXPECT_EQ(application().getReferenceCount(), 1);
}

TEST_F(GUI_ApplicationTest, NumbersKeepTheirDecimalPoint)
{
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    EXPECT_STREQ(text, "1.5");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.5);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST_F(GUI_ApplicationTest, TheLinkWithTheMainWindowIsMadeFromEitherEnd)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped other(GUI_RootWindow::New());
    application().setMainWindow(*window);
    application().setMainWindow(window.get());
    EXPECT_EQ(application().getMainWindow(), window.get());
    EXPECT_EQ(window->getApplication(), &application());
    EXPECT_EQ(window->getReferenceCount(), 2);
    EXPECT_EQ(application().getReferenceCount(), 2);
    other->setApplication(application());
    other->setApplication(application());
    EXPECT_EQ(application().getMainWindow(), other.get());
    EXPECT_EQ(window->getApplication(), nullptr);
    EXPECT_EQ(window->getReferenceCount(), 1);
    application().setMainWindow(static_cast<GUI_RootWindow*>(nullptr));
    EXPECT_EQ(other->getApplication(), nullptr);
    EXPECT_EQ(other->getReferenceCount(), 1);
    application().setMainWindow(*window);
    window->resetApplication();
    window->resetApplication();
    EXPECT_EQ(application().getMainWindow(), nullptr);
    EXPECT_EQ(application().getReferenceCount(), 1);
}

TEST_F(GUI_ApplicationTest, TheModelIsHeldUntilAnotherTakesItsPlace)
{
    const COM_Scoped first(TestObject::New());
    const COM_Scoped second(TestObject::New());
    application().setModel(*first);
    application().setModel(*first);
    EXPECT_EQ(application().getModel(), first.get());
    EXPECT_EQ(first->getReferenceCount(), 2);
    application().setModel(second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    application().setModel(static_cast<COM_Object*>(nullptr));
    EXPECT_EQ(application().getModel(), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    application().setModel(*second);
    application().resetModel();
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST_F(GUI_ApplicationTest, RunShowsTheMainWindowAndGivesUpOneReference)
{
    const TestFamily family;
    application().setMainWindow(*family.mRoot);
    application().addReference(nullptr);
    bool isShown = false;
    QTimer::singleShot(20, family.mRoot, [&family, &isShown] {
        isShown = family.mRoot->isVisible();
        family.mRoot->close(false);
    });
    application().run();
    EXPECT_TRUE(isShown);
    EXPECT_EQ(application().getReferenceCount(), 1 + 1);
}

TEST_F(GUI_ApplicationTest, RunWithoutMainWindowIsTheEventLoopAlone)
{
    application().addReference(nullptr);
    QTimer::singleShot(10, qApp, &QCoreApplication::quit);
    application().run();
    EXPECT_EQ(application().getReferenceCount(), 1);
}

TEST_F(GUI_ApplicationTest, TheLastWindowClosedEndsTheProgramAndItsObjects)
{
    EXPECT_EXIT(runToTheEnd(), testing::ExitedWithCode(7), "");
    EXPECT_EXIT(runToTheEndByAction(), testing::ExitedWithCode(7), "");
}

TEST_F(GUI_ApplicationTest, ThePreferencesAreTenKeys)
{
    setPaths();
    const COM_Scoped node(MM_Class::New());
    application().saveToMetaClass(*node);
    const std::vector<std::pair<const char*, const char*>> expected = {
        {"DICTIONARY_FILE", "words.xml"},
        {"DOC_ABOUT", "a.txt"},
        {"DOC_FILE", "d.html"},
        {"DOC_PATH", "/d/"},
        {"FONT", "Serif,14"},
        {"ICONS_PATH", "/i/"},
        {"LANG", "4"},
        {"TRANSLATOR_FILE", "tr_"},
        {"TRANSLATOR_PATH", "/t/"},
        {"WORKING_PATH", "/w/"}};
    EXPECT_EQ(node->getMetaFields().size(), expected.size());
    for (const auto& [key, value] : expected) {
        std::string text;
        node->getAttributeFromMetaFields(key, &text);
        EXPECT_EQ(text, value) << key;
    }
}

TEST_F(GUI_ApplicationTest, PreferencesComeBackAsTheyWereSaved)
{
    setPaths();
    const std::string words = dictionary("words.xml", "Arbre");
    GUI_Application::DICTIONARY_FILE = words;
    application().savePreferences(mDirectory.file("p.xml"));
    GUI_Application::TRANSLATOR_PATH = GUI_Application::TRANSLATOR_FILE = "";
    GUI_Application::DICTIONARY_FILE = GUI_Action::ICONS_PATH = GUI_Component::ICONS_PATH = "";
    GUI_Application::DOC_PATH = GUI_Application::DOC_ABOUT = GUI_Application::DOC_FILE = "";
    GUI_Application::WORKING_PATH = "";
    GUI_Object::setFontName("");
    GUI_Object::setLang(0);
    const std::string file = mDirectory.file("p.xml");
    EXPECT_EQ(printedBy([&file] { application().loadPreferences(file); }), "");
    EXPECT_EQ(GUI_Application::TRANSLATOR_PATH, "/t/");
    EXPECT_EQ(GUI_Application::TRANSLATOR_FILE, "tr_");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, words);
    EXPECT_EQ(GUI_Object::getDictionaryFile(), words);
    EXPECT_EQ(GUI_Action::ICONS_PATH, "/i/");
    EXPECT_EQ(GUI_Component::ICONS_PATH, "/i/");
    EXPECT_EQ(GUI_Application::DOC_PATH, "/d/");
    EXPECT_EQ(GUI_Application::DOC_ABOUT, "a.txt");
    EXPECT_EQ(GUI_Application::DOC_FILE, "d.html");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/w/");
    EXPECT_EQ(GUI_Object::getFontName(), "Serif,14");
    EXPECT_EQ(GUI_Object::getLang(), 4);
    EXPECT_EQ(application().getPreferencesFile(), file);
}

TEST_F(GUI_ApplicationTest, AMissingKeyIsAnnouncedAndTheReadingGoesOn)
{
    setPaths();
    const std::string printed = load({{"WORKING_PATH", "/new/"}, {"LANG", "2"}});
    std::string expected;
    for (const char* const key : {"TRANSLATOR_PATH", "TRANSLATOR_FILE", "DICTIONARY_FILE",
                                  "ICONS_PATH", "DOC_PATH", "DOC_ABOUT", "DOC_FILE", "FONT"}) {
        expected += std::string("no attribute ") + key + " stored in class "
                    + application().getClassName() + ".\n";
    }
    EXPECT_EQ(printed, expected);
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/new/");
    EXPECT_EQ(GUI_Object::getLang(), 2);
    EXPECT_EQ(GUI_Application::DOC_PATH, "/d/");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, "words.xml");
    EXPECT_EQ(GUI_Object::getFontName(), "Serif,14");
}

TEST_F(GUI_ApplicationTest, PreferencesWithoutAnyKeyAnnounceAllAndChangeNothing)
{
    setPaths();
    const COM_Scoped before(MM_Class::New());
    application().saveToMetaClass(*before);
    std::string expected;
    for (const char* const key :
         {"TRANSLATOR_PATH", "TRANSLATOR_FILE", "DICTIONARY_FILE", "LANG", "ICONS_PATH", "DOC_PATH",
          "DOC_ABOUT", "DOC_FILE", "WORKING_PATH", "FONT"}) {
        expected += std::string("no attribute ") + key + " stored in class "
                    + application().getClassName() + ".\n";
    }
    EXPECT_EQ(load({}), expected);
    const COM_Scoped after(MM_Class::New());
    application().saveToMetaClass(*after);
    for (const std::string& key : before->getMetaFields().keys()) {
        std::string former;
        std::string present;
        before->getAttributeFromMetaFields(key, &former);
        after->getAttributeFromMetaFields(key, &present);
        EXPECT_EQ(present, former) << key;
    }
}

TEST_F(GUI_ApplicationTest, ADictionaryIsAPathOrANameAmongTheTranslations)
{
    GUI_Object::setLang(1);
    const std::string words = dictionary("words.xml", "Arbre");
    dictionary("other.xml", "Ch\xc3\xaane");
    load({{"DICTIONARY_FILE", words}});
    EXPECT_EQ(GUI_Object::translate("Tree"), "Arbre");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, words);
    load({{"TRANSLATOR_PATH", mDirectory.slashed()}, {"DICTIONARY_FILE", "other.xml"}});
    EXPECT_EQ(GUI_Object::translate("Tree"), "Ch\xc3\xaane");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, "other.xml");
    EXPECT_EQ(GUI_Object::getDictionaryFile(), mDirectory.slashed() + "other.xml");
    const std::string printed = load({{"DICTIONARY_FILE", "missing.xml"}});
    EXPECT_NE(printed.find("ERROR:" + mDirectory.slashed() + "missing.xml can not be opened !! \n"),
              std::string::npos);
    EXPECT_EQ(GUI_Object::translate("Tree"), "Ch\xc3\xaane");
}

TEST_F(GUI_ApplicationTest, AMissingPreferencesFileIsAnnouncedAndRemembered)
{
    setPaths();
    const std::string file = mDirectory.file("new.xml");
    EXPECT_EQ(printedBy([&file] { application().loadPreferences(file); }),
              "ERROR:" + file + " can not be opened !! \n");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/w/");
    EXPECT_EQ(application().getPreferencesFile(), file);
    EXPECT_EQ(printedBy([] { application().savePreferences(); }), "");
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(GUI_ApplicationTest, AForeignFileIsIgnoredAndNeverWrittenOver)
{
    setPaths();
    const std::string file = dictionary("words.xml", "Arbre");
    const std::string before = mDirectory.read("words.xml");
    EXPECT_EQ(printedBy([&file] { application().loadPreferences(file); }), "");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/w/");
    EXPECT_EQ(application().getPreferencesFile(), file);
    EXPECT_EQ(printedBy([] { application().savePreferences(); }),
              "ERROR:" + file + " can not be created !! \n");
    EXPECT_EQ(mDirectory.read("words.xml"), before);
}

TEST_F(GUI_ApplicationTest, ATextIsNeverWrittenOver)
{
    const std::string file = mDirectory.write("notes.txt", "not to be lost\n");
    application().loadPreferences(file);
    const std::string printed = printedBy([] { application().savePreferences(); });
    EXPECT_TRUE(printed.ends_with("ERROR:" + file + " can not be created !! \n")) << printed;
    EXPECT_EQ(mDirectory.read("notes.txt"), "not to be lost\n");
}

TEST_F(GUI_ApplicationTest, AnEmptyFileTakesThePreferences)
{
    const std::string file = mDirectory.write("empty.xml", "");
    EXPECT_EQ(printedBy([&file] { application().savePreferences(file); }), "");
    EXPECT_NE(mDirectory.read("empty.xml").find("WORKING_PATH"), std::string::npos);
}

TEST_F(GUI_ApplicationTest, WithoutAFileThePreferencesCannotBeSaved)
{
    EXPECT_EQ(printedBy([] { application().savePreferences(""); }),
              "ERROR: can not be created !! \n");
}

TEST_F(GUI_ApplicationTest, ADirectoryIsNoPreferencesFile)
{
    const std::string directory = mDirectory.slashed();
    EXPECT_EQ(printedBy([&directory] { application().savePreferences(directory); }),
              "ERROR:" + directory + " can not be created !! \n");
}

TEST_F(GUI_ApplicationTest, PreferencesAreWrittenOverTheirFormerState)
{
    setPaths();
    const std::string file = mDirectory.file("p.xml");
    application().savePreferences(file);
    GUI_Application::WORKING_PATH = "/later/";
    EXPECT_EQ(printedBy([&file] { application().savePreferences(file); }), "");
    EXPECT_NE(mDirectory.read("p.xml").find("/later/"), std::string::npos);
}

TEST_F(GUI_ApplicationTest, QtsOwnTextsFollowTheLanguage)
{
    const auto cancel = [] {
        return QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString();
    };
    GUI_Object::setLang(1);
    application().updateTranslator();
    EXPECT_EQ(cancel(), "Annuler");
    GUI_Object::setLang(0);
    application().updateTranslator();
    EXPECT_EQ(cancel(), "Cancel");
    load({{"LANG", "1"}});
    EXPECT_EQ(cancel(), "Annuler");
}

TEST_F(GUI_ApplicationTest, TheTranslatorFileOfTheProgramComesFirst)
{
    const std::string source =
        QLibraryInfo::path(QLibraryInfo::TranslationsPath).toStdString() + "/qtbase_";
    std::filesystem::copy_file(source + "de.qm", mDirectory.file("tr_fr.qm"));
    std::filesystem::copy_file(source + "it.qm", mDirectory.file("tr_.qm"));
    GUI_Application::TRANSLATOR_PATH = mDirectory.slashed();
    GUI_Application::TRANSLATOR_FILE = "tr_";
    for (const unsigned char lang : {0, 1, 2, 4, 5}) {
        GUI_Object::setLang(lang);
        application().updateTranslator();
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"),
                  lang == 1 ? "Abbrechen" : "Annulla");
    }
}

TEST_F(GUI_ApplicationTest, TheTextAboutTheProgramIsReadFromItsFile)
{
    GUI_Object::setLang(0);
    GUI_Application::DOC_PATH = mDirectory.slashed();
    GUI_Application::DOC_ABOUT = "about.txt";
    const COM_Scoped window(GUI_RootWindow::New());
    window->show();
    application().setMainWindow(*window);
    const auto textShown = [&window] {
        QString text = "not shown";
        DialogAnswers answers;
        answers.add<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "About");
            EXPECT_EQ(box.icon(), QMessageBox::Information);
            EXPECT_EQ(box.parentWidget(), window.get());
            text = box.text();
        });
        application().about();
        return text.toUtf8().toStdString();
    };
    EXPECT_EQ(textShown(), "");
    mDirectory.write("about.txt", "Light in matter, \xc3\xa9t\xc3\xa9.\n");
    EXPECT_EQ(textShown(), "Light in matter, \xc3\xa9t\xc3\xa9.\n");
    mDirectory.write("about.txt", "\xe9t\xe9"); // Latin-1
    EXPECT_EQ(textShown(), "\xc3\xa9t\xc3\xa9");
    mDirectory.write("about.txt", "\xef\xbb\xbf\xc3\xa9t\xc3\xa9"); // with a byte order mark
    EXPECT_EQ(textShown(), "\xc3\xa9t\xc3\xa9");
}

TEST_F(GUI_ApplicationTest, TheBoxAboutTheProgramIsTitledInTheLanguageOfTheWords)
{
    GUI_Object::setLang(1);
    GUI_Application::DOC_PATH = mDirectory.slashed();
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), GUI_Object::translate("About"));
        EXPECT_NE(dialog.windowTitle(), "About");
    });
    application().about();
}
