#include "common/COM_Out.h"

#include "common/COM_Scoped.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

/// Keeps what it is given, in place of printing it.
class TestOut : public COM_Out
{
    COM_CLASS(TestOut)
public:
    void printInt(int value) override { mTexts.push_back("i" + std::to_string(value)); }
    void printReal(double value) override { mTexts.push_back("r" + std::to_string(value)); }
    void printString(const std::string& text) override { mTexts.push_back("s" + text); }

    std::vector<std::string> mTexts;

protected:
    TestOut() { COM_TYPE(TestOut); }
    ~TestOut() override = default;
};

TEST(COM_Out, TheThreeOperationsPrintToStandardOutputAndAppendNothing)
{
    const COM_Scoped out(COM_Out::New());
    EXPECT_EQ(out->getReferenceCount(), 1);
    EXPECT_EQ(out->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Out"}));
    EXPECT_EQ(printedBy([&out] {
                  out->printInt(-5);
                  out->printReal(0.5);
                  out->printReal(INFINITY);
                  out->printString("text");
                  out->printString("");
                  out->printString("\n");
              }),
              "-55.000000e-01     inftext\n");
}

TEST(COM_Out, EveryTypeOfValueCanBePrinted)
{
    const COM_Scoped out(COM_Out::New());
    EXPECT_EQ(printedBy([&out] {
                  out->print(std::string("a,"));
                  out->print(7UL);
                  out->print(std::string(","));
                  out->print(-7L);
                  out->print(std::string(","));
                  out->print(1e100);
              }),
              "a,7,-7,1.000000e+100");
}

TEST(COM_Out, IntegersThatAnIntCannotHoldArePrintedWhole)
{
    const COM_Scoped out(COM_Out::New());
    EXPECT_EQ(printedBy([&out] { out->print(2147483647L); }), "2147483647");
    EXPECT_EQ(printedBy([&out] { out->print(2147483648L); }), "2147483648");
    EXPECT_EQ(printedBy([&out] { out->print(-2147483649L); }), "-2147483649");
    EXPECT_EQ(printedBy([&out] { out->print(18446744073709551615UL); }), "18446744073709551615");
}

TEST(COM_Out, AnHeirRedirectsEverything)
{
    const COM_Scoped heir(TestOut::New());
    COM_Out& out = *heir;
    EXPECT_EQ(printedBy([&out] {
                  out.print(std::string("text"));
                  out.print(7UL);
                  out.print(-7L);
                  out.print(0.5);
                  out.print(2147483648L);
                  out.print(18446744073709551615UL);
                  out.printInt(1);
              }),
              "");
    EXPECT_EQ(heir->mTexts,
              (std::vector<std::string>{"stext", "i7", "i-7", "r0.500000", "s2147483648",
                                        "s18446744073709551615", "i1"}));
}
