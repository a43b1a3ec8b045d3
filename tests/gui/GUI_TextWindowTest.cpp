#include "gui/GUI_TextWindow.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_TextPanel.h"
#include "support/DialogAnswers.h"
#include "support/Printed.h"
#include "TextForm.h"

#include <QClipboard>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

/// Expects the question before closing, and presses one of its three buttons.
auto answering(QMessageBox::StandardButton button)
{
    return [button](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Text Window");
        EXPECT_EQ(box.text(), "Do you want to save before closing the text ?");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        ASSERT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Yes");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "No");
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Cancel");
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    };
}

/// As the title bar does.
bool closeByTitleBar(QWidget& window)
{
    const bool isClosed = window.close();
    settle();
    return isClosed;
}

} // namespace

TEST(GUI_TextWindow, IsMadeWithItsMenuItsPanelAndItsSize)
{
    const ProjectRoot root;
    const COM_Scoped window(GUI_TextWindow::New(&*root, true));
    EXPECT_EQ(window->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_ParentWindow",
                                        "GUI_ChildWindow", "GUI_TextWindow"}));
    EXPECT_EQ(window->getParent(), &*root);
    EXPECT_EQ(window->getName(), "Text Window");
    EXPECT_EQ(window->size(), QSize(500, 300));
    EXPECT_EQ(window->getSavingPath(), "./");
    EXPECT_EQ(window->getSavingFile(), "textWindow.txt");
    EXPECT_TRUE(window->isEditable());
    EXPECT_FALSE(window->isContainer());
    EXPECT_TRUE(window->getMenu()->instanceOf("GUI_TextMenu"));
    EXPECT_TRUE(window->getPanel()->instanceOf("GUI_TextPanel"));
    EXPECT_EQ(window->getReferenceCount(), 4);
    EXPECT_TRUE(window->getTextEdit()->isEnabled());
}

TEST(GUI_TextWindow, ItsNameIsTranslatedWhereThereIsAWord)
{
    const ProjectRoot root;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped known(GUI_TextWindow::New(*root, true, "Project Description", false));
    EXPECT_EQ(known->getName(), "Description du projet");
    const COM_Scoped unknown(GUI_TextWindow::New(*root, true, "no such word", false));
    EXPECT_EQ(unknown->getName(), "no such word");
    const COM_Scoped own(GUI_TextWindow::New(*root, false));
    EXPECT_EQ(own->getName(), "\xc3\x89"
                              "diteur de texte");
}

TEST(GUI_TextWindow, TheTextHasTheFocusWhenTheWindowOpens)
{
    const TextForm form;
    EXPECT_TRUE(form.text().hasFocus());
}

TEST(GUI_TextWindow, AWindowForReadingChangesNothing)
{
    const TextForm form(false);
    form.load("one two");
    EXPECT_FALSE(form.text().isEnabled());
    form.select(0, 3);
    QGuiApplication::clipboard()->setText("pasted");
    for (const int menu : {1, 2}) {
        const COM_Array<GUI_Action>& actions = form->getMenu()->getMenu(menu)->getActions();
        for (unsigned long i = 0; i < actions.size(); ++i) {
            actions[i].trigger();
        }
    }
    EXPECT_EQ(form.text().getValue(), "one two");
    EXPECT_EQ(form.marks(), std::vector<int>{3});
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "one") << "but for a copy";
    EXPECT_EQ(form.saved(), "one two");
}

// ---------------------------------------------------------------- the file

TEST(GUI_TextWindow, WithoutAChosenFileItIsSavedInTheWorkingDirectory)
{
    const TextForm form;
    form.type("mine");
    EXPECT_TRUE(form.text().isModified());
    form->save();
    EXPECT_EQ(form.directory().read("textWindow.txt"), "mine");
    EXPECT_FALSE(form.text().isModified());
}

TEST(GUI_TextWindow, AMissingFileGivesAnEmptyText)
{
    const TextForm form;
    form.load("former");
    form.type("x");
    DialogAnswers noDialogs;
    EXPECT_EQ(printedBy([&form] { form->load("none/missing.txt"); }), "");
    EXPECT_EQ(form.text().getValue(), "");
    EXPECT_FALSE(form.text().isModified());
    EXPECT_EQ(form->getSavingPath(), "none/");
    EXPECT_EQ(form->getSavingFile(), "missing.txt");
    fs::create_directory("directory");
    form.load("former");
    form->load("./", "directory");
    EXPECT_EQ(form.text().getValue(), "");
}

