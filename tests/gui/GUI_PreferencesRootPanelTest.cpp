#include "gui/GUI_PreferencesRootPanel.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_ComboBox.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_PreferencesWindow.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/Printed.h"
#include "support/ProjectRoot.h"
#include "support/SharedPreferences.h"
#include "support/TestDirectory.h"

#include <QDialogButtonBox>
#include <QFontDialog>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using Panel = GUI_PreferencesRootPanel;

/// The open form below the main window of the application.
class PreferencesRootPanel : public testing::Test
{
protected:
    PreferencesRootPanel()
    {
        SharedPreferences::application().setMainWindow(*mRoot);
        GUI_Application::DOC_PATH = "/doc/";
        GUI_Application::WORKING_PATH = "/projects/";
        GUI_Action::ICONS_PATH = "/icons/";
        GUI_Component::ICONS_PATH = "/icons/";
        const COM_Scoped window(GUI_PreferencesWindow::New(*mRoot, false));
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    ~PreferencesRootPanel() override
    {
        SharedPreferences::application().resetMainWindow();
        QCoreApplication::processEvents();
    }

    bool isOpen() const { return !mRoot.children<GUI_PreferencesWindow>().empty(); }
    GUI_PreferencesWindow& form() const { return *mRoot.children<GUI_PreferencesWindow>().at(0); }
    template <typename Component>
    Component& component(unsigned char flag) const
    {
        return dynamic_cast<Component&>(*form().getPanel()->getComponent(flag));
    }
    std::string shown(unsigned char flag) const
    {
        return component<GUI_ActionComponent>(flag).getValue();
    }
    /// What is printed meanwhile.
    std::string click(unsigned char flag) const
    {
        return printedBy([this, flag] {
            QTest::mouseClick(&component<GUI_Button>(flag), Qt::LeftButton);
            QCoreApplication::processEvents();
        });
    }
    /// Replaces the text of a field and leaves it with the Tab key.
    void type(unsigned char flag, const std::string& text) const
    {
        auto& field = component<GUI_LineEdit>(flag);
        field.setFocus();
        field.selectAll();
        field.insert(QString::fromStdString(text)); // the test framework knows only keys of ASCII
        QTest::keyClick(&field, Qt::Key_Tab);
    }
    void choosePath(unsigned char button, const char* title, const char* text, const char* name)
    {
        fs::create_directory(mDirectory.path() / name);
        DialogAnswers answers;
        answers.add<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.parent(), &form());
            EXPECT_EQ(dialog.windowTitle(), title);
            EXPECT_EQ(dialog.labelText(QFileDialog::FileName), text);
            EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
            typeName(dialog, mDirectory.file(name));
        });
        click(button);
        answers.add<QFileDialog>(
            [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        click(button);
    }
    /// A dictionary file with one word.
    std::string writeWords(const std::string& name, const std::string& french) const
    {
        const COM_Scoped words(DICO_Dictionary::New(1));
        words->addWord("Yes", french);
        words->save(mDirectory.file(name));
        return mDirectory.file(name);
    }

    SharedPreferences mPreferences;
    TestDirectory mDirectory;
    ProjectRoot mRoot;
};

} // namespace

TEST_F(PreferencesRootPanel, HasItsTexts)
{
    QStringList labels;
    for (const QLabel* const label : form().findChildren<GUI_Label*>()) {
        labels.push_back(label->text());
    }
    EXPECT_EQ(labels, (QStringList{"Dictionary Path", "Document Path", "Icons Path", "Working Path",
                                   "Font Style", "Language"}));
    for (const unsigned char flag :
         {Panel::COMPO_DICO_PATH_BUT, Panel::COMPO_DOCU_PATH_BUT, Panel::COMPO_ICON_PATH_BUT,
          Panel::COMPO_WORK_PATH_BUT, Panel::COMPO_FONT_BUT}) {
        EXPECT_EQ(component<GUI_Button>(flag).text(), "...");
    }
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_OK).text(), "Ok");
    const auto& languages = component<GUI_ComboBox>(Panel::COMPO_LANG_BUT);
    ASSERT_EQ(languages.count(), 2);
    EXPECT_EQ(languages.itemText(0), "English");
    EXPECT_EQ(languages.itemText(1), "French");
}

