#include "gui/GUI_Mnemonic.h"

#include "support/CaseName.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

struct MarkedLabel
{
    const char* mLabel;
    const char* mText;
    const char* mLetter;
    const char* mShortcut;
};

void PrintTo(const MarkedLabel& row, std::ostream* out)
{
    *out << caseName(row.mLabel);
}

class GUI_MnemonicOfLabel : public testing::TestWithParam<MarkedLabel>
{};

TEST_P(GUI_MnemonicOfLabel, IsTheCharacterAfterTheFirstMark)
{
    const QString label = QString::fromUtf8(GetParam().mLabel);

    EXPECT_EQ(GUI_Mnemonic::text(label).toStdString(), GetParam().mText);
    EXPECT_EQ(GUI_Mnemonic::letter(label).toStdString(), GetParam().mLetter);
    EXPECT_EQ(GUI_Mnemonic::shortcut(label).toString().toStdString(), GetParam().mShortcut);
}

INSTANTIATE_TEST_SUITE_P(Labels, GUI_MnemonicOfLabel,
                         testing::Values(MarkedLabel{"&Load File", "Load File", "L", "Ctrl+L"},
                                         MarkedLabel{"Load &file", "Load file", "f", "Ctrl+F"},
                                         MarkedLabel{"Load", "Load", "", ""},
                                         MarkedLabel{"", "", "", ""},
                                         MarkedLabel{"Load&", "Load", "", ""},
                                         MarkedLabel{"&", "", "", ""},
                                         MarkedLabel{"A && B", "A & B", "&", "Ctrl+&"},
                                         MarkedLabel{"&a &b", "a &b", "a", "Ctrl+A"},
                                         MarkedLabel{"\xc3\x89t&\xc3\xa9", "\xc3\x89t\xc3\xa9",
                                                     "\xc3\xa9", "Ctrl+\xc3\x89"}));

TEST(GUI_Mnemonic, TakesACharacterBeyondTheBasicPlaneWhole)
{
    const QString label = QString::fromUtf8("&\xf0\x9d\x90\x80x");
    EXPECT_EQ(GUI_Mnemonic::letter(label).toStdString(), "\xf0\x9d\x90\x80");
}
