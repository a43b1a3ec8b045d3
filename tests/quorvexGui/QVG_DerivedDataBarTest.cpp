#include "quorvexGui/QVG_DerivedDataBar.h"

#include "gui/GUI_Object.h"
#include "quorvex/QV_DerivedData.h"
#include "support/EnglishTexts.h"
#include "support/TestProblem.h"

#include <QCoreApplication>
#include <QLabel>

#include <gtest/gtest.h>

#include <string>

namespace {

class QVG_DerivedDataBarTest : public testing::Test
{
protected:
    void show(int width)
    {
        mBar.setData(QV_DerivedData(*mProblem));
        mBar.resize(width > 0 ? width : mBar.wholeWidth(), mBar.sizeHint().height());
        mBar.show();
        QCoreApplication::processEvents();
    }
    std::string line(int number) const
    {
        return mBar.findChildren<QLabel*>().at(number)->text().toStdString();
    }
    std::string all() const { return mBar.toolTip().toStdString(); }

    EnglishTexts mEnglish;
    TestProblem mProblem;
    QVG_DerivedDataBar mBar;
};

} // namespace

TEST_F(QVG_DerivedDataBarTest, HasTwoLinesOfQuantitiesWithUnits)
{
    show(0);
    EXPECT_EQ(line(0), "Rabi frequency = 8.1e+14 1/s   Pulse area = 0.1619 \xcf\x80   "
                       "Time step = 2e-16 s (0.04 carrier periods)");
    EXPECT_EQ(line(1), "Nodes = 20 (17 active)   Run = 4e-15 s   Transit = 5.13e-15 s   "
                       "Memory = 29.5 kB   Estimated time = 0.00044 s");
}

TEST_F(QVG_DerivedDataBarTest, TheToolTipHasAQuantityALine)
{
    show(0);
    EXPECT_EQ(all(), "Rabi frequency = 8.1e+14 1/s\nPulse area = 0.1619 \xcf\x80\n"
                     "Time step = 2e-16 s (0.04 carrier periods)\nNodes = 20 (17 active)\n"
                     "Run = 4e-15 s\nTransit = 5.13e-15 s\nMemory = 29.5 kB\n"
                     "Estimated time = 0.00044 s");
}

TEST_F(QVG_DerivedDataBarTest, QuantitiesWithoutAFiniteValueAreCalledSo)
{
    mProblem.wave().setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    mProblem->setWaveLength(0.0);
    mProblem.milieu().setIndice(0.0);
    show(0);
    EXPECT_EQ(all(), "Rabi frequency = 8.1e+14 1/s\nPulse area = not finite\nTime step = 0 s\n"
                     "Nodes = not finite\nRun = 0 s\nTransit = not finite\nMemory = not finite\n"
                     "Estimated time = not finite");
}

TEST_F(QVG_DerivedDataBarTest, TimesToWaitHaveUnitsThatTell)
{
    mProblem.setNodes(1000000);
    const char* const texts[] = {" s", " min", " h", " d"};
    unsigned long steps = 1000;
    for (const char* const text : texts) {
        mProblem->setMaxTimeStepsNumber(steps);
        show(0);
        EXPECT_TRUE(all().ends_with(text)) << all();
        steps *= 50;
    }
    EXPECT_NE(all().find("Memory = 1.47 GB"), std::string::npos) << all();
}

TEST_F(QVG_DerivedDataBarTest, LinesThatDoNotFitAreCutWithDots)
{
    show(300);
    for (const int number : {0, 1}) {
        EXPECT_TRUE(line(number).ends_with("\xe2\x80\xa6")) << line(number);
        const QLabel* const label = mBar.findChildren<QLabel*>().at(number);
        EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
    }
    EXPECT_TRUE(all().ends_with("Estimated time = 0.00044 s"));
    mBar.resize(mBar.wholeWidth(), mBar.height());
    EXPECT_TRUE(line(1).ends_with("Estimated time = 0.00044 s"));
}

TEST_F(QVG_DerivedDataBarTest, AtItsWholeWidthNothingIsCutInAnyLanguage)
{
    for (unsigned char lang = 0; lang < 6; ++lang) {
        GUI_Object::setLang(lang);
        show(0);
        for (const int number : {0, 1}) {
            EXPECT_FALSE(line(number).ends_with("\xe2\x80\xa6")) << line(number);
        }
        EXPECT_LE(mBar.wholeWidth(), 1000) << line(1);
    }
}