TEST_F(PreferencesRootPanel, ItsTextsAreTheDictionarys)
{
    GUI_Object::setLang(1);
    const COM_Scoped window(GUI_PreferencesWindow::New(*mRoot, false));
    std::vector<std::string> expected;
    for (const char* const key : {"Dictionary Path", "Document Path", "Icons Path", "Working Path",
                                  "Font Style", "Language"}) {
        expected.push_back(GUI_Object::translate(key));
        EXPECT_NE(expected.back(), key);
    }
    std::vector<std::string> labels;
    for (const QLabel* const label : window->findChildren<GUI_Label*>()) {
        labels.push_back(label->text().toStdString());
    }
    EXPECT_EQ(labels, expected);
    const auto valueOf = [&window](unsigned char flag) {
        return dynamic_cast<GUI_ActionComponent&>(*window->getPanel()->getComponent(flag))
            .getValue();
    };
    EXPECT_EQ(valueOf(Panel::COMPO_FONT_LE), GUI_Object::translate("default font"));
    EXPECT_NE(valueOf(Panel::COMPO_FONT_LE), "default font");
    const auto& languages =
        dynamic_cast<GUI_ComboBox&>(*window->getPanel()->getComponent(Panel::COMPO_LANG_BUT));
    EXPECT_EQ(languages.itemText(0).toStdString(), GUI_Object::translate("English"));
    EXPECT_EQ(languages.itemText(1).toStdString(), GUI_Object::translate("French"));
    EXPECT_NE(languages.itemText(1), "French");
    window->close(false);
}

TEST_F(PreferencesRootPanel, NumbersItsComponents)
{
    const int numbers[] = {Panel::COMPO_DICO_PATH_BUT,
                           Panel::COMPO_DOCU_PATH_BUT,
                           Panel::COMPO_ICON_PATH_BUT,
                           Panel::COMPO_FONT_BUT,
                           Panel::COMPO_LANG_BUT,
                           Panel::COMPO_WORK_PATH_BUT,
                           Panel::COMPO_OK,
                           Panel::COMPO_DICO_PATH_LE,
                           Panel::COMPO_DOCU_PATH_LE,
                           Panel::COMPO_ICON_PATH_LE,
                           Panel::COMPO_FONT_LE,
                           Panel::COMPO_WORK_PATH_LE};
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(numbers[i], i);
    }
}

TEST_F(PreferencesRootPanel, ShowsWhatIsStored)
{
    EXPECT_EQ(shown(Panel::COMPO_DICO_PATH_LE), GUI_Object::getDictionaryFile());
    EXPECT_EQ(shown(Panel::COMPO_DOCU_PATH_LE), "/doc/");
    EXPECT_EQ(shown(Panel::COMPO_ICON_PATH_LE), "/icons/");
    EXPECT_EQ(shown(Panel::COMPO_WORK_PATH_LE), "/projects/");
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), "default font");
    EXPECT_EQ(shown(Panel::COMPO_LANG_BUT), "0");

    GUI_Object::setFontName("Some Font,12");
    GUI_Object::setLang(1);
    form().updateValues();
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), "Some Font,12");
    EXPECT_EQ(shown(Panel::COMPO_LANG_BUT), "1");
}

TEST_F(PreferencesRootPanel, TheFirstFieldHasTheFocus)
{
    EXPECT_TRUE(component<GUI_LineEdit>(Panel::COMPO_DICO_PATH_LE).hasFocus());
}

