#include "gui/GUI_BrowserEdit.h"

#include "gui/TestBrowser.h"
#include "support/TestPanel.h"

#include <QDesktopServices>
#include <QImage>
#include <QScrollBar>

#include <gtest/gtest.h>

namespace {

/// Takes the addresses of a scheme that the program hands to the desktop. It is a browser itself because a class of
/// Qt's has the slot that this needs.
class Desktop : public QTextBrowser
{
public:
    explicit Desktop(const QString& scheme)
        : mScheme(scheme)
    {
        QDesktopServices::setUrlHandler(mScheme, this, "setSource");
    }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(mScheme); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    std::vector<std::string> mOpened;

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType /*type*/) override
    {
        mOpened.push_back(url.toString().toStdString());
    }

private:
    QString mScheme;
};

/// A file with a picture of one colour.
void writePicture(const TestDirectory& directory, const std::string& name, const QColor& color)
{
    constexpr int size = 8;
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(color);
    ASSERT_TRUE(image.save(QString::fromStdString(directory.file(name)), "PNG"));
}

/// What the window looks like around the middle of the first picture of its page.
QColor colorOfPicture(const TestBrowser& browser)
{
    const QImage seen = browser.edit().viewport()->grab().toImage();
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            const QColor color = seen.pixelColor(x, y);
            if (color.saturation() == 255) {
                return color;
            }
        }
    }
    return {};
}

} // namespace

TEST(GUI_BrowserEdit, ShowsAPageAndItsTitle)
{
    const TestBrowser browser;
    EXPECT_EQ(browser.edit().getContext(), "");
    EXPECT_TRUE(browser.edit().setFile(browser.page("one.html")));
    EXPECT_EQ(browser.edit().getValue(), "to two");
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_EQ(browser.edit().documentTitle().toStdString(), "One");
    EXPECT_TRUE(browser.edit().instanceOf("GUI_BrowserEdit"));
}

TEST(GUI_BrowserEdit, ReportsAChangeOfThePageWhenItIsComplete)
{
    const TestBrowser pages;
    const TestForm form;
    auto& edit = form.add<GUI_BrowserEdit>(7);
    std::string context;
    form->mAnswer = [&](GUI_ActionComponent&) { context = edit.getContext(); };
    edit.setFile(pages.page("one.html"));
    EXPECT_EQ(context, pages.page("one.html"));
    EXPECT_EQ(form->mFlags.front(), 7);
    edit.setFile(pages.page("two.html"));
    EXPECT_EQ(context, pages.page("two.html"));
    edit.backward();
    EXPECT_EQ(context, pages.page("one.html"));
    edit.forward();
    EXPECT_EQ(context, pages.page("two.html"));
    edit.home();
    EXPECT_EQ(context, pages.page("one.html"));
}

TEST(GUI_BrowserEdit, ReportsTheReturnKey)
{
    const TestForm form;
    auto& edit = form.add<GUI_BrowserEdit>(7);
    form.show();
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClick(&edit, Qt::Key_Enter);
    EXPECT_EQ(form->mFlags, (std::vector<int>{7, 7}));
    QTest::keyClick(&edit, Qt::Key_Space);
    EXPECT_EQ(form->mFlags.size(), 2UL);
}

TEST(GUI_BrowserEdit, ShowsATextThatIsNoPage)
{
    const TestForm form;
    auto& edit = form.add<GUI_BrowserEdit>(7);
    edit.setValue("<p>a <b>bold</b> word</p>");
    EXPECT_EQ(edit.getValue(), "a bold word");
    EXPECT_EQ(edit.getContext(), "");
    EXPECT_FALSE(form->mFlags.empty());
    edit.setTooltip("tip");
    EXPECT_EQ(edit.toolTip().toStdString(), "tip");
    edit.setEnabled(false);
    EXPECT_FALSE(edit.isEnabled());
}

