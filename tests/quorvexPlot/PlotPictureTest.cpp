#include "quorvexPlot/PlotPicture.h"

#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvexPlot/PlotError.h"
#include "quorvexPlot/PlotOptions.h"
#include "quorvexPlot/PlotResults.h"
#include "quorvexPlot/SavedResults.h"
#include "support/EnglishTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;
using Values = std::vector<double>;

Values valuesOf(const LA_RealVector* vector)
{
    return {vector->getValues(), vector->getValues() + vector->getDimension()};
}

/// The command line that draws these results as PNG.
PlotOptions optionsFor(const SavedResults& saved, const Texts& words)
{
    Texts all{"quorvex-plot", saved.path(), "-o", "a.png"};
    all.insert(all.end(), words.begin(), words.end());
    std::vector<char*> arguments;
    for (std::string& word : all) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    return PlotOptions::parse(static_cast<int>(all.size()), arguments.data());
}

/// A plotter with the picture of results, texts in English.
class Drawn
{
public:
    explicit Drawn(const SavedResults& saved, const Texts& words = {})
    {
        const PlotOptions options = optionsFor(saved, words);
        PlotPicture::draw(PlotResults(options), options, *mPlotter);
    }
    GUI2D_Plotter& operator*() const { return *mPlotter; }
    GUI2D_Plotter* operator->() const { return mPlotter.get(); }
    const GUI2D_Curve& curve(unsigned long i) const { return mPlotter->getCurves()[i]; }
    Values x(unsigned long i) const { return valuesOf(curve(i).getXValues()); }
    Values y(unsigned long i) const { return valuesOf(curve(i).getYValues()); }
    Texts names() const
    {
        Texts texts;
        for (unsigned long i = 0; i < mPlotter->getPlotsNumber(); ++i) {
            texts.push_back(curve(i).getName());
        }
        return texts;
    }

private:
    const EnglishTexts mEnglish;
    const COM_Scoped<GUI2D_Plotter> mPlotter{GUI2D_Plotter::New()};
};

/// The field of a captor, a wave of `periods` periods over `steps` steps.
void writeWave(const SavedResults& saved, int steps, int periods)
{
    std::string text;
    for (int s = 0; s < steps; ++s) {
        char line[64];
        std::snprintf(line, sizeof line, "%d %.15e \n", s,
                      std::cos(2.0 * std::numbers::pi * periods * s / steps));
        text += line;
    }
    saved.write("E_at_10.res", text);
}

} // namespace

TEST(PlotPicture, CurvesAreCalledAndColouredAsInTheVisualization)
{
    const SavedResults saved(3, 2);
    const Drawn drawn(saved, {"--captor=1", "--captor=3", "--field=Ex,Ey", "--density=1,0"});
    EXPECT_EQ(drawn.names(),
              (Texts{"Ex at Captor 1", "Ey at Captor 1", "Bloch Eq:0 Rho[1][0] at Captor 1",
                     "Ex at Captor 3", "Ey at Captor 3", "Bloch Eq:0 Rho[1][0] at Captor 3"}));
    EXPECT_EQ(drawn->getTitle(), "Quorvex Solutions");
    EXPECT_EQ(drawn->getXLabel(), "Times");
    EXPECT_EQ(drawn->getYLabel(), "E Fields Rho Fields");
    EXPECT_EQ(drawn.curve(0).getColor()->getRed(), 255);
    EXPECT_EQ(drawn.curve(3).getColor()->getBlue(), 85); // a third of the way from red to blue
    EXPECT_EQ(drawn.curve(5).getColor()->getBlue(), 1 + 254 * 2 / 3);
}

TEST(PlotPicture, CurvesHaveTheValuesOverTheSeconds)
{
    const SavedResults saved(2, 2);
    const Drawn drawn(saved, {"--field=Ey", "--density=0,1"});
    EXPECT_EQ(drawn.x(0), SavedResults::seconds());
    EXPECT_EQ(drawn.y(2)[1], SavedResults::field(1, 1, 1));
    EXPECT_NEAR(drawn.y(3)[1], SavedResults::density(1, 0, 1), 1e-6);
}

TEST(PlotPicture, NormalizedFieldsReachOne)
{
    const SavedResults saved(2);
    const Drawn drawn(saved, {"--normalize"});
    EXPECT_EQ(drawn.y(1)[0], -1.0);
    EXPECT_EQ(drawn.y(0)[0], -0.5);
    EXPECT_EQ(drawn->getTitle(), "Quorvex Solutions (E Normalized by 3.000000e+09)");
}

TEST(PlotPicture, ATitleOfTheUserStandsAlone)
{
    const SavedResults saved;
    EXPECT_EQ(Drawn(saved, {"--title=Mine", "--log=y", "--normalize"})->getTitle(), "Mine");
    EXPECT_EQ(Drawn(saved, {"--title="})->getTitle(), "");
}

