#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_LoaderWriter.h"
#include "support/ResultFiles.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

namespace {

/// Runs the problem of a parameters file in a process-wide state as at the start, and gives its files.
ResultFiles resultsOf(const std::string& file, unsigned long steps)
{
    const TestProblem problem;
    const COM_Scoped loader(QV_LoaderWriter::New());
    printedBy([&] {
        loader->load(file, *problem);
        problem->setMaxTimeStepsNumber(steps);
        problem->setSavingPath(problem.directory().slashed());
        EXPECT_EQ(problem->run(problem.out()), 0);
    });
    return resultFilesIn(problem.directory().path());
}

void save(const std::string& file, QV_Problem& problem)
{
    const COM_Scoped writer(QV_LoaderWriter::New());
    EXPECT_TRUE(writer->save(file, problem));
}

std::vector<std::vector<double>> columnsOf(const std::string& text)
{
    std::vector<std::vector<double>> columns;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        double value = 0.0;
        for (std::size_t i = 0; words >> value; ++i) {
            columns.resize(std::max(columns.size(), i + 1));
            columns[i].push_back(value);
        }
    }
    return columns;
}

class RoundTripTest : public testing::TestWithParam<unsigned char>
{};

std::string nameOf(const testing::TestParamInfo<unsigned char>& tested)
{
    return QV_Problem::mMethodsName[tested.param];
}

} // namespace

TEST_P(RoundTripTest, AProblemOfSevenDigitsGivesTheSameResultFilesBeforeAndAfterLoading)
{
    const unsigned long systems = GetParam() == QV_Problem::PRED_CORR_METHOD ? 1 : 2;
    const TestDirectory directory;
    {
        TestProblem problem;
        problem->setMethod(GetParam());
        // Of the predictor-corrector weak light and one system: it ends the process where it does not converge.
        problem.wave().setFieldMaxValue(1e7);
        QV_Bloch::setAtomsNumber(1e22);
        if (systems == 2) {
            problem.addSystem();
        }
        if (GetParam() == QV_Problem::SPLIT_METHOD) {
            problem.maxwell().setDimension(2);
            QV_Bloch::setPolarizationsSize(2);
        }
        const COM_Scoped frequencies(LA_RealVector::New(2));
        frequencies->setValue(1, 1.2591234e15);
        problem.bloch(systems - 1).setLevelsFrequency(*frequencies);
        printedBy([&] { save(directory.file("made.xml"), *problem); });
    }
    // What has gone through a file has seven digits.
    {
        const TestProblem problem;
        const COM_Scoped loader(QV_LoaderWriter::New());
        printedBy([&] {
            loader->load(directory.file("made.xml"), *problem);
            save(directory.file("again.xml"), *problem);
        });
    }
    constexpr unsigned long steps = 60;
    const ResultFiles before = resultsOf(directory.file("made.xml"), steps);
    const ResultFiles after = resultsOf(directory.file("again.xml"), steps);
    ASSERT_EQ(before.size(), 3 + 5 * (1 + systems));
    EXPECT_EQ(before, after);
    // The pulse is there: equal files of zeros would prove nothing.
    EXPECT_NE(before.at("E_at_9.res").find("e+06"), std::string::npos) << before.at("E_at_9.res");
}

INSTANTIATE_TEST_SUITE_P(Methods, RoundTripTest, testing::Range<unsigned char>(0, 6), nameOf);

TEST(RoundTrip, TheDefaultProblemComesBackWithinTheDigitsOfItsCarrier)
{
    constexpr unsigned long steps = 2000;
    const TestDirectory directory;
    ResultFiles before;
    {
        const TestDirectory results;
        const WorkingDirectory inside(results.path());
        const COM_Scoped problem(QV_1DProblem::New());
        problem->setMaxTimeStepsNumber(steps);
        problem->setSavingPath(results.slashed());
        printedBy([&] {
            save(directory.file("default.xml"), *problem);
            const COM_Scoped out(TestOut::New());
            EXPECT_EQ(problem->run(*out), 0);
        });
        before = resultFilesIn(results.path());
    }
    QV_Bloch::resetShared();
    const ResultFiles after = resultsOf(directory.file("default.xml"), steps);
    ASSERT_EQ(after.size(), before.size());
    ASSERT_EQ(before.size(), 3U + 5U * 2U);
    unsigned long compared = 0;
    for (const auto& [name, text] : before) {
        if (name == "captors.res") {
            EXPECT_EQ(after.at(name), text);
            continue;
        }
        const auto expected = columnsOf(text);
        const auto columns = columnsOf(after.at(name));
        ASSERT_EQ(columns.size(), expected.size()) << name;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ASSERT_EQ(columns[i].size(), expected[i].size()) << name << " " << i;
            double largest = 0.0;
            for (const double value : expected[i]) {
                largest = std::max(largest, std::fabs(value));
            }
            double difference = 0.0;
            for (std::size_t row = 0; row < expected[i].size(); ++row) {
                difference = std::max(difference, std::fabs(columns[i][row] - expected[i][row]));
            }
            EXPECT_LE(difference, 1e-4 * largest) << name << ", column " << i;
            compared += expected[i].size();
        }
    }
    EXPECT_GT(compared, steps * 5 * 8);
}
