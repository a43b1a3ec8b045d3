#include "quorvexRun/RunInput.h"

#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvexRun/OlderFiles.h"
#include "quorvexRun/RunError.h"
#include "quorvexRun/SavedProblem.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

class RunInputTest : public testing::Test
{
protected:
    ~RunInputTest() override { QV_Bloch::resetShared(); }

    /// Why the input is refused, at once or by its reading; empty when it is not.
    static std::string refusal(const std::string& input)
    {
        std::string text;
        printedBy([&text, &input] {
            try {
                const COM_Scoped problem(RunInput(input).read());
            } catch (const RunError& error) {
                text = error.what();
            }
        });
        return text;
    }

    /// Writes text over a file of the older ones and gives the remarks of the reading.
    std::vector<std::string> remarksOf(const std::string& keywords)
    {
        OlderFiles::write(mDirectory, "old", keywords);
        RunInput input("old");
        printedBy([&input] { COM_Scoped(input.read()); });
        return input.remarks();
    }

    void makeDirectory(const char* name) const
    {
        std::filesystem::create_directory(mDirectory.path() / name);
    }

    TestDirectory mDirectory;
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
};

} // namespace

TEST_F(RunInputTest, WithoutInputItIsTheDefaultProblem)
{
    RunInput input;
    EXPECT_EQ(input.usualOutput(), "resultats");
    EXPECT_EQ(input.file(), "");
    const COM_Scoped problem(input.read());
    EXPECT_EQ(problem->getReferenceCount(), 3); // ours, and those of the field and of the atoms
    EXPECT_EQ(problem->getMaxTimeStepsNumber(), 2000UL);
    EXPECT_TRUE(input.remarks().empty());
}

TEST_F(RunInputTest, AFileIsAParametersFileUnlessItHasTheOlderName)
{
    SavedProblem::write("p.dat");
    RunInput input("p.dat");
    EXPECT_EQ(input.file(), "p.dat");
    EXPECT_EQ(input.usualOutput(), "resultats");
    const COM_Scoped problem(input.read());
    EXPECT_EQ(problem->getReferenceCount(), 3);
    EXPECT_EQ(problem->getMethod(), QV_Problem::SPLIT_METHOD);
    makeDirectory("old");
    mDirectory.write("old/qv1.dat", "");
    EXPECT_EQ(RunInput("old/qv1.dat").file(), "old");
}

TEST_F(RunInputTest, AProjectDirectoryIsItsOwnOutput)
{
    makeDirectory("project");
    SavedProblem::write("project/parameters.xml");
    const RunInput input("project");
    EXPECT_EQ(input.file(), "project/parameters.xml");
    EXPECT_EQ(input.usualOutput(), "project");
    EXPECT_EQ(RunInput("project/").usualOutput(), "project/");
}