TEST_F(PreferencesRootPanel, PathButtonsAskForADirectory)
{
    choosePath(Panel::COMPO_DOCU_PATH_BUT, "Document Path Selection", "Choose the document path",
               "doc");
    EXPECT_EQ(GUI_Application::DOC_PATH, mDirectory.file("doc/"));
    EXPECT_EQ(shown(Panel::COMPO_DOCU_PATH_LE), mDirectory.file("doc/"));
    choosePath(Panel::COMPO_ICON_PATH_BUT, "Icons Path Selection", "Choose the icons path",
               "icons");
    EXPECT_EQ(GUI_Action::ICONS_PATH, mDirectory.file("icons/"));
    EXPECT_EQ(GUI_Component::ICONS_PATH, mDirectory.file("icons/"));
    EXPECT_EQ(shown(Panel::COMPO_ICON_PATH_LE), mDirectory.file("icons/"));
    choosePath(Panel::COMPO_WORK_PATH_BUT, "Working Path Selection", "Choose the working path",
               "work");
    EXPECT_EQ(GUI_Application::WORKING_PATH, mDirectory.file("work/"));
    EXPECT_EQ(shown(Panel::COMPO_WORK_PATH_LE), mDirectory.file("work/"));
}

TEST_F(PreferencesRootPanel, TheDictionaryButtonAsksForAFileAndLoadsIt)
{
    const std::string words = writeWords("words.xml", "Ja");
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &form());
        EXPECT_EQ(dialog.windowTitle(), "Translator Path Selection");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Choose the dictionary file");
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        typeName(dialog, words);
    });
    EXPECT_EQ(click(Panel::COMPO_DICO_PATH_BUT), "");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, words);
    EXPECT_EQ(GUI_Object::getDictionaryFile(), words);
    EXPECT_EQ(shown(Panel::COMPO_DICO_PATH_LE), words);
    GUI_Object::setLang(1);
    EXPECT_EQ(GUI_Object::translate("Yes"), "Ja");

    answers.add<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    click(Panel::COMPO_DICO_PATH_BUT);
    EXPECT_EQ(GUI_Object::getDictionaryFile(), words);
}

TEST_F(PreferencesRootPanel, TypedPathsAreStoredWithASlash)
{
    type(Panel::COMPO_DOCU_PATH_LE, "/typed/doc");
    EXPECT_EQ(GUI_Application::DOC_PATH, "/typed/doc/");
    EXPECT_EQ(shown(Panel::COMPO_DOCU_PATH_LE), "/typed/doc/");
    type(Panel::COMPO_ICON_PATH_LE, "/typed/icons/");
    EXPECT_EQ(GUI_Action::ICONS_PATH, "/typed/icons/");
    EXPECT_EQ(GUI_Component::ICONS_PATH, "/typed/icons/");
    type(Panel::COMPO_WORK_PATH_LE, "/typed/projects");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/typed/projects/");
}

TEST_F(PreferencesRootPanel, ReturnStoresToo)
{
    auto& field = component<GUI_LineEdit>(Panel::COMPO_WORK_PATH_LE);
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, "/new");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/projects/");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/new/");
    EXPECT_TRUE(isOpen());
}

TEST_F(PreferencesRootPanel, AnEmptyTextIsPutBack)
{
    type(Panel::COMPO_WORK_PATH_LE, "");
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/projects/");
    EXPECT_EQ(shown(Panel::COMPO_WORK_PATH_LE), "/projects/");
    const std::string words = GUI_Object::getDictionaryFile();
    type(Panel::COMPO_DICO_PATH_LE, "");
    EXPECT_EQ(shown(Panel::COMPO_DICO_PATH_LE), words);
    EXPECT_EQ(GUI_Object::getDictionaryFile(), words);
    type(Panel::COMPO_FONT_LE, "");
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), "default font");
    EXPECT_EQ(GUI_Object::getFontName(), "");
}

TEST_F(PreferencesRootPanel, LeavingAFieldUntouchedStoresNothing)
{
    GUI_Application::DICTIONARY_FILE = "dictionary.xml";
    GUI_Application::DOC_PATH = "no slash";
    form().updateValues();
    const std::string printed = printedBy([this] {
        for (const unsigned char flag :
             {Panel::COMPO_DICO_PATH_LE, Panel::COMPO_DOCU_PATH_LE, Panel::COMPO_FONT_LE}) {
            component<GUI_LineEdit>(flag).setFocus();
            QTest::keyClick(&component<GUI_LineEdit>(flag), Qt::Key_Tab);
        }
    });
    EXPECT_EQ(printed, "");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, "dictionary.xml");
    EXPECT_EQ(GUI_Application::DOC_PATH, "no slash");
    EXPECT_EQ(GUI_Object::getFontName(), "");
}

