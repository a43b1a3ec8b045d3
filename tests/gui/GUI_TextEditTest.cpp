#include "gui/GUI_TextEdit.h"

#include "support/TestPanel.h"

#include <QPointer>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <functional>

namespace {

/// The text that comes out when a text is set, changed and taken, and again what that shows.
class Trip
{
public:
    explicit Trip(const std::string& value) { text().setValue(value); }

    GUI_TextEdit& text() const { return mText; }
    /// Makes a change that leaves the text as it is, but for what the field remembers of it.
    void touch() const
    {
        text().moveCursor(QTextCursor::End);
        QTest::keyClick(&text(), Qt::Key_A);
        QTest::keyClick(&text(), Qt::Key_Backspace);
    }
    std::string afterTouch() const
    {
        touch();
        return text().getValue();
    }
    bool isHtml() const { return text().getValue().starts_with("<!DOCTYPE HTML"); }
    /// Shows what was taken from the field.
    void again() const { text().setValue(text().getValue()); }

private:
    TestForm mForm;
    GUI_TextEdit& mText = mForm.add<GUI_TextEdit>();
};

QTextCharFormat formatAt(const GUI_TextEdit& text, int position)
{
    QTextCursor cursor(text.document());
    cursor.setPosition(position + 1);
    return cursor.charFormat();
}

} // namespace

TEST(GUI_TextEdit, ReportsEachChangeAndReturnOnceMore)
{
    const TestForm form;
    auto& text = form.add<GUI_TextEdit>(6);
    form.show();
    EXPECT_TRUE(text.instanceOf("GUI_TextEdit"));
    QTest::keyClick(&text, Qt::Key_A);
    EXPECT_EQ(form->mFlags, std::vector<int>{6});
    EXPECT_EQ(form->mValues, std::vector<std::string>{"a"});
    QTest::keyClick(&text, Qt::Key_Left);
    EXPECT_EQ(form->mFlags.size(), 1U);
    form->forget();
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"\na", "\na"}));
    form->forget();
    QTest::keyClick(&text, Qt::Key_Enter);
    EXPECT_EQ(form->mFlags, (std::vector<int>{6, 6}));
}

TEST(GUI_TextEdit, ForwardsItsStateAndItsToolTip)
{
    const TestForm form;
    auto& text = form.add<GUI_TextEdit>();
    text.setEnabled(false);
    EXPECT_FALSE(text.isEnabled());
    text.setEnabled(true);
    EXPECT_TRUE(text.isEnabled());
    text.setTooltipText("what it is");
    EXPECT_EQ(text.toolTip(), "what it is");
}

TEST(GUI_TextEdit, GivesBackWhatIsUnchangedToTheByte)
{
    for (const std::string value :
         {"", "\n", "plain", "  leading\ttab  ", "a\nb\n", "a\r\nb\r\n", "a\nb\r\nc\rd",
          "\xef\xbb\xbfmarked", "\xc3\xa9t\xc3\xa9 \xc2\xa0!", "one\xe2\x80\xa8two",
          "<b>by hand</b> <script>x</script>", "<!-- only -->"}) {
        const Trip trip(value);
        EXPECT_EQ(trip.text().getValue(), value);
        EXPECT_FALSE(trip.text().isModified());
    }
}

TEST(GUI_TextEdit, PlainTextStaysPlainWhenItIsChanged)
{
    for (const std::string value :
         {"", "\n", "plain", "  leading\ttab  ", "a\nb\n", "a < b, c > d & e",
          "\xc3\xa9t\xc3\xa9\xc2\xa0!", "\xf0\x9f\x94\xac"}) {
        EXPECT_EQ(Trip(value).afterTouch(), value);
    }
}

