#include "quorvexPlot/PlotResults.h"

#include "quorvexPlot/PlotError.h"
#include "quorvexPlot/SavedResults.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using Numbers = std::vector<unsigned long>;
using Texts = std::vector<std::string>;
using Values = std::vector<double>;

PlotOptions optionsFor(const SavedResults& saved)
{
    PlotOptions options;
    options.mResults = saved.path();
    return options;
}

/// Why the results cannot be drawn, with "@" for their directory; empty when they can.
std::string refusal(const PlotOptions& options)
{
    try {
        const PlotResults results(options);
    } catch (const PlotError& error) {
        std::string text = error.what();
        const std::size_t place = text.find(options.mResults);
        return place == std::string::npos ? text
                                          : text.replace(place, options.mResults.size(), "@");
    }
    return "";
}

Numbers placesOf(const PlotResults& results)
{
    Numbers places;
    for (const PlotResults::Captor& captor : results.captors()) {
        places.push_back(captor.mPlace);
    }
    return places;
}

} // namespace

TEST(PlotResults, WithoutChoiceAllFieldsOfAllCaptorsAreRead)
{
    const SavedResults saved(3, 2);
    const PlotResults results(optionsFor(saved));
    EXPECT_EQ(results.captorsNumber(), 3UL);
    EXPECT_EQ(placesOf(results), (Numbers{0, 1, 2}));
    EXPECT_EQ(results.seconds(), SavedResults::seconds());
    EXPECT_EQ(results.remarks(), Texts());
    for (const PlotResults::Captor& captor : results.captors()) {
        EXPECT_EQ(captor.mFields, (Numbers{0, 1}));
        EXPECT_TRUE(captor.mDensities.empty());
        ASSERT_EQ(captor.mColumns.size(), 2UL);
        ASSERT_EQ(captor.mColumns[1].size(), 12UL);
        EXPECT_EQ(captor.mColumns[1][3],
                  SavedResults::field(static_cast<int>(captor.mPlace), 3, 1));
    }
}

TEST(PlotResults, TheDirectoryMayEndInASlash)
{
    const SavedResults saved;
    PlotOptions options = optionsFor(saved);
    options.mResults += "/";
    EXPECT_EQ(PlotResults(options).captorsNumber(), 3UL);
}

TEST(PlotResults, ChosenCaptorsStandByTheirNodes)
{
    const SavedResults saved(4);
    PlotOptions options = optionsFor(saved);
    options.mCaptors = {4, 2};
    const PlotResults results(options);
    EXPECT_EQ(placesOf(results), (Numbers{1, 3}));
    EXPECT_EQ(results.captorsNumber(), 4UL);
    EXPECT_EQ(results.captors()[1].mFiles.mLocation, 40UL);
}

TEST(PlotResults, DensitiesAloneNeedNoField)
{
    const SavedResults saved(1, 1, 2, 3);
    saved.remove("E_at_10.res");
    PlotOptions options = optionsFor(saved);
    options.mDensities = {{2, 1, 1}, {0, 0, 0}, {1, 2, 1}};
    const PlotResults results(options);
    const PlotResults::Captor& captor = results.captors()[0];
    EXPECT_TRUE(captor.mFields.empty());
    ASSERT_EQ(captor.mDensities.size(), 3UL);
    const auto expect = [&captor](std::size_t place, const PlotOptions::Density& element) {
        const PlotResults::Density& density = captor.mDensities[place];
        EXPECT_EQ(density.mElement, element) << place;
        ASSERT_EQ(density.mValues.size(), 12UL) << place;
        EXPECT_NEAR(density.mValues[5],
                    SavedResults::density(5, static_cast<int>(element.mI),
                                          static_cast<int>(element.mJ),
                                          static_cast<int>(element.mSystem)),
                    1e-6) // the file's last digit
            << place;
    };
    expect(0, {0, 0, 0});
    expect(1, {2, 1, 1});
    expect(2, {1, 2, 1});
}

TEST(PlotResults, FieldsAndDensitiesAreReadTogetherWhenBothAreChosen)
{
    const SavedResults saved(1, 2);
    PlotOptions options = optionsFor(saved);
    options.mFields = {1};
    options.mDensities = {{1, 1, 0}};
    const PlotResults results(options);
    EXPECT_EQ(results.captors()[0].mFields, Numbers{1});
    EXPECT_EQ(results.captors()[0].mDensities.size(), 1UL);
}

TEST(PlotResults, AFileThatEndsBeforeTheOthersIsTold)
{
    const SavedResults saved(1);
    saved.write("E_at_10.res", "0 1 \n1 2 \n2 3");
    const PlotResults results(optionsFor(saved));
    EXPECT_EQ(results.captors()[0].mColumns[0], (Values{1.0, 2.0}));
    EXPECT_EQ(results.remarks(),
              Texts{"the file " + saved.path()
                    + "/E_at_10.res holds 2 of 12 steps, and its curves end there"});
}