TEST_F(PreferencesRootPanel, ATypedDictionaryIsLoaded)
{
    const std::string words = writeWords("words.xml", "Ja");
    type(Panel::COMPO_DICO_PATH_LE, words);
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, words);
    GUI_Object::setLang(1);
    EXPECT_EQ(GUI_Object::translate("Yes"), "Ja");
}

TEST_F(PreferencesRootPanel, ABareDictionaryNameStandsForAFileInTheTranslatorPath)
{
    writeWords("words.xml", "Ja");
    GUI_Application::TRANSLATOR_PATH = mDirectory.slashed();
    type(Panel::COMPO_DICO_PATH_LE, "words.xml");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, "words.xml");
    EXPECT_EQ(GUI_Object::getDictionaryFile(), mDirectory.file("words.xml"));
    EXPECT_EQ(shown(Panel::COMPO_DICO_PATH_LE), mDirectory.file("words.xml"));
    GUI_Object::setLang(1);
    EXPECT_EQ(GUI_Object::translate("Yes"), "Ja");
}

TEST_F(PreferencesRootPanel, AMissingDictionaryLeavesTheWords)
{
    GUI_Object::setLang(1);
    const std::string yes = GUI_Object::translate("Yes");
    EXPECT_NE(yes, "Yes");
    const std::string missing = mDirectory.file("missing.xml");
    const std::string printed = printedBy([&] { type(Panel::COMPO_DICO_PATH_LE, missing); });
    EXPECT_NE(printed.find(missing), std::string::npos) << printed;
    EXPECT_EQ(GUI_Object::translate("Yes"), yes);
}

TEST_F(PreferencesRootPanel, TheFontButtonAsksForTheFont)
{
    QFont chosen = QApplication::font();
    chosen.setPointSize(chosen.pointSize() + 5);
    chosen.setItalic(true);
    DialogAnswers answers;
    answers.add<QFontDialog>([&](QFontDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &form());
        EXPECT_EQ(dialog.windowTitle(), "Font Style");
        EXPECT_EQ(dialog.currentFont().pointSize(), QApplication::font().pointSize());
        EXPECT_TRUE(dialog.testOption(QFontDialog::DontUseNativeDialog));
        dialog.setCurrentFont(chosen);
        auto* const box = dialog.findChild<QDialogButtonBox*>();
        QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    click(Panel::COMPO_FONT_BUT);
    QFont stored;
    ASSERT_TRUE(stored.fromString(QString::fromStdString(GUI_Object::getFontName())));
    EXPECT_EQ(stored.pointSize(), chosen.pointSize());
    EXPECT_TRUE(stored.italic());
    EXPECT_EQ(stored.toString().toStdString(), GUI_Object::getFontName());
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), GUI_Object::getFontName());

    answers.add<QFontDialog>([](QFontDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    click(Panel::COMPO_FONT_BUT);
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), stored.toString().toStdString());
}

TEST_F(PreferencesRootPanel, ATypedFontIsStoredIfItIsOne)
{
    type(Panel::COMPO_FONT_LE, "Some Font,12");
    EXPECT_EQ(GUI_Object::getFontName(), "Some Font,12");
    type(Panel::COMPO_FONT_LE, "a,b,c,d");
    EXPECT_EQ(GUI_Object::getFontName(), "Some Font,12");
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), "Some Font,12");
    type(Panel::COMPO_FONT_LE, "default font");
    EXPECT_EQ(GUI_Object::getFontName(), "");
}