TEST(GUI_TextEdit, LineEndsAndTheMarkAtTheStartAreThoseThatWereGiven)
{
    EXPECT_EQ(Trip("a\r\nb\r\n").afterTouch(), "a\r\nb\r\n");
    EXPECT_EQ(Trip("\xef\xbb\xbf"
                   "a\r\nb")
                  .afterTouch(),
              "\xef\xbb\xbf"
              "a\r\nb");
    EXPECT_EQ(Trip("a\r\nb\nc").afterTouch(), "a\nb\nc") << "no end is that of all";
    EXPECT_EQ(Trip("\nb\r\n").afterTouch(), "\nb\n");
    EXPECT_EQ(Trip("a\rb").afterTouch(), "a\nb");
    const Trip trip("a");
    QTest::keyClick(&trip.text(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(trip.text().getValue(), "\na");
}

TEST(GUI_TextEdit, FormatsMakeHtmlAndComeBack)
{
    using Change = std::function<void(GUI_TextEdit&)>;
    const Change changes[] = {
        [](GUI_TextEdit& text) { text.setFontWeight(QFont::Bold); },
        [](GUI_TextEdit& text) { text.setFontItalic(true); },
        [](GUI_TextEdit& text) { text.setFontUnderline(true); },
        [](GUI_TextEdit& text) { text.setTextColor(Qt::red); },
        [](GUI_TextEdit& text) { text.setAlignment(Qt::AlignRight); },
        [](GUI_TextEdit& text) { text.setAlignment(Qt::AlignHCenter); },
        [](GUI_TextEdit& text) { text.textCursor().createList(QTextListFormat::ListDisc); },
        [](GUI_TextEdit& text) { text.textCursor().insertTable(2, 2); },
        [](GUI_TextEdit& text) { text.textCursor().insertHtml("<hr>"); },
        [](GUI_TextEdit& text) {
            text.document()->setMetaInformation(QTextDocument::DocumentTitle, "t");
            text.insertPlainText("x");
        },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        const Trip trip("one  two\nthree");
        trip.text().selectAll();
        changes[i](trip.text());
        EXPECT_TRUE(trip.isHtml()) << i;
        QTextDocument html;
        html.setHtml(trip.text().toHtml());
        trip.again();
        EXPECT_EQ(trip.text().toPlainText(), html.toPlainText()) << i;
        trip.touch();
        EXPECT_TRUE(trip.isHtml()) << i;
    }
}

TEST(GUI_TextEdit, ABoldWordIsBoldAfterTheRoundTripAndTheOthersAreNot)
{
    const Trip trip("one two");
    QTextCursor cursor = trip.text().textCursor();
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    trip.text().setTextCursor(cursor);
    trip.text().setFontWeight(QFont::Bold);
    trip.again();
    EXPECT_EQ(trip.text().toPlainText(), "one two");
    EXPECT_EQ(formatAt(trip.text(), 0).fontWeight(), QFont::Bold);
    EXPECT_EQ(formatAt(trip.text(), 5).fontWeight(), QFont::Normal);
}

TEST(GUI_TextEdit, FormatsThatAreTakenBackLeavePlainText)
{
    const Trip trip("one\ntwo");
    trip.text().selectAll();
    for (const bool isOn : {true, false}) {
        trip.text().setFontWeight(isOn ? QFont::Bold : QFont::Normal);
        trip.text().setFontItalic(isOn);
        trip.text().setFontUnderline(isOn);
        trip.text().setAlignment(isOn ? Qt::AlignRight : Qt::AlignLeft);
    }
    EXPECT_EQ(trip.text().getValue(), "one\ntwo");
}

TEST(GUI_TextEdit, TypedTextThatLooksLikeHtmlComesBackAsTyped)
{
    const Trip trip("");
    QTest::keyClicks(&trip.text(), "<b>not bold</b> &amp;");
    EXPECT_TRUE(trip.isHtml());
    trip.again();
    EXPECT_EQ(trip.text().toPlainText(), "<b>not bold</b> &amp;");
    EXPECT_EQ(formatAt(trip.text(), 5).fontWeight(), QFont::Normal);
}

TEST(GUI_TextEdit, ATextThatIsSetTakesNoFormatOfTheOneBefore)
{
    const Trip trip("one");
    trip.text().selectAll();
    trip.text().setFontWeight(QFont::Bold);
    trip.text().setFontItalic(true);
    trip.text().setAlignment(Qt::AlignRight);
    trip.text().moveCursor(QTextCursor::End);
    trip.text().setValue("two");
    EXPECT_EQ(trip.afterTouch(), "two");
    trip.text().setFontWeight(QFont::Bold);
    trip.text().setValue("");
    EXPECT_EQ(trip.text().fontWeight(), QFont::Normal);
    EXPECT_EQ(trip.text().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft | Qt::AlignLeading);
}

TEST(GUI_TextEdit, SettingATextForgetsWhatCouldBeUndone)
{
    const Trip trip("one");
    trip.touch();
    EXPECT_TRUE(trip.text().isModified());
    trip.text().setValue("two");
    EXPECT_FALSE(trip.text().isModified());
    EXPECT_FALSE(trip.text().document()->isUndoAvailable());
    trip.touch();
    trip.text().setModified(false);
    EXPECT_FALSE(trip.text().isModified());
    EXPECT_EQ(trip.text().getValue(), "two");
}

TEST(GUI_TextEdit, TheShownFormatIsThatOfTheSelectionWhereverTheCursorStands)
{
    const Trip trip("one <b>two</b>");
    const auto isBold = [&trip](int anchor, int end) {
        QTextCursor cursor = trip.text().textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        trip.text().setTextCursor(cursor);
        return trip.text().getShownFormat().fontWeight() == QFont::Bold;
    };
    EXPECT_TRUE(isBold(4, 7));
    EXPECT_TRUE(isBold(7, 4));
    EXPECT_FALSE(isBold(0, 7));
    EXPECT_FALSE(isBold(7, 0));
    EXPECT_TRUE(isBold(6, 6));
    EXPECT_FALSE(isBold(2, 2));
    trip.text().setFontWeight(QFont::Bold);
    EXPECT_EQ(trip.text().getShownFormat().fontWeight(), QFont::Bold) << "of what is typed next";
}
