#include "gui/GUI_BrowserWindow.h"

#include "gui/GUI_ActionBrowserHelp.h"
#include "gui/GUI_BrowserPanel.h"
#include "gui/TestBrowser.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"

#include <QDataStream>
#include <QFile>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

#include <gtest/gtest.h>

namespace {

/// A list of strings as a file, in the working directory.
void writeList(const char* name, const QStringList& list)
{
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QDataStream stream(&file);
    stream << list;
}

QStringList numbers(int count)
{
    QStringList list;
    for (int i = 1; i <= count; ++i) {
        list.append(QString("/page%1.html").arg(i));
    }
    return list;
}

/// Another browser of the working directory, so that it reads the lists there.
class Second
{
public:
    explicit Second(const TestBrowser& browser)
        : mWindow(GUI_BrowserWindow::New(*browser.root()))
    {}
    GUI_BrowserWindow* operator->() const { return mWindow.get(); }
    std::vector<std::string> history() const { return historyOf(*mWindow); }
    std::vector<std::string> bookmarks() const { return bookmarksOf(*mWindow); }

private:
    COM_Scoped<GUI_BrowserWindow> mWindow;
};

void typePath(const TestBrowser& browser, const std::string& path)
{
    QLineEdit* const field = browser.combo().lineEdit();
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QString::fromStdString(path));
    QTest::keyClick(field, Qt::Key_Delete); // what the list completes
    QTest::keyClick(field, Qt::Key_Return);
}

} // namespace

TEST(GUI_BrowserWindow, StartsEmpty)
{
    const TestBrowser browser;
    EXPECT_EQ(browser->getName(), "Browser Window");
    EXPECT_EQ(browser->getSavingPath(), "./");
    EXPECT_EQ(browser->getSavingFile(), "textWindow.txt");
    EXPECT_EQ(browser->getParent(), &*browser.root());
    EXPECT_NE(dynamic_cast<GUI_BrowserPanel*>(browser->getPanel()), nullptr);
    EXPECT_EQ(browser.edit().getFlagId(), GUI_BrowserPanel::COMPO_TEXT);
    EXPECT_TRUE(browser.history().empty());
    EXPECT_TRUE(browser.bookmarks().empty());
    EXPECT_TRUE(browser.labels("&History").empty());
    EXPECT_EQ(browser.labels("&Bookmark").size(), 1UL);
    EXPECT_EQ(browser.edit().getValue(), "");
    // Nothing to go to, nothing to mark.
    browser->home();
    browser->backward();
    browser->forward();
    browser->addBookmark();
    browser->historyChosen(0);
    browser->bookmarkChosen(1);
    EXPECT_EQ(browser.edit().getContext(), "");
    EXPECT_TRUE(browser.bookmarks().empty());
    EXPECT_EQ(browser->getName(), "Browser Window");
}

TEST(GUI_BrowserWindow, ItsNameIsAKey)
{
    const ProjectRoot root;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped help(GUI_BrowserWindow::New(*root, "Help Window"));
    EXPECT_EQ(help->getName(), "Aide");
    const COM_Scoped other(GUI_BrowserWindow::New(root.operator->(), "No such key", true));
    EXPECT_EQ(other->getName(), "No such key");
}

TEST(GUI_BrowserWindow, TheCaptionIsTheTitleElseThePath)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    EXPECT_EQ(browser->getName(), "One");
    browser->setHome("two.html");
    EXPECT_EQ(browser->getName(), browser.page("two.html"));
    browser->backward();
    EXPECT_EQ(browser->getName(), "One");
    browser->forward();
    EXPECT_EQ(browser->getName(), browser.page("two.html"));
}

TEST(GUI_BrowserWindow, TheHomePageIsInTheComboOnce)
{
    const TestBrowser browser;
    browser->setHome("./deeper/../one.html");
    EXPECT_EQ(browser.paths(), std::vector<std::string>{browser.page("one.html")});
    browser->setHome("two.html");
    browser->setHome(browser.page("one.html"));
    EXPECT_EQ(browser.paths(),
              (std::vector<std::string>{browser.page("one.html"), browser.page("two.html")}));
    EXPECT_EQ(browser.history(),
              (std::vector<std::string>{browser.page("one.html"), browser.page("two.html")}));
}