TEST_F(PreferencesRootPanel, TheLanguageIsEnglishOrFrench)
{
    auto& languages = component<GUI_ComboBox>(Panel::COMPO_LANG_BUT);
    languages.setFocus();
    QTest::keyClick(&languages, Qt::Key_Down);
    EXPECT_EQ(GUI_Object::getLang(), 1);
    QTest::keyClick(&languages, Qt::Key_Up);
    EXPECT_EQ(GUI_Object::getLang(), 0);

    // A preferences file can ask for others. They are shown as French, and French they become.
    GUI_Object::setLang(DICO_Dictionary::LANG_IT);
    form().updateValues();
    EXPECT_EQ(languages.getValue(), "1");
    EXPECT_EQ(GUI_Object::getLang(), DICO_Dictionary::LANG_IT);
    emit languages.activated(1);
    EXPECT_EQ(GUI_Object::getLang(), 1);
}

TEST_F(PreferencesRootPanel, EveryLanguageButTheFirstOneIsFrench)
{
    auto& languages = component<GUI_ComboBox>(Panel::COMPO_LANG_BUT);
    languages.addItem("another");
    languages.setCurrentIndex(2);
    emit languages.activated(2);
    EXPECT_EQ(GUI_Object::getLang(), DICO_Dictionary::LANG_FR);
}

TEST_F(PreferencesRootPanel, AnotherLanguageLeavesQtsOwnTexts)
{
    SharedPreferences::application().updateTranslator();
    auto& languages = component<GUI_ComboBox>(Panel::COMPO_LANG_BUT);
    languages.setFocus();
    QTest::keyClick(&languages, Qt::Key_Down);
    EXPECT_EQ(GUI_Object::getLang(), DICO_Dictionary::LANG_FR);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Cancel");
    SharedPreferences::application().updateTranslator();
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Annuler");
}

TEST_F(PreferencesRootPanel, AnotherLanguageCountsForTextsMadeFromThenOn)
{
    auto& languages = component<GUI_ComboBox>(Panel::COMPO_LANG_BUT);
    languages.setFocus();
    QTest::keyClick(&languages, Qt::Key_Down);
    EXPECT_EQ(form().getName(), "Preferences Window");
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_OK).text(), "Ok");
    const COM_Scoped window(GUI_PreferencesWindow::New(*mRoot, false));
    EXPECT_EQ(window->getName(), GUI_Object::translate("Preferences Window"));
    EXPECT_NE(window->getName(), "Preferences Window");

    // The name of the default font follows, and is not taken for the name of a font.
    type(Panel::COMPO_FONT_LE, shown(Panel::COMPO_FONT_LE));
    EXPECT_EQ(shown(Panel::COMPO_FONT_LE), GUI_Object::translate("default font"));
    EXPECT_EQ(GUI_Object::getFontName(), "");
    window->close(false);
}

TEST_F(PreferencesRootPanel, OkWritesTheFileWithAllKeysInOrder)
{
    const std::string file = mDirectory.file("preferences.xml");
    // The file is yet to be written.
    const std::string printed =
        printedBy([&] { SharedPreferences::application().loadPreferences(file); });
    EXPECT_NE(printed.find(file), std::string::npos) << printed;
    GUI_Application::TRANSLATOR_PATH = "/translator/";
    GUI_Application::TRANSLATOR_FILE = "texts_";
    GUI_Application::DICTIONARY_FILE = "words.xml";
    GUI_Application::DOC_ABOUT = "what.txt";
    GUI_Application::DOC_FILE = "start.html";
    GUI_Object::setFontName("Some Font,12");
    form().updateValues();
    EXPECT_EQ(click(Panel::COMPO_OK), "");
    EXPECT_FALSE(isOpen());

    const std::string text = mDirectory.read("preferences.xml");
    const std::pair<const char*, const char*> fields[] = {
        {"DICTIONARY_FILE", "words.xml"},
        {"DOC_ABOUT", "what.txt"},
        {"DOC_FILE", "start.html"},
        {"DOC_PATH", "/doc/"},
        {"FONT", "Some Font,12"},
        {"ICONS_PATH", "/icons/"},
        {"LANG", "0"},
        {"TRANSLATOR_FILE", "texts_"},
        {"TRANSLATOR_PATH", "/translator/"},
        {"WORKING_PATH", "/projects/"},
    };
    std::size_t place = 0;
    for (const auto& [key, value] : fields) {
        const std::string field = std::string("\n\t\t<MM_FIELD mName=\"") + key
                                  + "\">\n\t\t\t<MM_VALUE>" + value
                                  + "</MM_VALUE>\n\t\t</MM_FIELD>";
        const std::size_t found = text.find(field, place);
        EXPECT_NE(found, std::string::npos) << field << "\n" << text;
        place = found == std::string::npos ? place : found + field.size();
    }
    EXPECT_EQ(text.find("MM_FIELD mName", place), std::string::npos);
}

