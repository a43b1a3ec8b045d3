#include "gui2d/GUI2D_Texts.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPicture>

#include <gtest/gtest.h>

#include <functional>

namespace {

const QStringList someTexts = {"1.234500e-06",
                               "\u00c9lectrique",
                               "Ex(VA) \u03c1",
                               "\u65f6\u95f4",
                               " ( ",
                               "AVA To",
                               "a\tb",
                               "two\nlines",
                               "",
                               "<b>&amp;</b>"};

QImage pictureBy(const QFont& font, double ratio, const std::function<void(QPainter&)>& draw)
{
    QImage image(QSize(300, 60) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    draw(painter);
    return image;
}

} // namespace

TEST(GUI2D_Texts, AreDrawnAsAPainterDrawsThem)
{
    GUI2D_Texts texts;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (const int size : {8, 10, 17}) {
            const QFont font("Sans Serif", size);
            for (const QString& text : someTexts) {
                const auto plain = [&](QPainter& painter) { painter.drawText(11, 33, text); };
                const auto ours = [&](QPainter& painter) { texts.draw(painter, 11, 33, text); };
                const QImage expected = pictureBy(font, ratio, plain);
                EXPECT_EQ(pictureBy(font, ratio, ours), expected) << text.toStdString();
                // The layout that is kept looks the same.
                EXPECT_EQ(pictureBy(font, ratio, ours), expected) << text.toStdString();
            }
        }
    }
}

TEST(GUI2D_Texts, AreAsWideAsTheFontSays)
{
    GUI2D_Texts texts;
    for (const int size : {8, 10, 17}) {
        const QFont font("Sans Serif", size);
        for (const QString& text : someTexts) {
            EXPECT_EQ(texts.getWidth(font, text), QFontMetrics(font).horizontalAdvance(text));
        }
    }
}

TEST(GUI2D_Texts, ManyAreKeptApart)
{
    GUI2D_Texts texts;
    const QFont font;
    for (int i = 0; i < 3000; ++i) {
        const QString text = QString::number(7 * i * i);
        ASSERT_EQ(texts.getWidth(font, text), QFontMetrics(font).horizontalAdvance(text));
    }
}

TEST(GUI2D_Texts, ADeviceWithoutPixelsGetsThePlainText)
{
    const auto recorded = [](const std::function<void(QPainter&)>& draw) {
        QPicture record;
        QPainter painter(&record);
        draw(painter);
        painter.end();
        return QByteArray(record.data(), static_cast<int>(record.size()));
    };
    GUI2D_Texts texts;
    EXPECT_EQ(recorded([&](QPainter& painter) { texts.draw(painter, 11, 33, "1.5"); }),
              recorded([](QPainter& painter) { painter.drawText(11, 33, "1.5"); }));
}