TEST(GUI_BrowserWindow, AMissingHomePageCanBeTriedAgain)
{
    const TestBrowser browser;
    browser->setHome("later.html");
    EXPECT_EQ(browser.status(), "The file can not be loaded: " + browser.page("later.html"));
    EXPECT_EQ(browser.paths(), std::vector<std::string>{"later.html"});
    EXPECT_TRUE(browser.history().empty());
    browser.directory().write("later.html", "<p>here</p>");
    browser->setPathSelected("later.html");
    EXPECT_EQ(browser.edit().getValue(), "here");
    EXPECT_EQ(browser.combo().getSelectedItemValue(), browser.page("later.html"));
    EXPECT_EQ(browser.history(), std::vector<std::string>{browser.page("later.html")});
}

TEST(GUI_BrowserWindow, ASecondVisitAddsNoEntry)
{
    const TestBrowser browser;
    browser.show();
    browser->setHome("one.html");
    browser.followLink();
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
    browser.followLink();
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_EQ(browser.combo().count(), 2);
    EXPECT_EQ(browser.combo().getSelectedItemValue(), browser.page("one.html"));
    EXPECT_EQ(browser.labels("&History"),
              (std::vector<std::string>{browser.page("one.html"), browser.page("two.html")}));
}

TEST(GUI_BrowserWindow, APathIsChosenInTheCombo)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    browser->setHome("two.html");
    browser.show();
    browser.combo().setFocus();
    QTest::keyClick(&browser.combo(), Qt::Key_Down);
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_EQ(browser.combo().getSelectedItemValue(), browser.page("one.html"));
    EXPECT_EQ(browser.combo().count(), 2);
}

TEST(GUI_BrowserWindow, APathIsTyped)
{
    const TestBrowser browser;
    browser.directory().write("three.html", "<title>Three</title><p>3</p>");
    browser->setHome("one.html");
    browser.show();
    typePath(browser, "three.html");
    EXPECT_EQ(browser->getName(), "Three");
    EXPECT_EQ(browser.paths(),
              (std::vector<std::string>{browser.page("three.html"), browser.page("one.html")}));
    EXPECT_EQ(browser.history(),
              (std::vector<std::string>{browser.page("one.html"), browser.page("three.html")}));
    EXPECT_TRUE(browser.edit().hasFocus());
    typePath(browser, "none.html");
    EXPECT_EQ(browser.status(), "The file can not be loaded: " + browser.page("none.html"));
    EXPECT_EQ(browser->getName(), "Three");
    EXPECT_EQ(browser.combo().count(), 2);
    typePath(browser, "three.html");
    EXPECT_EQ(browser.combo().getSelectedItemValue(), browser.page("three.html"));
    EXPECT_EQ(browser.combo().count(), 2);
    EXPECT_EQ(browser.history().size(), 2UL);
}

TEST(GUI_BrowserWindow, BackNextAndHomeGoThroughTheVisits)
{
    const TestBrowser browser;
    const GUI_Action& back = browser.action("&Navigator", "Back");
    const GUI_Action& next = browser.action("&Navigator", "Next");
    browser->setHome("one.html");
    EXPECT_FALSE(back.isEnabled());
    browser->setPathSelected("two.html");
    EXPECT_TRUE(back.isEnabled());
    EXPECT_FALSE(next.isEnabled());
    browser.action("&Navigator", "Back").trigger();
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_FALSE(back.isEnabled());
    EXPECT_TRUE(next.isEnabled());
    browser.action("&Navigator", "Next").trigger();
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
    browser.action("&Navigator", "Home").trigger();
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_EQ(browser.combo().getSelectedItemValue(), browser.page("one.html"));
}

TEST(GUI_BrowserWindow, TheKeysOfBrowsersWork)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    browser->setHome("two.html");
    browser.show();
    EXPECT_TRUE(browser.edit().hasFocus());
    for (QWidget* const place :
         {static_cast<QWidget*>(&browser.edit()), static_cast<QWidget*>(&browser.combo())}) {
        place->setFocus();
        QTest::keyClick(place, Qt::Key_Left, Qt::AltModifier);
        EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
        QTest::keyClick(place, Qt::Key_Right, Qt::AltModifier);
        EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
    }
    QTest::keyClick(&browser.edit(), Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    QTest::keyClick(&browser.edit(), Qt::Key_Q, Qt::ControlModifier);
    settle();
    EXPECT_FALSE(browser->isVisible());
    EXPECT_TRUE(browser.root()->isVisible());
    EXPECT_TRUE(browser.root().children<GUI_BrowserWindow>().empty());
}