TEST(GUI_TextWindow, AFileThatCannotBeWrittenLeavesTheTextModified)
{
    const TextForm form;
    form.type("mine");
    DialogAnswers noDialogs;
    EXPECT_EQ(printedBy([&form] { form->save("none/a.txt"); }), "");
    EXPECT_TRUE(form.text().isModified());
    EXPECT_FALSE(fs::exists("none"));
    EXPECT_EQ(form->getSavingPath(), "none/");
    form->save(form.directory().slashed(), "a.txt");
    EXPECT_FALSE(form.text().isModified());
    EXPECT_EQ(form.directory().read("a.txt"), "mine");
}

TEST(GUI_TextWindow, AnUntouchedTextComesBackToTheByte)
{
    const TextForm form;
    for (const std::string bytes :
         {"", "plain", "a\nb\n", "a\r\nb\r\n", "a\nb\r\n",
          "\xef\xbb\xbf"
          "a",
          "\xc3\xa9t\xc3\xa9\xc2\xa0!", "<p>by <b>hand</b>", "\t two  blanks \n\n"}) {
        form.load(bytes);
        EXPECT_EQ(form.saved(), bytes);
        EXPECT_EQ(form.saved(), bytes) << "the second time too";
    }
}

TEST(GUI_TextWindow, LatinTextIsReadAsSuchAndBecomesUtf8)
{
    const TextForm form;
    form.load("\xe9t\xe9\r\n");
    EXPECT_EQ(form.text().toPlainText(), QString::fromUtf8("\xc3\xa9t\xc3\xa9\n"));
    EXPECT_EQ(form.saved(), "\xc3\xa9t\xc3\xa9\r\n");
}

TEST(GUI_TextWindow, WhatIsTypedJoinsWhatWasRead)
{
    const TextForm form;
    form.load("one\r\n\xc2\xa0two\r\n");
    QTest::keyClicks(&form.text(), "x");
    EXPECT_EQ(form.saved(), "xone\r\n\xc2\xa0two\r\n");
    form->load();
    EXPECT_EQ(form.text().toPlainText(), "xone\n two\n");
}

TEST(GUI_TextWindow, FormatsAreSavedAndReadAgain)
{
    const TextForm form;
    form.load("one two");
    form.select(4, 7);
    form.choose(2, 2);
    form->save();
    form->load();
    EXPECT_EQ(form.text().toPlainText(), "one two");
    form.select(4, 7);
    EXPECT_EQ(form.marks(), (std::vector<int>{2, 3}));
    form.select(0, 3);
    EXPECT_EQ(form.marks(), std::vector<int>{3});
}

TEST(GUI_TextWindow, ANewTextIsEmptyAndTouchesNoFileBeforeItIsSaved)
{
    const TextForm form;
    form.load("former");
    form.select(0, 6);
    form.choose(2, 2);
    form.choose(2, 5);
    form.directory().write("new.txt", "there already");
    form->createFile(form.directory().file("new.txt"));
    EXPECT_EQ(form.text().getValue(), "");
    EXPECT_FALSE(form.text().isModified());
    EXPECT_EQ(form.marks(), std::vector<int>{3}) << "no format of the former text";
    EXPECT_EQ(form->getSavingPath(), form.directory().slashed());
    EXPECT_EQ(form->getSavingFile(), "new.txt");
    EXPECT_EQ(form.directory().read("new.txt"), "there already");
    form.type("mine");
    EXPECT_EQ(form.saved(), "mine");
    form->createFile("bare.txt");
    EXPECT_EQ(form->getSavingPath(), "./");
}

// ---------------------------------------------------------------- formats

TEST(GUI_TextWindow, FormatsOfASelectionFollowTheirEntriesInEitherDirection)
{
    for (const bool isBackward : {false, true}) {
        const TextForm form;
        form.load("one two three");
        form.select(isBackward ? 7 : 4, isBackward ? 4 : 7);
        const auto isIn = [&form](int position) {
            QTextCursor cursor(form.text().document());
            cursor.setPosition(position + 1);
            const QTextCharFormat format = cursor.charFormat();
            return std::vector<bool>{format.fontUnderline(), format.fontItalic(),
                                     format.fontWeight() == QFont::Bold};
        };
        std::vector<bool> expected(3, false);
        for (const int round : {0, 1}) {
            for (const int format : {0, 1, 2}) {
                form.choose(2, format);
                expected.at(static_cast<std::size_t>(format)) = round == 0;
                EXPECT_EQ(isIn(4), expected) << format;
                EXPECT_EQ(isIn(6), expected) << format;
                EXPECT_EQ(isIn(3), std::vector<bool>(3, false));
                EXPECT_EQ(isIn(7), std::vector<bool>(3, false));
            }
        }
        EXPECT_EQ(form.text().getValue(), "one two three");
    }
}