TEST(PlotResults, CaptorsThatAreNotThereAreRefused)
{
    const SavedResults saved(3);
    PlotOptions options = optionsFor(saved);
    options.mCaptors = {1, 4};
    EXPECT_EQ(refusal(options), "there is no captor 4; the results have captors 1 to 3 (at the "
                                "nodes 10, 20, 30)");
    const SavedResults one(1);
    options = optionsFor(one);
    options.mCaptors = {2};
    EXPECT_EQ(refusal(options),
              "there is no captor 2; the results have captor 1 alone (at node 10)");
    const SavedResults many(25, 1, 1, 1, 1);
    options = optionsFor(many);
    options.mCaptors = {26};
    EXPECT_TRUE(refusal(options).ends_with(", 190, 200 and so on)")) << refusal(options);
}

TEST(PlotResults, ComponentsThatWereNotSavedAreRefused)
{
    const SavedResults saved(2);
    PlotOptions options = optionsFor(saved);
    options.mFields = {0, 1};
    EXPECT_EQ(refusal(options), "the run has saved Ex alone at captor 1, and no Ey");
    const SavedResults two(1, 2);
    options = optionsFor(two);
    options.mFields = {2};
    EXPECT_EQ(refusal(options), "the run has saved Ex and Ey alone at captor 1, and no Ez");
    const SavedResults none(1, 0);
    options = optionsFor(none);
    EXPECT_EQ(refusal(options),
              "the run has saved no field; --density chooses elements of the density matrices");
    options.mFields = {0};
    EXPECT_EQ(refusal(options), "the run has saved no field at captor 1, and no Ex");
}

TEST(PlotResults, AThirdComponentHasItsOwnColumn)
{
    const SavedResults saved(1, 3);
    PlotOptions options = optionsFor(saved);
    options.mFields = {2};
    const PlotResults results(options);
    EXPECT_EQ(results.captors()[0].mFields, Numbers{2});
    EXPECT_NEAR(results.captors()[0].mColumns[2][3], SavedResults::field(0, 3, 2), 1e3);
}

TEST(PlotResults, ElementsBeyondTheMatrixAreRefused)
{
    const SavedResults saved(1, 1, 2, 3);
    for (const PlotOptions::Density& element :
         {PlotOptions::Density{3, 0, 0}, {0, 3, 0}, {0, 0, 2}}) {
        PlotOptions options = optionsFor(saved);
        options.mDensities = {{0, 0, 0}, element};
        EXPECT_EQ(refusal(options),
                  "captor 1 has density matrices with rows and columns 0 to 2, of system 0 to 1; "
                      + std::to_string(element.mI) + "," + std::to_string(element.mJ) + ":"
                      + std::to_string(element.mSystem) + " is beyond them");
    }
}

TEST(PlotResults, FilesThatAreMissingOrDamagedAreNamed)
{
    const SavedResults saved(2);
    PlotOptions options = optionsFor(saved);
    options.mDensities = {{1, 1, 0}};
    saved.remove("Rho_Bloch0_at_20.res");
    EXPECT_EQ(refusal(options), "the file @/Rho_Bloch0_at_20.res is missing");
    options.mDensities.clear();
    for (const char* text : {"", "0 1 2 \n", "0 x \n", "0 1"}) {
        saved.write("E_at_10.res", text);
        EXPECT_EQ(refusal(options), "the file @/E_at_10.res begins with no whole line of the "
                                    "numbers that captors.res promises");
    }
}

TEST(PlotResults, WhatIsNoDirectoryOfResultsIsRefused)
{
    const SavedResults saved;
    PlotOptions options;
    options.mResults = saved.directory().file("nowhere");
    EXPECT_EQ(refusal(options), "there is no directory @");
    options.mResults = saved.directory().write("file", "");
    EXPECT_EQ(refusal(options), "there is no directory @");
    options = optionsFor(saved);
    saved.remove("tps.res");
    EXPECT_EQ(refusal(options), "the file @/tps.res cannot be read; every run writes one into the "
                                "directory of its results");
    saved.remove("captors.res");
    EXPECT_EQ(refusal(options), "the file @/captors.res cannot be read; every run writes one into "
                                "the directory of its results");
}

TEST(PlotResults, WithoutStepsOrCaptorsThereIsNothingToDraw)
{
    const SavedResults saved(3, 1, 1, 2, 0);
    EXPECT_EQ(refusal(optionsFor(saved)), "@/tps.res holds no time: there is nothing to draw");
    saved.write("captors.res", "nothing");
    EXPECT_EQ(refusal(optionsFor(saved)),
              "@/captors.res holds no captor: there is nothing to draw");
}