TEST(GUI_BrowserWindow, HistoryAndBookmarksAreChosenInTheirMenus)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    browser.action("&Bookmark", "&Add Bookmark").trigger();
    browser->setHome("two.html");
    browser.action("&Bookmark", "&Add Bookmark").trigger();
    EXPECT_EQ(browser.labels("&Bookmark"),
              (std::vector<std::string>{"&Add Bookmark", "One", browser.page("two.html")}));
    EXPECT_EQ(browser.bookmarks(),
              (std::vector<std::string>{browser.page("one.html"), browser.page("two.html")}));
    browser.action("&Bookmark", "One").trigger();
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    browser.action("&History", browser.page("two.html")).trigger();
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
    browser->historyChosen(99);
    browser->bookmarkChosen(99);
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
    EXPECT_EQ(browser.labels("&History").size(), 2UL);
}

TEST(GUI_BrowserWindow, OfALongHistoryFileOneEntryRemains)
{
    const TestBrowser browser;
    writeList(".history", numbers(25));
    writeList(".bookmarks", numbers(25));
    const Second second(browser);
    EXPECT_EQ(second.history(), std::vector<std::string>{"/page25.html"});
    EXPECT_EQ(second.bookmarks(), std::vector<std::string>{"/page25.html"});
}

TEST(GUI_BrowserWindow, AnEntryOfAFileHasTheNumberZero)
{
    const TestBrowser browser;
    writeList(".history", {"/gone.html", QString::fromStdString(browser.page("one.html"))});
    writeList(".bookmarks", {QString::fromStdString(browser.page("two.html"))});
    const Second second(browser);
    second->historyChosen(0);
    EXPECT_EQ(second->getBrowserEdit()->getContext(), browser.page("one.html"));
    second->bookmarkChosen(0);
    EXPECT_EQ(second->getBrowserEdit()->getContext(), browser.page("two.html"));
    EXPECT_TRUE(std::filesystem::exists(".history"));
    std::filesystem::remove(".history");
    std::filesystem::remove(".bookmarks");
    second->close();
    EXPECT_FALSE(std::filesystem::exists(".history")) << "never written";
    EXPECT_FALSE(std::filesystem::exists(".bookmarks"));
}

TEST(GUI_BrowserWindow, APathThatTheFileToldIsNotAddedAgain)
{
    const TestBrowser browser;
    writeList(".history", {QString::fromStdString(browser.page("one.html"))});
    const Second second(browser);
    second->setPathSelected(browser.page("one.html"));
    EXPECT_EQ(second->getBrowserEdit()->getContext(), browser.page("one.html"));
    EXPECT_EQ(second.history(), std::vector<std::string>{browser.page("one.html")});
    EXPECT_EQ(second->getMenu()->getMenu("&History")->getActions().size(), 0UL);
    second->setPathSelected(browser.page("two.html"));
    EXPECT_EQ(second.history(),
              (std::vector<std::string>{browser.page("one.html"), browser.page("two.html")}));
    EXPECT_EQ(second->getMenu()->getMenu("&History")->getActions().size(), 1UL);
}

TEST(GUI_BrowserWindow, ADamagedFileIsAnEmptyOne)
{
    const TestBrowser browser;
    writeList(".history", numbers(3));
    std::filesystem::resize_file(".history", std::filesystem::file_size(".history") - 1);
    browser.directory().write(".bookmarks", std::string("\xff\xff\xff\xf0", 4) + "abc");
    const Second second(browser);
    EXPECT_TRUE(second.history().empty());
    EXPECT_TRUE(second.bookmarks().empty());
    browser.directory().write(".history", "");
    const Second third(browser);
    EXPECT_TRUE(third.history().empty());
}

TEST(GUI_BrowserWindow, AFileIsAskedFor)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    std::string title;
    DialogAnswers answers;
    answers.add<QFileDialog>([&title, &browser](QFileDialog& dialog) {
        title = dialog.windowTitle().toStdString();
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName).toStdString(), "Open");
        EXPECT_EQ(dialog.directory().path().toStdString() + "/", browser.directory().slashed());
        typeName(dialog, browser.page("two.html"));
    });
    browser.action("&File", "&Open File").trigger();
    EXPECT_EQ(title, "Open a File");
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
    answers.add<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    browser.action("&File", "&Open File").trigger();
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
}

TEST(GUI_BrowserWindow, ItMayCloseWhileItAsks)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    DialogAnswers answers;
    answers.add<QFileDialog>([&browser](QFileDialog& dialog) {
        browser->close(false);
        typeName(dialog, browser.page("two.html"));
    });
    browser.action("&File", "&Open File").trigger();
    EXPECT_EQ(browser->getBrowserEdit(), nullptr);
    EXPECT_FALSE(browser->isVisible());
}

