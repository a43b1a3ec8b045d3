#include "gui/GUI_RichTextPrinter.h"

#include "RecordingPrinter.h"
#include "support/TestDirectory.h"

#include <QImage>
#include <QPageRanges>
#include <QTextDocument>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

// A4 at 96 points to the inch.
constexpr double paperWidth = 793.7;
constexpr double paperHeight = 1122.5;
constexpr double margin = 96.0 / 2.54 * 2.0; ///< Two centimetres.

QTextDocument& setLines(QTextDocument& text, int number)
{
    QString lines;
    for (int i = 1; i <= number; ++i) {
        lines += QString("line %1\n").arg(i);
    }
    text.setPlainText(lines.trimmed());
    return text;
}

/// The number of pages in a file, from its table of them.
int pagesIn(const std::string& pdf)
{
    const std::string key = "/Count ";
    const std::size_t place = pdf.find(key);
    return place == std::string::npos ? -1 : std::stoi(pdf.substr(place + key.size()));
}

} // namespace

TEST(GUI_RichTextPrinter, EachPageHasItsNumberAtItsFootAndAllLinesAreThereOnce)
{
    QTextDocument text;
    RecordingPrinter printer;
    GUI_RichTextPrinter::print(setLines(text, 200), printer);
    ASSERT_GE(printer.pages().size(), 3U);
    int line = 0;
    for (std::size_t i = 0; i < printer.pages().size(); ++i) {
        const std::vector<RecordingPrinter::Text>& texts = printer.pages()[i].mTexts;
        ASSERT_GE(texts.size(), 2U);
        const RecordingPrinter::Text& number = texts.back();
        EXPECT_EQ(number.mText, QString::number(i + 1));
        EXPECT_GT(number.mPlace.y(), paperHeight - margin);
        EXPECT_LT(number.mPlace.y(), paperHeight);
        EXPECT_GT(number.mPlace.x(), paperWidth / 2.0);
        EXPECT_LT(number.mPlace.x(), paperWidth - margin / 2.0);
        for (std::size_t j = 0; j + 1 < texts.size(); ++j) {
            EXPECT_EQ(texts[j].mText, QString("line %1").arg(++line));
            EXPECT_NEAR(texts[j].mPlace.x(), margin, 1.0); // margins are whole pixels
            EXPECT_GT(texts[j].mPlace.y(), margin);
            EXPECT_LT(texts[j].mPlace.y(), paperHeight - margin);
        }
    }
    EXPECT_EQ(line, 200);
}

TEST(GUI_RichTextPrinter, AnEmptyTextIsOnePage)
{
    const QTextDocument text;
    RecordingPrinter printer;
    GUI_RichTextPrinter::print(text, printer);
    ASSERT_EQ(printer.pages().size(), 1U);
    ASSERT_EQ(printer.pages()[0].mTexts.size(), 1U);
    EXPECT_EQ(printer.pages()[0].mTexts[0].mText, "1");
}

TEST(GUI_RichTextPrinter, TheLinesAreThoseOfThePaperWhateverTheWindow)
{
    QTextEdit window;
    window.resize(100, 100);
    window.setPlainText(QString("word ").repeated(10));
    window.show();
    RecordingPrinter printer;
    GUI_RichTextPrinter::print(*window.document(), printer);
    ASSERT_EQ(printer.pages().size(), 1U);
    EXPECT_EQ(printer.pages()[0].mTexts.size(), 2U) << "one line and the number";
}

TEST(GUI_RichTextPrinter, PrintsTheChosenPagesOnly)
{
    QTextDocument text;
    RecordingPrinter printer;
    QPageRanges ranges;
    ranges.addPage(2);
    printer.setPageRanges(ranges);
    GUI_RichTextPrinter::print(setLines(text, 200), printer);
    ASSERT_EQ(printer.pages().size(), 1U);
    EXPECT_EQ(printer.pages()[0].mTexts.back().mText, "2");
}

TEST(GUI_RichTextPrinter, PrintsThePicturesThatTheWindowLoads)
{
    class PictureText : public QTextEdit
    {
    public:
        QVariant loadResource(int /*type*/, const QUrl& /*name*/) override
        {
            QImage picture(8, 8, QImage::Format_RGB32);
            picture.fill(Qt::red);
            return picture;
        }
    };
    PictureText window;
    window.setHtml("<img src=\"any.png\">");
    RecordingPrinter printer;
    GUI_RichTextPrinter::print(*window.document(), printer);
    ASSERT_EQ(printer.pages().size(), 1U);
    EXPECT_EQ(printer.pages()[0].mPictures, 1);
}

TEST(GUI_RichTextPrinter, AFileHasAsManyPagesAsTheTextNeeds)
{
    const TestDirectory directory;
    const auto pages = [&directory](int lines) {
        QTextDocument text;
        QPrinter printer(QPrinter::ScreenResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setOutputFileName(QString::fromStdString(directory.file("a.pdf")));
        GUI_RichTextPrinter::print(setLines(text, lines), printer);
        return pagesIn(directory.read("a.pdf"));
    };
    EXPECT_EQ(pages(1), 1);
    EXPECT_GE(pages(200), 3);
}

TEST(GUI_RichTextPrinter, APrinterThatCannotBeginGetsNothing)
{
    const TestDirectory directory;
    QTextDocument text;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(directory.file("none/a.pdf")));
    GUI_RichTextPrinter::print(setLines(text, 3), printer);
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}