TEST(GUI_BrowserEdit, TakesABareNameFromBesideThePage)
{
    const TestBrowser browser;
    std::filesystem::create_directory("deeper");
    browser.directory().write("deeper/one.html", "<p>another one</p>");
    browser.directory().write("deeper/two.html", "<p>another two</p>");
    browser.directory().write("alone.html", "<p>alone</p>");
    EXPECT_TRUE(browser.edit().setFile("one.html"))
        << "the working directory before the first page";
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_TRUE(browser.edit().setFile("deeper/one.html"));
    EXPECT_TRUE(browser.edit().setFileName("two.html"));
    EXPECT_EQ(browser.edit().getContext(), browser.page("deeper/two.html"));
    EXPECT_FALSE(browser.edit().setFile("alone.html"));
    EXPECT_FALSE(browser.edit().setFile("alone.html#top"));
    EXPECT_EQ(browser.status(), "The file can not be loaded: " + browser.page("deeper/alone.html"));
    EXPECT_TRUE(browser.edit().setFile("../alone.html"));
    EXPECT_EQ(browser.edit().getContext(), browser.page("alone.html"));
    EXPECT_TRUE(browser.edit().setFile("deeper/one.html"));
    EXPECT_TRUE(browser.edit().setFile("./two.html"));
    EXPECT_EQ(browser.edit().getContext(), browser.page("deeper/two.html"));
    EXPECT_TRUE(browser.edit().setFile("deeper/one.html")) << "of the working directory";
    EXPECT_EQ(browser.edit().getContext(), browser.page("deeper/one.html"));
    EXPECT_TRUE(browser.edit().setFile("file://" + browser.page("two.html")));
    EXPECT_EQ(browser.edit().getContext(), browser.page("two.html"));
}

TEST(GUI_BrowserEdit, NamesWithCharactersOfAddressesAreNames)
{
    const TestBrowser browser;
    for (const char* const name :
         {"a#b.html", "50%.html", "why?.html", "a b.html", "http:x.html"}) {
        browser.directory().write(name, "<p>odd</p>");
        EXPECT_TRUE(browser.edit().setFile(name)) << name;
        EXPECT_EQ(browser.edit().getContext(), browser.page(name));
        EXPECT_EQ(browser.edit().getValue(), "odd");
        EXPECT_TRUE(browser.edit().setFile(browser.page("one.html")));
        browser.edit().backward();
        EXPECT_EQ(browser.edit().getContext(), browser.page(name));
    }
}

TEST(GUI_BrowserEdit, ScrollsToAnAnchor)
{
    const TestBrowser browser;
    std::string text = "<p><a href=\"#units\">units</a></p>";
    for (int i = 0; i < 200; ++i) {
        text += "<p>line</p>";
    }
    browser.directory().write("long.html", text + "<h2 id=\"units\">Units</h2>" + text);
    browser.show();
    EXPECT_TRUE(browser.edit().setFile("long.html"));
    EXPECT_EQ(browser.edit().verticalScrollBar()->value(), 0);
    browser.followLink();
    const int place = browser.edit().verticalScrollBar()->value();
    EXPECT_GT(place, 0);
    EXPECT_EQ(browser.edit().getContext(), browser.page("long.html"));
    EXPECT_EQ(browser.paths(), std::vector<std::string>{browser.page("long.html")});
    EXPECT_TRUE(browser.edit().setFile("one.html"));
    EXPECT_TRUE(browser.edit().setFile("long.html#units"));
    EXPECT_EQ(browser.edit().getContext(), browser.page("long.html"));
    EXPECT_EQ(browser.edit().verticalScrollBar()->value(), place);
}

TEST(GUI_BrowserEdit, AMissingPageIsToldAndLeavesThePresentOne)
{
    const TestBrowser browser;
    EXPECT_TRUE(browser.edit().setFile("one.html"));
    EXPECT_FALSE(browser.edit().setFile("none.html"));
    EXPECT_EQ(browser.status(), "The file can not be loaded: " + browser.page("none.html"));
    EXPECT_EQ(browser.edit().getContext(), browser.page("one.html"));
    EXPECT_EQ(browser.edit().getValue(), "to two");
    EXPECT_FALSE(browser.edit().setFile(browser.directory().slashed())) << "a directory is no page";
    EXPECT_FALSE(browser.edit().setFile(""));
    EXPECT_TRUE(browser.edit().setFile("two.html"));
    EXPECT_EQ(browser.status(), "");
}

TEST(GUI_BrowserEdit, ALinkToAMissingPageIsToldAndLeavesThePresentOne)
{
    const TestBrowser browser;
    browser.directory().write("broken.html", "<p><a href=\"gone/page.html#top\">broken</a></p>");
    browser.show();
    EXPECT_TRUE(browser.edit().setFile("broken.html"));
    browser.followLink();
    EXPECT_EQ(browser.status(), "The file can not be loaded: " + browser.page("gone/page.html"));
    EXPECT_EQ(browser.edit().getValue(), "broken");
    EXPECT_FALSE(browser.action("&Navigator", "Back").isEnabled());
}