TEST_F(RunInputTest, ADirectoryWithAKeywordFileIsReadAsOlderFiles)
{
    OlderFiles::write(mDirectory, "old");
    RunInput input("old");
    EXPECT_EQ(input.file(), "old");
    EXPECT_EQ(input.usualOutput(), "resultats");
    std::string log;
    QV_1DProblem* problem = nullptr;
    log = printedBy([&input, &problem] { problem = input.read(); });
    const COM_Scoped released(problem);
    EXPECT_TRUE(log.starts_with("\t reading qv1.dat ...\n")) << log;
    EXPECT_EQ(problem->getReferenceCount(), 3);
    EXPECT_EQ(problem->getMethod(), QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(problem->getMaxTimeStepsNumber(), 20UL);
    EXPECT_EQ(dynamic_cast<QV_1DMilieu&>(*problem->getMilieu()).computeMesh().mNodesNumber, 40);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
    EXPECT_TRUE(input.remarks().empty());
}

TEST_F(RunInputTest, OlderFilesInTheWorkingDirectoryAreFoundThere)
{
    mDirectory.write("qv1.dat", OlderFiles::keywords());
    mDirectory.write("qv2p.dat", OlderFiles::matrices());
    EXPECT_EQ(refusal("qv1.dat"), "");
    EXPECT_EQ(refusal("."), "");
    EXPECT_EQ(refusal("./qv1.dat"), "");
}

TEST_F(RunInputTest, AMissingInputIsToldWithWhatAnInputIs)
{
    EXPECT_EQ(refusal("nowhere"), "there is no nowhere; the input is a project directory, a "
                                  "parameters file (.xml), or a directory with qv1.dat");
    makeDirectory("empty");
    EXPECT_EQ(refusal("empty"),
              "the directory empty holds neither a project (project.dpj, parameters.xml) nor "
              "qv1.dat");
}

TEST_F(RunInputTest, AFileCutBeforeAnyOfItsLettersIsRefused)
{
    SavedProblem::write("p.xml");
    std::string whole = mDirectory.read("p.xml");
    while (whole.back() == '\n') {
        whole.pop_back();
    }
    // Every place in the head and the tail, and a number without common divisor of those between.
    constexpr std::size_t ends = 80;
    constexpr std::size_t stride = 37;
    for (std::size_t size = 0; size < whole.size();
         size += size < ends || size + ends + stride > whole.size() ? 1 : stride) {
        mDirectory.write("cut.xml", whole.substr(0, size));
        const std::string text = refusal("cut.xml");
        EXPECT_TRUE(text.starts_with("the parameters file cut.xml is cut off: ")
                    || text.starts_with("the file cut.xml is no parameters file: "))
            << size << ": " << text;
    }
    mDirectory.write("cut.xml", whole);
    EXPECT_EQ(refusal("cut.xml"), "");
    mDirectory.write("cut.xml", whole + " \r\n\n\t");
    EXPECT_EQ(refusal("cut.xml"), "");
}

TEST_F(RunInputTest, AnythingBehindTheEndOfAFileIsRefused)
{
    SavedProblem::write("p.xml");
    mDirectory.write("long.xml", mDirectory.read("p.xml") + "<");
    EXPECT_EQ(refusal("long.xml"),
              "the parameters file long.xml is cut off: it does not end with </MM_PACKAGE>");
}

TEST_F(RunInputTest, AFileOfAnotherObjectIsToldByItsClass)
{
    mDirectory.write("matrix.xml",
                     "<MM_PACKAGE mRootMetaClassId=\"13LA_RealMatrix@1\">\n"
                     "<MM_CLASS mId=\"13LA_RealMatrix@1\" mName=\"13LA_RealMatrix\">\n"
                     "</MM_CLASS>\n</MM_PACKAGE>\n");
    EXPECT_EQ(refusal("matrix.xml"),
              "the file matrix.xml holds no problem but an object of class 13LA_RealMatrix");
}

TEST_F(RunInputTest, OneLostPartLeavesTheProblemRefused)
{
    SavedProblem::write("p.xml");
    std::string text = mDirectory.read("p.xml");
    const std::size_t root = text.find("mId=\"12QV_1DProblem@");
    ASSERT_NE(root, std::string::npos);
    mDirectory.write("p.xml", text.replace(root + 5, 1, "9"));
    EXPECT_EQ(refusal("p.xml"), "the file p.xml holds no problem but parts without a whole");
}

TEST_F(RunInputTest, MissingAttributesAreRemarkedOnOneByOne)
{
    EXPECT_EQ(remarksOf(OlderFiles::keywords()), std::vector<std::string>{});
    EXPECT_EQ(remarksOf(OlderFiles::keywordsWith(" t_on=4.0D-15", "")),
              std::vector<std::string>{"qv1.dat does not give champ t_on; 0 is taken"});
    EXPECT_EQ(remarksOf(OlderFiles::keywordsWith("na=1.0e24 ind=1.0 temper=300.0", "")),
              (std::vector<std::string>{"qv1.dat does not give autres na; 0 is taken",
                                        "qv1.dat does not give autres temper; 0 is taken"}));
}

TEST_F(RunInputTest, AnUnknownAttributeIsAReportOfTheReaderAndNoRefusal)
{
    OlderFiles::write(mDirectory, "old", OlderFiles::keywordsWith("n=2", "n=2 m=3"));
    std::string text = "not read";
    const std::string log = printedBy([&text] {
        RunInput input("old");
        COM_Scoped(input.read());
        text = std::to_string(input.remarks().size());
    });
    EXPECT_EQ(text, "0");
    EXPECT_NE(log.find("m unknown attributes of dim  in line 1\n"), std::string::npos) << log;
}

TEST_F(RunInputTest, TheMatrixFileIsTheOneOfMethodAndRelaxation)
{
    const std::string none = ", which holds the atoms' frequencies and matrices";
    const auto missing = [this](const char* from, const char* to) {
        OlderFiles::write(mDirectory, "old", OlderFiles::keywordsWith(from, to));
        std::filesystem::remove("old/qv2p.dat");
        return refusal("old");
    };
    EXPECT_EQ(missing("methode='Split'", "methode='CN_P'"),
              "the directory old/ lacks qv2.dat" + none);
    EXPECT_EQ(missing("n=2", "n=2"), "the directory old/ lacks qv2p.dat" + none);
    // Names count from the empty one, so each stands one above its relaxation.
    EXPECT_EQ(missing("relaxation=''", "relaxation='Pauli'"),
              "the directory old/ lacks qv2c.dat" + none);
    EXPECT_EQ(missing("relaxation=''", "relaxation='Cascade'"),
              "the directory old/ lacks qv2e.dat" + none);
    EXPECT_EQ(missing("relaxation=''", "relaxation='Equilibre'"),
              "the directory old/ lacks qv2.dat" + none);
}

TEST_F(RunInputTest, AMatrixFileCutAtAnyNumberIsRefused)
{
    OlderFiles::write(mDirectory, "old");
    const std::string matrices = OlderFiles::matrices();
    // Numbers stand at the beginning of each line, and comments at the end of some.
    for (std::size_t end = matrices.find('\n'); end + 1 < matrices.size();
         end = matrices.find('\n', end + 1)) {
        mDirectory.write("old/qv2p.dat", matrices.substr(0, end + 1));
        EXPECT_NE(refusal("old").find("the file old/qv2p.dat is cut off: "), std::string::npos)
            << end;
    }
    mDirectory.write("old/qv2p.dat", "");
    EXPECT_EQ(refusal("old"),
              "the file old/qv2p.dat is cut off: 15 numbers are missing at its end");
}

TEST_F(RunInputTest, AKeywordFileMustHaveItsLastGroupClosed)
{
    const std::string cut = "the file old/qv1.dat is cut off: its last group does not end with /";
    const auto refusalOf = [this](const std::string& keywords) {
        OlderFiles::write(mDirectory, "old", keywords);
        return refusal("old");
    };
    const std::string whole = OlderFiles::keywords();
    EXPECT_EQ(refusalOf(whole.substr(0, whole.rfind('/'))), cut);
    EXPECT_EQ(refusalOf(whole + "&ES"), cut);
    EXPECT_EQ(refusalOf(whole + "&ES z1=0.2 / a comment with &ES z1"), "");
    EXPECT_EQ(refusalOf(whole + "behind the last group stands what one likes"), "");
}

TEST_F(RunInputTest, AFileThatIsNoTextIsRefused)
{
    OlderFiles::write(mDirectory, "old", OlderFiles::keywords() + std::string(1, '\0'));
    EXPECT_EQ(refusal("old"), "the file old/qv1.dat is not a text");
}

TEST_F(RunInputTest, ADirectoryInThePlaceOfAFileIsRefused)
{
    makeDirectory("old");
    makeDirectory("old/qv1.dat");
    EXPECT_EQ(refusal("old"), "the file old/qv1.dat cannot be read");
    makeDirectory("project");
    makeDirectory("project/parameters.xml");
    EXPECT_EQ(refusal("project"), "the file project/parameters.xml cannot be read");
}