TEST(PlotPicture, LogarithmsAreDecimalAndOfAbsoluteValues)
{
    const SavedResults saved(1);
    const Drawn drawn(saved, {"--log=xy"});
    EXPECT_NEAR(drawn.x(0)[9], -15.0, 1e-12);
    EXPECT_NEAR(drawn.y(0)[0], std::log10(1.5e9), 1e-12);
    EXPECT_EQ(drawn->getTitle(), "Quorvex Solutions - LOG(X) - LOG(Y)");
    EXPECT_EQ(drawn->getXLabel(), "LOG(Times)");
    EXPECT_EQ(drawn->getYLabel(), "LOG(E Fields)");
    EXPECT_EQ(Drawn(saved, {"--log=x"}).y(0)[0], -1.5e9);
}

TEST(PlotPicture, ASpectrumStandsOverTheAngularFrequency)
{
    constexpr int steps = 16;
    const SavedResults saved(1, 1, 1, 2, steps);
    writeWave(saved, steps, 3);
    const Drawn drawn(saved, {"--fourier"});
    EXPECT_EQ(drawn->getTitle(), "Quorvex Solutions - FFT(Y)");
    EXPECT_EQ(drawn->getXLabel(), "Frequencies (rad/s)");
    EXPECT_EQ(drawn->getYLabel(), "FFT(E Fields)");
    const Values frequencies = drawn.x(0);
    const Values moduli = drawn.y(0);
    ASSERT_EQ(moduli.size(), 16UL);
    ASSERT_EQ(frequencies.size(), 16UL);
    const double carrier = 2.0 * std::numbers::pi * 3.0 / (steps * SavedResults::PERIOD);
    for (std::size_t i = 0; i < moduli.size(); ++i) {
        const bool isPeak = i == 8 - 3 || i == 8 + 3;
        EXPECT_NEAR(moduli[i], isPeak ? 8.0 : 0.0, 1e-9) << i;
    }
    EXPECT_NEAR(frequencies[8 + 3] / carrier, 1.0, 1e-12);
    EXPECT_NEAR(frequencies[8 - 3] / carrier, -1.0, 1e-12);
}

TEST(PlotPicture, ASpectrumIsThatOfAllStepsWhateverTheirNumber)
{
    // A pulse in the first of 12 steps, which the last 8 lack.
    const SavedResults saved(1);
    saved.write("E_at_10.res", "0 5 \n1 0 \n2 0 \n3 0 \n4 0 \n5 0 \n6 0 \n7 0 \n8 0 \n9 0 \n10 0 "
                               "\n11 0 \n");
    const Drawn drawn(saved, {"--fourier"});
    const Values moduli = drawn.y(0);
    ASSERT_EQ(moduli.size(), 16UL);
    for (const double modulus : moduli) {
        EXPECT_NEAR(modulus, 5.0, 1e-12);
    }
    EXPECT_NEAR(drawn.x(0)[0] * SavedResults::PERIOD, -std::numbers::pi, 1e-12);
}

TEST(PlotPicture, SpectraOfDensitiesAndTheirLogarithms)
{
    const SavedResults saved(1);
    const Drawn drawn(saved, {"--density=1,1", "--log=y", "--fourier"});
    double sum = 0.0;
    for (int s = 0; s < SavedResults::STEPS; ++s) {
        sum += SavedResults::density(s, 1, 1);
    }
    EXPECT_NEAR(drawn.y(0)[8], std::log10(sum), 1e-6); // the file's last digit
    EXPECT_EQ(drawn->getYLabel(), "LOG(FFT(Rho Fields))");
}

TEST(PlotPicture, ASpectrumNeedsTwoSteps)
{
    const SavedResults one(1, 1, 1, 2, 1);
    EXPECT_THROW(Drawn(one, {"--fourier"}), PlotError);
    const SavedResults two(1, 1, 1, 2, 2);
    EXPECT_EQ(Drawn(two, {"--fourier"}).y(0).size(), 2UL);
}

TEST(PlotPicture, TimesThatStandStillDrawAllTheSame)
{
    const SavedResults saved(1);
    saved.write("tps.res", "1 1e14 1e-16 \n1 1e14 1e-16 \n");
    for (const Texts& words : {Texts{}, {"--fourier"}, {"--log=x"}}) {
        const PlotOptions options = optionsFor(saved, words);
        EXPECT_FALSE(PlotPicture::contents(PlotResults(options), options).isEmpty());
    }
}

TEST(PlotPicture, NumbersThatAreNoneDrawAllTheSame)
{
    const SavedResults saved(1, 1, 1, 2, 3);
    saved.write("E_at_10.res", "0 nan \n1 inf \n2 -inf \n");
    for (const Texts& words : {Texts{}, {"--normalize"}, {"--fourier", "--log=y"}}) {
        const PlotOptions options = optionsFor(saved, words);
        EXPECT_FALSE(PlotPicture::contents(PlotResults(options), options).isEmpty());
    }
}
