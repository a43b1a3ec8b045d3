#include "gui/GUI_TextAction.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_ActionTextBold.h"
#include "gui/GUI_ActionTextCenterAlign.h"
#include "gui/GUI_ActionTextCopy.h"
#include "gui/GUI_ActionTextCut.h"
#include "gui/GUI_ActionTextItalic.h"
#include "gui/GUI_ActionTextLeftAlign.h"
#include "gui/GUI_ActionTextLoad.h"
#include "gui/GUI_ActionTextNew.h"
#include "gui/GUI_ActionTextPaste.h"
#include "gui/GUI_ActionTextPrint.h"
#include "gui/GUI_ActionTextRedo.h"
#include "gui/GUI_ActionTextRightAlign.h"
#include "gui/GUI_ActionTextSave.h"
#include "gui/GUI_ActionTextSaveAs.h"
#include "gui/GUI_ActionTextUnderline.h"
#include "gui/GUI_ActionTextUndo.h"
#include "gui/GUI_BaseDirectory.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/SaveQuestion.h"
#include "TextForm.h"

#include <QClipboard>
#include <QPrintDialog>

#include <filesystem>
#include <functional>
#include <ostream>

namespace {

namespace fs = std::filesystem;

constexpr int FILE_MENU = 0;
constexpr int EDIT_MENU = 1;

struct Row
{
    const char* mName;
    std::function<GUI_Action*()> mMake;
    const char* mLabel;
    const char* mIcon; ///< Empty: none.
    const char* mKeys; ///< Empty: none.
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.mName;
}

template <typename Action>
GUI_Action* make()
{
    return Action::New();
}

const Row rows[] = {
    {"New", make<GUI_ActionTextNew>, "&New Text", "filenew.png", "Ctrl+N"},
    {"Load", make<GUI_ActionTextLoad>, "&Load Text", "fileopen.png", "Ctrl+L"},
    {"Save", make<GUI_ActionTextSave>, "&Save", "filesave.png", "Ctrl+S"},
    {"SaveAs", make<GUI_ActionTextSaveAs>, "Save &As", "", "Ctrl+A"},
    {"Print", make<GUI_ActionTextPrint>, "&Print", "print.png", "Ctrl+P"},
    {"Undo", make<GUI_ActionTextUndo>, "Undo", "editundo.png", "Ctrl+Z"},
    {"Redo", make<GUI_ActionTextRedo>, "&Redo", "editredo.png", "Ctrl+R"},
    {"Copy", make<GUI_ActionTextCopy>, "&Copy", "editcopy.png", "Ctrl+C"},
    {"Cut", make<GUI_ActionTextCut>, "Cut", "editcut.png", "Ctrl+X"},
    {"Paste", make<GUI_ActionTextPaste>, "Paste", "editpaste.png", "Ctrl+V"},
    {"Underline", make<GUI_ActionTextUnderline>, "&Underline", "textunder.png", "Ctrl+U"},
    {"Italic", make<GUI_ActionTextItalic>, "&Italic", "textitalic.png", "Ctrl+I"},
    {"Bold", make<GUI_ActionTextBold>, "Bold", "textbold.png", "Ctrl+B"},
    {"LeftAlign", make<GUI_ActionTextLeftAlign>, "Left Align", "textleft.png", ""},
    {"RightAlign", make<GUI_ActionTextRightAlign>, "Right Align", "textright.png", ""},
    {"CenterAlign", make<GUI_ActionTextCenterAlign>, "Center Align", "textcenter.png", ""},
};

class GUI_TextActionRowTest : public testing::TestWithParam<Row>
{};

auto answeringNew(QMessageBox::StandardButton button)
{
    return answerSaveQuestion("New Text", "Do you want to save before creating a new text ?",
                              button);
}

auto answeringLoad(QMessageBox::StandardButton button)
{
    return answerSaveQuestion("Load Text File", "Do you want to save before Loading a Text File ?",
                              button);
}

} // namespace

TEST_P(GUI_TextActionRowTest, HasItsTextItsIconAndItsKeys)
{
    const EnglishTexts english;
    const std::string former = GUI_Action::ICONS_PATH;
    GUI_Action::ICONS_PATH = GUI_BaseDirectory::find() + "/icons/";
    const COM_Scoped action(GetParam().mMake());
    EXPECT_EQ(action->getLabel(), GetParam().mLabel);
    EXPECT_EQ(action->shortcut(), QKeySequence(GetParam().mKeys));
    EXPECT_TRUE(action->instanceOf(std::string("GUI_ActionText") + GetParam().mName));
    const QImage image(QString::fromStdString(GUI_Action::ICONS_PATH + GetParam().mIcon));
    if (*GetParam().mIcon == '\0') {
        EXPECT_TRUE(action->icon().isNull());
    } else {
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(action->icon().pixmap(image.size()).toImage(),
                  QPixmap::fromImage(image).toImage());
    }
    GUI_Action::ICONS_PATH = former;
}

