#include "quorvexGui/QVG_Captor.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"

#include <gtest/gtest.h>

TEST(QVG_Captor, StartsWithTheFirstComponentAndOneEmptyMatrix)
{
    const COM_Scoped captor(QVG_Captor::New());
    EXPECT_EQ(captor->getReferenceCount(), 1);
    EXPECT_TRUE(captor->isEx());
    EXPECT_FALSE(captor->isEy());
    EXPECT_FALSE(captor->isEz());
    EXPECT_EQ(captor->getLocation(), 0UL);
    EXPECT_EQ(captor->getLastIndex(), 0UL);
    EXPECT_EQ(captor->getEDimension(), 1UL);
    EXPECT_EQ(captor->getBlochEquationsNumber(), 1UL);
    EXPECT_EQ(captor->getRhoSize(), 1UL);
    EXPECT_FALSE(captor->isRho(0, 0, 0));
    EXPECT_EQ(captor->getPosition().getDimension(), 1UL);
}

TEST(QVG_Captor, TextTellsEverythingLineByLine)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setEx(false);
    captor->setEy(true);
    captor->setLocation(120);
    captor->setRelativePosition(0.25);
    captor->setPosition(1.5, -2.0);
    captor->setEDimension(2);
    captor->setRhoSize(2);
    captor->setBlochEquationsNumber(2);
    captor->setRhoVisible(1, 0, 1, true);
    EXPECT_EQ(captor->toString(), captor->getIdentityString()
                                      + ":\n"
                                        "\t ShowEx:0\n"
                                        "\t ShowEy:1\n"
                                        "\t ShowEz:0\n"
                                        "\t Location:120\n"
                                        "\t RelativePosition:2.500000e-01\n"
                                        "\t Position:(1.500000e+00,-2.000000e+00)\n"
                                        "\t ShowRho:\n"
                                        "0\t0\t\n0\t0\t\n"
                                        "0\t1\t\n0\t0\t\n"
                                        "\t EDim:\n"
                                        "2\n");
}

TEST(QVG_Captor, EachComponentHasASwitchAndALineOfItsOwn)
{
    for (const int component : {0, 1, 2}) {
        const COM_Scoped captor(QVG_Captor::New());
        captor->setEx(component == 0);
        captor->setEy(component == 1);
        captor->setEz(component == 2);
        EXPECT_EQ(captor->isEx(), component == 0);
        EXPECT_EQ(captor->isEy(), component == 1);
        EXPECT_EQ(captor->isEz(), component == 2);
        const std::string text = captor->toString();
        const char* const lines[] = {"\t ShowEx:1\n", "\t ShowEy:1\n", "\t ShowEz:1\n"};
        for (const int line : {0, 1, 2}) {
            EXPECT_EQ(text.find(lines[line]) != std::string::npos, line == component) << text;
        }
    }
}

TEST(QVG_Captor, PositionsHaveOneTwoOrThreeCoordinates)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setPosition(1.0, 2.0, 3.0);
    EXPECT_EQ(captor->getPosition().toString(), "(1.000000e+00,2.000000e+00,3.000000e+00)");
    captor->setPosition(4.0);
    EXPECT_EQ(captor->getPosition().toString(), "(4.000000e+00)");
    captor->setPosition(5.0, 6.0);
    EXPECT_EQ(captor->getPosition().toString(), "(5.000000e+00,6.000000e+00)");
    captor->setPosition(std::vector<double>());
    EXPECT_EQ(captor->getPosition().toString(), "()");
}

TEST(QVG_Captor, BeyondTheMatrixTheLastRowAndColumnAnswer)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setRhoSize(3);
    EXPECT_FALSE(captor->isRho(0, 99, 99));
    captor->setRhoVisible(0, 2, 2, true);
    EXPECT_TRUE(captor->isRho(0, 99, 99));
    EXPECT_TRUE(captor->isRho(0, 2, 99));
    EXPECT_FALSE(captor->isRho(0, 1, 99));
    captor->setRhoVisible(0, 99, 0, true);
    EXPECT_TRUE(captor->isRho(0, 2, 0));
    EXPECT_EQ(captor->getShowRho(0)->getValue(2, 0), 1UL);
    captor->setRhoVisible(0, 2, 0, false);
    EXPECT_FALSE(captor->isRho(0, 2, 0));
}

TEST(QVG_Captor, BeyondTheLastSystemThereIsNothing)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setRhoVisible(1, 0, 0, true);
    EXPECT_FALSE(captor->isRho(1, 0, 0));
    EXPECT_FALSE(captor->isRho(0, 0, 0));
    EXPECT_EQ(captor->getShowRho(1), nullptr);
}

TEST(QVG_Captor, ANewSizeErasesTheMarksAndKeepsTheMatrices)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setRhoSize(3);
    captor->setRhoVisible(0, 1, 1, true);
    const LA_IntegerMatrix* const marks = captor->getShowRho(0);
    captor->setRhoSize(3);
    EXPECT_FALSE(captor->isRho(0, 1, 1));
    captor->setRhoVisible(0, 1, 1, true);
    captor->setRhoSize(4);
    EXPECT_EQ(captor->getShowRho(0), marks);
    EXPECT_EQ(marks->getLinesNumber(), 4UL);
    EXPECT_EQ(marks->getColumnsNumber(), 4UL);
    EXPECT_EQ(marks->norm2(), 0.0);
    EXPECT_EQ(captor->getRhoSize(), 4UL);
}

TEST(QVG_Captor, ANewNumberOfSystemsErasesTheMarksAndKeepsTheSize)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setRhoSize(3);
    captor->setRhoVisible(0, 1, 1, true);
    captor->setBlochEquationsNumber(4);
    EXPECT_EQ(captor->getBlochEquationsNumber(), 4UL);
    EXPECT_EQ(captor->getRhoSize(), 3UL);
    EXPECT_FALSE(captor->isRho(0, 1, 1));
    EXPECT_EQ(captor->getShowRho(3)->getLinesNumber(), 3UL);
}

TEST(QVG_Captor, WithoutSystemsThereIsNoSize)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setRhoSize(3);
    captor->setBlochEquationsNumber(0);
    EXPECT_EQ(captor->getBlochEquationsNumber(), 0UL);
    EXPECT_EQ(captor->getRhoSize(), 0UL);
    EXPECT_EQ(captor->getShowRho(0), nullptr);
    EXPECT_FALSE(captor->isRho(0, 0, 0));
    captor->setRhoSize(5);
    captor->setBlochEquationsNumber(2);
    EXPECT_EQ(captor->getRhoSize(), 0UL);
    EXPECT_FALSE(captor->isRho(0, 0, 0));
    captor->setRhoVisible(0, 0, 0, true);
    EXPECT_FALSE(captor->isRho(0, 0, 0));
}

// A few bytes of a damaged file could ask for it.
TEST(QVG_Captor, MatricesThatNobodyLooksAtTakeNoMemory)
{
    const COM_Scoped captor(QVG_Captor::New());
    captor->setRhoSize(1000);
    captor->setBlochEquationsNumber(100000); // 800 gigabytes of marks
    EXPECT_FALSE(captor->isRho(99999, 999, 999));
    EXPECT_FALSE(captor->hasMarks(99999));
    captor->setRhoVisible(1, 5, 6, true);
    EXPECT_TRUE(captor->hasMarks(1));
    EXPECT_TRUE(captor->isRho(1, 5, 6));
}
