#include "quorvexGui/QVG_CheckView.h"

#include "quorvexGui/TestMainWindow.h"

#include <gtest/gtest.h>

namespace {

const std::vector<QV_ProblemCheck::Finding> findings{
    {QV_ProblemCheck::HARMS,
     "C.F.L.",
     "0",
     "the time step has no length; 0.8 is usual, 1 the limit.",
     {}},
    {QV_ProblemCheck::NOTE,
     "Number of Points by Wave Length",
     "5",
     "below %1 points the light travels noticeably too slow.",
     {"10"}},
    {QV_ProblemCheck::NOTE, "<b>", "&amp;", "%1 & %2", {"a < b"}},
};

} // namespace

TEST(QVG_CheckView, FindingsStandUnderTheirGrades)
{
    const TestMainWindow window;
    const QVG_CheckView view(findings);
    EXPECT_EQ(
        view.toPlainText().toStdString(),
        "harms\nC.F.L. = 0: the time step has no length; 0.8 is usual, 1 the limit.\nnotes\n"
        "Number of Points by Wave Length = 5: below 10 points the light travels noticeably too "
        "slow.\n<b> = &amp;: a < b & %2");
    EXPECT_TRUE(view.isReadOnly());
}

TEST(QVG_CheckView, FindingsAreTranslated)
{
    const TestMainWindow window;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const QString text = QVG_CheckView(findings).toPlainText();
    const auto translated = [](const char* key) {
        return GUI_Object::toQString(GUI_Object::translate(key));
    };
    ASSERT_NE(translated("harms"), "harms");
    ASSERT_NE(translated("Number of Points by Wave Length"), "Number of Points by Wave Length");
    EXPECT_TRUE(text.startsWith(translated("harms") + "\n"));
    EXPECT_TRUE(text.contains("\n" + translated("notes") + "\n"));
    EXPECT_TRUE(text.contains(
        translated("Number of Points by Wave Length") + " = 5: "
        + translated("below %1 points the light travels noticeably too slow.").replace("%1", "10")))
        << text.toStdString();
}