TEST_P(GUI_TextActionRowTest, OutsideATextWindowItOnlyBringsTheMenusUpToDate)
{
    const DialogAnswers answers;
    const ProjectRoot root;
    const COM_Scoped action(GetParam().mMake());
    action->toDo();
    root.menu().addToActions(*action);
    action->toDo();
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
    EXPECT_EQ(root->mCalls, std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(All, GUI_TextActionRowTest, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.mName; });

TEST(GUI_TextAction, NewAsksWhetherToSaveAlsoWhenNothingWasChangedAndBeginsAnEmptyText)
{
    const TextForm form;
    form.load("one");
    form->setSavingFile("b.txt");
    DialogAnswers answers;
    answers.add<QMessageBox>(answeringNew(QMessageBox::Yes));
    answers.add<QFileDialog>([&form](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &*form);
        EXPECT_EQ(dialog.windowTitle(), "Create a New Text");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "File Name of the Text");
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept),
                  QFileDialog().labelText(QFileDialog::Accept));
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Text File (*.txt)"});
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  fs::canonical(form.directory().path()));
        typeName(dialog, "new.txt");
    });
    form.choose(FILE_MENU, 0);
    EXPECT_EQ(form.directory().read("b.txt"), "one");
    EXPECT_FALSE(fs::exists("new.txt"));
    EXPECT_EQ(form.text().getValue(), "");
    form.type("mine");
    form.choose(FILE_MENU, 2);
    EXPECT_EQ(form.directory().read("new.txt"), "mine");
}

TEST(GUI_TextAction, NewWithoutANameLeavesTheText)
{
    const TextForm form;
    form.load("one");
    form.type("x");
    DialogAnswers answers;
    answers.add<QMessageBox>(answeringNew(QMessageBox::No)).add<QFileDialog>([](QFileDialog&) {});
    form.choose(FILE_MENU, 0);
    EXPECT_EQ(form.text().getValue(), "xone");
    EXPECT_TRUE(form.text().isModified());
    EXPECT_EQ(form->getSavingFile(), "a.txt");
    EXPECT_EQ(form.directory().read("a.txt"), "one");
}

TEST(GUI_TextAction, LoadAsksWhetherToSaveAndShowsTheFile)
{
    const TextForm form;
    form.load("one");
    form.type("x");
    form.directory().write("b.txt", "two");
    DialogAnswers answers;
    answers.add<QMessageBox>(answeringLoad(QMessageBox::Yes));
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Load a Nex Text File");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Load a Text File");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Text File (*.txt)"});
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        typeName(dialog, "b.txt");
    });
    form.choose(FILE_MENU, 1);
    EXPECT_EQ(form.directory().read("a.txt"), "xone");
    EXPECT_EQ(form.text().getValue(), "two");
    EXPECT_EQ(form->getSavingFile(), "b.txt");
    answers.add<QMessageBox>(answeringLoad(QMessageBox::No)).add<QFileDialog>([](QFileDialog&) {});
    form.choose(FILE_MENU, 1);
    EXPECT_EQ(form.text().getValue(), "two");
}

TEST(GUI_TextAction, SaveAsGoesOnUnderTheOtherName)
{
    const TextForm form;
    form.load("one");
    form.type("x");
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save As");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.txt)"});
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        typeName(dialog, "b.txt");
    });
    form.choose(FILE_MENU, 3);
    EXPECT_EQ(form.directory().read("a.txt"), "one");
    EXPECT_EQ(form.directory().read("b.txt"), "xone");
    EXPECT_EQ(form->getSavingFile(), "b.txt");
    EXPECT_FALSE(form.text().isModified());
    answers.add<QFileDialog>([](QFileDialog&) {});
    form.choose(FILE_MENU, 3);
    EXPECT_EQ(form->getSavingFile(), "b.txt");
}

TEST(GUI_TextAction, PrintAsksForThePrinter)
{
    const TextForm form;
    bool isAsked = false;
    DialogAnswers answers;
    answers.add<QPrintDialog>([&isAsked](QPrintDialog&) { isAsked = true; });
    form.choose(FILE_MENU, 4);
    EXPECT_TRUE(isAsked);
}

TEST(GUI_TextAction, ExitClosesTheRootWindow)
{
    const TextForm form;
    form.choose(FILE_MENU, 5);
    settle();
    EXPECT_FALSE(form.root().isVisible());
    EXPECT_EQ(form->getParent(), nullptr);
}

TEST(GUI_TextAction, TheEditEntriesActOnTheText)
{
    const TextForm form;
    form.load("one two");
    form.select(0, 3);
    form.choose(EDIT_MENU, 2);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "one");
    form.select(3, 7);
    form.choose(EDIT_MENU, 3);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), " two");
    EXPECT_EQ(form.text().getValue(), "one");
    form.select(0, 0);
    form.choose(EDIT_MENU, 4);
    EXPECT_EQ(form.text().getValue(), " twoone");
    form.choose(EDIT_MENU, 0);
    EXPECT_EQ(form.text().getValue(), "one");
    form.choose(EDIT_MENU, 1);
    EXPECT_EQ(form.text().getValue(), " twoone");
}

TEST(GUI_TextAction, TheWindowMayCloseWhileAQuestionWaits)
{
    const ProjectRoot root;
    QPointer<QWidget> life;
    GUI_Action* action = nullptr;
    {
        const COM_Scoped window(GUI_TextWindow::New(*root, true));
        life = window.get();
        window->show();
        action = window->getMenu()->getMenu(FILE_MENU)->getAction(0);
    }
    DialogAnswers answers;
    answers.add<QMessageBox>([&root](QMessageBox& box) {
        root->close(false);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    answers.add<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    action->trigger();
    settle();
    EXPECT_TRUE(life.isNull());
}

TEST(GUI_TextAction, SpeaksTheLanguageOfTheUser)
{
    const EnglishTexts english;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const ProjectRoot root;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped window(GUI_TextWindow::New(*root, true));
    window->show();
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Nouveau texte");
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
    });
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("Cr\xc3\xa9"
                                                          "er un nouveau texte"));
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Nom du fichier de texte");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Fichier texte (*.txt)"});
    });
    window->getMenu()->getMenu(FILE_MENU)->getAction(0)->trigger();
}