TEST(GUI_BrowserWindow, ANewWindowShowsThePage)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    browser->setHome("two.html");
    browser.action("&File", "&New Window").trigger();
    const std::vector<GUI_BrowserWindow*> windows = browser.root().children<GUI_BrowserWindow>();
    ASSERT_EQ(windows.size(), 2UL);
    EXPECT_TRUE(windows[1]->isVisible());
    EXPECT_EQ(windows[1]->getBrowserEdit()->getContext(), browser.page("two.html"));
    EXPECT_EQ(windows[1]->getName(), browser.page("two.html"));
    windows[1]->home();
    EXPECT_EQ(windows[1]->getBrowserEdit()->getContext(), browser.page("two.html"));
    windows[1]->close();
    settle();
    EXPECT_EQ(browser.root().children<GUI_BrowserWindow>().size(), 1UL);
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
}

TEST(GUI_BrowserWindow, ANewWindowOfAnEmptyOneIsEmpty)
{
    const TestBrowser browser;
    browser->newWindow();
    const std::vector<GUI_BrowserWindow*> windows = browser.root().children<GUI_BrowserWindow>();
    ASSERT_EQ(windows.size(), 2UL);
    EXPECT_EQ(windows[1]->getName(), "Browser Window");
    EXPECT_EQ(windows[1]->statusBar()->currentMessage().toStdString(), "");
}

TEST(GUI_BrowserWindow, ThePageIsPrinted)
{
    const TestBrowser browser;
    std::string text = "<p><img src=\"picture.png\"></p>";
    for (int i = 0; i < 200; ++i) {
        text += "<p>line</p>";
    }
    browser.directory().write("long.html", text);
    QImage picture(300, 300, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(x, y, static_cast<QRgb>((x * 7919 + y * 104729) * 2654435761U));
        }
    }
    browser->setHome("long.html");
    const auto print = [&browser](const char* file) {
        DialogAnswers answers;
        answers.add<QPrintDialog>([file](QPrintDialog& dialog) {
            dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
            dialog.printer()->setOutputFileName(file);
            dialog.done(QDialog::Accepted);
        });
        browser.action("&File", "&Print").trigger();
    };
    print("without.pdf");
    ASSERT_TRUE(std::filesystem::exists("without.pdf"));
    const std::string pages = browser.directory().read("without.pdf");
    const std::size_t count = pages.find("/Count ");
    ASSERT_NE(count, std::string::npos);
    EXPECT_GE(std::stoi(pages.substr(count + std::string("/Count ").size())), 4)
        << "200 lines of a paper that takes less than 60";
    ASSERT_TRUE(picture.save("picture.png", "PNG"));
    browser.edit().reload();
    print("with.pdf");
    // The noise of the picture does not compress.
    EXPECT_GT(std::filesystem::file_size("with.pdf"),
              std::filesystem::file_size("without.pdf") + 50000);
}

TEST(GUI_BrowserWindow, AboutAndHelpAreThere)
{
    const TestBrowser browser;
    std::string title;
    std::string text;
    DialogAnswers answers;
    answers.add<QMessageBox>([&](QMessageBox& dialog) {
        title = dialog.windowTitle().toStdString();
        text = dialog.text().toStdString();
        EXPECT_EQ(dialog.parent(), &*browser);
        EXPECT_EQ(dialog.icon(), QMessageBox::Information);
        EXPECT_NE(dialog.textFormat(), Qt::PlainText) << "its paragraphs are marked";
    });
    browser->about();
    EXPECT_EQ(title, "About");
    EXPECT_EQ(
        text,
        "<p>This example implements a simple HTML browserusing Qt's rich text capabilities</p>"
        "<p>The browser is small.</p>");
    browser->help();
    answers.add<QMessageBox>([](QMessageBox& dialog) { EXPECT_EQ(dialog.windowTitle(), "About"); });
    for (const int number : {0, 1}) {
        const COM_Scoped entry(GUI_ActionBrowserHelp::New(&*browser, number));
        browser.menu("&File").addToActions(*entry);
        entry->trigger();
    }
}

TEST(GUI_BrowserWindow, ClosedItDoesNothing)
{
    const TestBrowser browser;
    browser->setHome("one.html");
    browser->close();
    EXPECT_EQ(browser->getBrowserEdit(), nullptr);
    DialogAnswers noDialogs;
    browser->newWindow();
    browser->print();
    browser->forward();
    browser->backward();
    browser->home();
    browser->historyChosen(1);
    browser->addBookmark();
    browser->setHome(browser.page("two.html"));
    browser->setPathSelected(browser.page("two.html"));
    browser->addToPaths(browser.page("two.html"));
    browser->close();
    EXPECT_EQ(browser.history().size(), 1UL);
    EXPECT_TRUE(browser.root().children<GUI_BrowserWindow>().empty());
}