TEST(GUI_BrowserEdit, AMissingPageOfTheHistorySaysSoInItsPlace)
{
    const TestBrowser browser;
    EXPECT_TRUE(browser.edit().setFile("one.html"));
    EXPECT_TRUE(browser.edit().setFile("two.html"));
    std::filesystem::remove("one.html");
    browser.edit().backward();
    EXPECT_EQ(browser.edit().getValue(), "The file can not be loaded: " + browser.page("one.html"));
    browser.edit().forward();
    EXPECT_EQ(browser.edit().getValue(), "to one");
}

TEST(GUI_BrowserEdit, ALinkToElsewhereOpensInTheDesktop)
{
    Desktop desktop("http");
    const TestBrowser browser;
    browser.directory().write("out.html", "<p><a href=\"http://localhost/a?b=1#c\">out</a></p>");
    browser.show();
    EXPECT_TRUE(browser.edit().setFile("out.html"));
    browser.followLink();
    EXPECT_EQ(desktop.mOpened, std::vector<std::string>{"http://localhost/a?b=1#c"});
    EXPECT_EQ(browser.status(), "http://localhost/a?b=1#c");
    EXPECT_EQ(browser.edit().getValue(), "out");
    EXPECT_FALSE(browser.edit().setFile("http://localhost/"));
    EXPECT_EQ(desktop.mOpened.size(), 2UL);
    EXPECT_EQ(browser.edit().getValue(), "out");
}

TEST(GUI_BrowserEdit, ALinkThatTheDesktopDoesNotOpenIsTold)
{
    const TestBrowser browser;
    browser.directory().write("out.html", "<p><a href=\"nobody:knows\">out</a></p>");
    browser.show();
    EXPECT_TRUE(browser.edit().setFile("out.html"));
    browser.followLink();
    EXPECT_EQ(browser.status(), "The link can not be opened: nobody:knows");
    EXPECT_EQ(browser.edit().getValue(), "out");
}

TEST(GUI_BrowserEdit, APlainTextIsShownAsItStands)
{
    const TestBrowser browser;
    browser.directory().write("notes.TXT", "if a<b && b<c\n  two\n");
    EXPECT_TRUE(browser.edit().setFile("notes.TXT"));
    EXPECT_EQ(browser.edit().getValue(), "if a<b && b<c\n  two");
    browser.directory().write("empty.html", "");
    EXPECT_TRUE(browser.edit().setFile("empty.html"));
    EXPECT_EQ(browser.edit().getValue(), "");
}

TEST(GUI_BrowserEdit, PicturesAreThoseBesideTheirPage)
{
    const TestBrowser browser;
    const std::string page = "<p><img src=\"picture.png\" width=\"64\" height=\"64\"></p>";
    browser.directory().write("red.html", page);
    std::filesystem::create_directory("deeper");
    browser.directory().write("deeper/green.html", page);
    writePicture(browser.directory(), "picture.png", Qt::red);
    writePicture(browser.directory(), "deeper/picture.png", Qt::green);
    browser.show();
    EXPECT_TRUE(browser.edit().setFile("red.html"));
    EXPECT_EQ(colorOfPicture(browser), QColor(Qt::red));
    EXPECT_TRUE(browser.edit().setFile("deeper/green.html"));
    EXPECT_EQ(colorOfPicture(browser), QColor(Qt::green));
    browser.edit().backward();
    EXPECT_EQ(colorOfPicture(browser), QColor(Qt::red));
    browser.edit().forward();
    EXPECT_EQ(colorOfPicture(browser), QColor(Qt::green));
}

TEST(GUI_BrowserEdit, LooksForPicturesInItsPathToo)
{
    const TestBrowser browser;
    EXPECT_EQ(browser.edit().searchPaths(), QStringList{"."});
    browser.edit().setPath("pictures");
    EXPECT_EQ(browser.edit().searchPaths(), QStringList{"pictures"});
}

TEST(GUI_BrowserEdit, TakesTheSharedFont)
{
    const QFont font("DejaVu Sans", 17);
    GUI_Object::setFontName(font.toString().toStdString());
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped edit(GUI_BrowserEdit::New(*panel, static_cast<unsigned char>(1)));
    GUI_Object::setFontName("");
    EXPECT_EQ(edit->font().pointSize(), 17);
    EXPECT_EQ(edit->getFlagId(), 1);
}