TEST(GUI_TextWindow, WithoutASelectionAFormatIsThatOfWhatIsTypedNext)
{
    const TextForm form;
    QTest::keyClick(&form.text(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(form.marks(), (std::vector<int>{2, 3}));
    EXPECT_FALSE(form.text().isModified());
    form.type("b");
    QTest::keyClick(&form.text(), Qt::Key_B, Qt::ControlModifier);
    form.type("n");
    form.select(0, 1);
    EXPECT_EQ(form.text().getShownFormat().fontWeight(), QFont::Bold);
    form.select(1, 2);
    EXPECT_EQ(form.text().getShownFormat().fontWeight(), QFont::Normal);
}

TEST(GUI_TextWindow, TheMarksFollowTheCursor)
{
    const TextForm form;
    form.load("<p>n<b>b</b><i>i</i><u>u</u></p><p align=\"center\">c</p><p align=\"right\">r</p>");
    const std::vector<std::vector<int>> expected = {{3}, {2, 3}, {1, 3}, {0, 3}};
    for (int position = 1; position <= 4; ++position) {
        form.select(position, position);
        EXPECT_EQ(form.marks(), expected.at(static_cast<std::size_t>(position) - 1)) << position;
    }
    form.select(6, 6);
    EXPECT_EQ(form.marks(), std::vector<int>{5});
    form.select(8, 8);
    EXPECT_EQ(form.marks(), std::vector<int>{4});
    EXPECT_FALSE(form.text().isModified()) << "showing changes nothing";
    form.load("<b>b</b>");
    EXPECT_EQ(form.marks(), (std::vector<int>{2, 3})) << "from the start";
    form->createFile("c.txt");
    EXPECT_EQ(form.marks(), std::vector<int>{3});
}

TEST(GUI_TextWindow, OneAlignmentIsOnAndSwitchingItOffMeansLeft)
{
    const TextForm form;
    form.load("one");
    const auto alignment = [&form] { return form.text().alignment() & Qt::AlignHorizontal_Mask; };
    EXPECT_EQ(form.marks(), std::vector<int>{3});
    form.choose(2, 4);
    EXPECT_EQ(alignment(), Qt::AlignRight);
    EXPECT_EQ(form.marks(), std::vector<int>{4});
    form.choose(2, 5);
    EXPECT_EQ(alignment(), Qt::AlignHCenter);
    EXPECT_EQ(form.marks(), std::vector<int>{5});
    form.choose(2, 5);
    EXPECT_EQ(alignment(), Qt::AlignLeft);
    EXPECT_EQ(form.marks(), std::vector<int>{3});
    form.choose(2, 3);
    EXPECT_EQ(alignment(), Qt::AlignLeft);
    EXPECT_EQ(form.marks(), std::vector<int>{3});
    form.choose(2, 4);
    form.choose(2, 3);
    EXPECT_EQ(alignment(), Qt::AlignLeft);
    EXPECT_EQ(form.marks(), std::vector<int>{3});
    form->rightAlign();
    EXPECT_EQ(alignment(), Qt::AlignRight);
    EXPECT_EQ(form.marks(), std::vector<int>{4});
    form.choose(1, 0);
    EXPECT_EQ(alignment(), Qt::AlignLeft);
    EXPECT_EQ(form.marks(), std::vector<int>{3}) << "an alignment that is undone is not marked";
}

// ---------------------------------------------------------------- closing

TEST(GUI_TextWindow, AnUnchangedTextClosesWithoutAQuestion)
{
    const DialogAnswers answers;
    const TextForm form;
    form.load("one");
    EXPECT_TRUE(closeByTitleBar(*form));
    EXPECT_EQ(form->getParent(), nullptr);
}

TEST(GUI_TextWindow, TheUserIsAskedBeforeAChangedTextCloses)
{
    DialogAnswers answers;
    for (const auto button : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
        const TextForm form;
        form.load("one");
        form.type("x");
        answers.add<QMessageBox>(answering(button));
        EXPECT_EQ(closeByTitleBar(*form), button != QMessageBox::Cancel);
        EXPECT_EQ(form.directory().read("a.txt"), button == QMessageBox::Yes ? "xone" : "one");
        EXPECT_EQ(form->getParent() == nullptr, button != QMessageBox::Cancel);
        EXPECT_EQ(form->isVisible(), button == QMessageBox::Cancel);
        if (button == QMessageBox::Cancel) {
            EXPECT_EQ(form.text().toPlainText(), "xone");
            form.type("y");
            EXPECT_EQ(form.text().toPlainText(), "xyone");
        }
    }
}

TEST(GUI_TextWindow, ATextThatCannotBeSavedStaysOpen)
{
    const TextForm form;
    form.type("mine");
    form->setSavingPath("none/");
    DialogAnswers answers;
    answers.add<QMessageBox>(answering(QMessageBox::Yes));
    EXPECT_FALSE(closeByTitleBar(*form));
    EXPECT_EQ(form.text().toPlainText(), "mine");
    answers.add<QMessageBox>(answering(QMessageBox::No));
    EXPECT_TRUE(closeByTitleBar(*form));
}

TEST(GUI_TextWindow, TheProgramClosesWithoutAQuestion)
{
    const DialogAnswers answers;
    const TextForm form;
    form.load("one");
    form.type("x");
    EXPECT_TRUE(form->close(false));
    EXPECT_EQ(form.directory().read("a.txt"), "one");
    EXPECT_EQ(form->getTextEdit(), nullptr);
    EXPECT_TRUE(form->close(false)) << "the second time too";
}

TEST(GUI_TextWindow, AClosedWindowTakesOrdersAndDoesNothing)
{
    const TextForm form;
    form.load("one");
    form->close(false);
    form->save();
    form->load();
    form->createFile("b.txt");
    form->undo();
    form->redo();
    form->print();
    form->cut();
    form->copy();
    form->paste();
    form->bold();
    form->italic();
    form->underline();
    form->rightAlign();
    form->leftAlign();
    form->centerAlign();
    EXPECT_EQ(form.directory().read("a.txt"), "one");
    EXPECT_FALSE(fs::exists("b.txt"));
}

TEST(GUI_TextWindow, ARootThatClosesDuringTheQuestionTakesTheWindowAlong)
{
    const ProjectRoot root;
    QPointer<QWidget> life;
    {
        const COM_Scoped window(GUI_TextWindow::New(*root, true));
        life = window.get();
        window->show();
        QTest::keyClicks(window->getTextEdit(), "x");
    }
    DialogAnswers answers;
    answers.add<QMessageBox>([&root](QMessageBox& box) {
        root->close(false);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    life->close();
    settle();
    EXPECT_TRUE(life.isNull());
    EXPECT_FALSE(fs::exists("textWindow.txt")) << "its text was gone";
}

TEST(GUI_TextWindow, ASubWindowAsksToo)
{
    const COM_Scoped root(GUI_RootWindow::New("Root", true));
    root->setSavingFile("");
    root->show();
    const EnglishTexts english;
    const COM_Scoped window(GUI_TextWindow::New(*root, true));
    window->show();
    QTest::keyClicks(window->getTextEdit(), "x");
    DialogAnswers answers;
    answers.add<QMessageBox>(answering(QMessageBox::Cancel));
    EXPECT_FALSE(window->parentWidget()->close());
    EXPECT_NE(window->getTextEdit(), nullptr);
    answers.add<QMessageBox>(answering(QMessageBox::No));
    EXPECT_TRUE(window->parentWidget()->close());
    settle();
    EXPECT_EQ(window->getTextEdit(), nullptr);
}

// ---------------------------------------------------------------- printing

TEST(GUI_TextWindow, PrintingAsksForThePrinter)
{
    const TextForm form;
    form.load("one");
    DialogAnswers answers;
    answers.add<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    form->print();
    const std::string file = form.directory().file("a.pdf");
    answers.add<QPrintDialog>([&file](QPrintDialog& dialog) {
        dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog.printer()->setOutputFileName(QString::fromStdString(file));
        dialog.done(QDialog::Accepted);
    });
    EXPECT_FALSE(fs::exists(file));
    form->print();
    EXPECT_EQ(form.directory().read("a.pdf").substr(0, 5), "%PDF-");
}

TEST(GUI_TextWindow, ItMayCloseWhileThePrintDialogWaits)
{
    const TextForm form;
    form.load("one");
    DialogAnswers answers;
    const std::string file = form.directory().file("a.pdf");
    answers.add<QPrintDialog>([&](QPrintDialog& dialog) {
        form->close(false);
        dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog.printer()->setOutputFileName(QString::fromStdString(file));
        dialog.done(QDialog::Accepted);
    });
    form->print();
    EXPECT_TRUE(fs::exists(file));
}