TEST_F(PreferencesRootPanel, WhatOkWritesIsReadBack)
{
    const std::string file = mDirectory.file("preferences.xml");
    auto& application = SharedPreferences::application();
    printedBy([&] { application.loadPreferences(file); });
    const std::string words = writeWords("words.xml", "Ja");
    type(Panel::COMPO_DICO_PATH_LE, words);
    type(Panel::COMPO_WORK_PATH_LE, "/typed/");
    type(Panel::COMPO_FONT_LE, "Some Font,12");
    click(Panel::COMPO_OK);

    GUI_Object::setDictionaryFile(mDirectory.write("none.xml", ""));
    GUI_Application::DICTIONARY_FILE = "";
    GUI_Application::WORKING_PATH = "";
    GUI_Application::DOC_PATH = "";
    GUI_Action::ICONS_PATH = "";
    GUI_Component::ICONS_PATH = "";
    GUI_Object::setFontName("");
    EXPECT_EQ(printedBy([&] { application.loadPreferences(file); }), "");
    EXPECT_EQ(GUI_Application::DICTIONARY_FILE, words);
    EXPECT_EQ(GUI_Object::getDictionaryFile(), words);
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/typed/");
    EXPECT_EQ(GUI_Application::DOC_PATH, "/doc/");
    EXPECT_EQ(GUI_Action::ICONS_PATH, "/icons/");
    EXPECT_EQ(GUI_Component::ICONS_PATH, "/icons/");
    EXPECT_EQ(GUI_Object::getFontName(), "Some Font,12");
    EXPECT_EQ(GUI_Object::getLang(), 0);
}

TEST_F(PreferencesRootPanel, OkWithoutAFileSaysSoAndCloses)
{
    ASSERT_EQ(SharedPreferences::application().getPreferencesFile(), "");
    EXPECT_EQ(click(Panel::COMPO_OK), "ERROR: can not be created !! \n");
    EXPECT_FALSE(isOpen());
}

TEST_F(PreferencesRootPanel, OkDoesNotWriteOverAForeignFile)
{
    const std::string foreign = "\n<MM_PACKAGE mRootMetaClassId=\"12QV_1DProblem@1\">\n"
                                "\t<MM_CLASS mId=\"12QV_1DProblem@1\" mName=\"12QV_1DProblem\">\n"
                                "\t</MM_CLASS>\n</MM_PACKAGE>";
    const std::string file = mDirectory.write("parameters.xml", foreign);
    auto& application = SharedPreferences::application();
    EXPECT_EQ(printedBy([&] { application.loadPreferences(file); }), "");
    EXPECT_EQ(application.getPreferencesFile(), file);
    EXPECT_EQ(GUI_Application::WORKING_PATH, "/projects/");
    EXPECT_EQ(click(Panel::COMPO_OK), "ERROR:" + file + " can not be created !! \n");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(mDirectory.read("parameters.xml"), foreign);
}

TEST_F(PreferencesRootPanel, WithoutAnApplicationOkOnlyCloses)
{
    SharedPreferences::application().resetMainWindow();
    EXPECT_EQ(click(Panel::COMPO_OK), "");
    EXPECT_FALSE(isOpen());
}

TEST_F(PreferencesRootPanel, AnUnknownComponentIsAnnounced)
{
    GUI_Button& button = component<GUI_Button>(Panel::COMPO_OK);
    button.setFlagId(77);
    EXPECT_EQ(printedBy([&button] { button.click(); }), "action unknown !77\n");
    EXPECT_TRUE(isOpen());
}
