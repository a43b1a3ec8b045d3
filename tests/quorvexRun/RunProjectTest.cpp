#include "quorvexRun/RunProject.h"

#include "common/COM_Scoped.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvexRun/RunError.h"
#include "quorvexRun/SavedProblem.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

class RunProjectTest : public testing::Test
{
protected:
    ~RunProjectTest() override { QV_Bloch::resetShared(); }

    /// A project file that names the parameters file.
    void writeProjectFile(const std::string& name, const std::string& parametersFile) const
    {
        mDirectory.write(name, "<MM_PACKAGE mRootMetaClassId=\"14QVG_MainWindow@1\">\n"
                               "<MM_CLASS mId=\"14QVG_MainWindow@1\" mName=\"14QVG_MainWindow\">\n"
                               "<MM_FIELD mName=\"mSavingModelFile\"><MM_VALUE>"
                                   + parametersFile
                                   + "</MM_VALUE></MM_FIELD>\n</MM_CLASS>\n</MM_PACKAGE>\n");
    }
    std::string parametersFile() const
    {
        return RunProject::parametersFile(mDirectory.path())
            .lexically_relative(mDirectory.path())
            .string();
    }
    std::string refusal() const
    {
        try {
            return "none, but " + parametersFile();
        } catch (const RunError& error) {
            return error.what();
        }
    }

    TestDirectory mDirectory;
};

} // namespace

TEST_F(RunProjectTest, AProjectFileOrTheUsualParametersFileMakesAProject)
{
    EXPECT_FALSE(RunProject::isProject(mDirectory.path()));
    EXPECT_FALSE(RunProject::isProject(mDirectory.path() / "missing"));
    mDirectory.write("other.xml", "");
    mDirectory.write("dpj", "");
    mDirectory.write(".dpj", "");
    mDirectory.write("a.dpj.old", "");
    EXPECT_FALSE(RunProject::isProject(mDirectory.path()));
    mDirectory.write("a.dpj", "");
    EXPECT_TRUE(RunProject::isProject(mDirectory.path()));
    std::filesystem::remove(mDirectory.path() / "a.dpj");
    mDirectory.write("parameters.xml", "");
    EXPECT_TRUE(RunProject::isProject(mDirectory.path()));
}

TEST_F(RunProjectTest, WithoutProjectFileTheUsualNameIsTaken)
{
    EXPECT_EQ(parametersFile(), "parameters.xml");
}

TEST_F(RunProjectTest, TheOnlyProjectFileNamesTheParametersFile)
{
    writeProjectFile("mine.dpj", "other.xml");
    EXPECT_EQ(parametersFile(), "other.xml");
}

TEST_F(RunProjectTest, TheUsualProjectFileIsTakenAmongSeveral)
{
    writeProjectFile("a.dpj", "a.xml");
    writeProjectFile("project.dpj", "p.xml");
    writeProjectFile("z.dpj", "z.xml");
    EXPECT_EQ(parametersFile(), "p.xml");
}

TEST_F(RunProjectTest, SeveralProjectFilesWithoutTheUsualOneAreRefused)
{
    writeProjectFile("a.dpj", "a.xml");
    writeProjectFile("z.dpj", "z.xml");
    EXPECT_EQ(refusal(), mDirectory.path().string()
                             + " holds several project files and none is project.dpj; give the "
                               "parameters file itself");
}

TEST_F(RunProjectTest, AProjectFileThatNamesNothingIsRefused)
{
    const std::string text = mDirectory.file("project.dpj")
                             + " is no project file: it does not name the parameters file";
    for (const char* contents :
         {"", "a text",
          "\x7f"
          "ELF",
          "<MM_PACKAGE mRootMetaClassId=\"14QVG_MainWindow@1\">\n"
          "<MM_CLASS mId=\"14QVG_MainWindow@1\" mName=\"14QVG_MainWindow\">\n</MM_CLASS>\n"
          "</MM_PACKAGE>\n"}) {
        mDirectory.write("project.dpj", contents);
        EXPECT_EQ(refusal(), text);
    }
}

TEST_F(RunProjectTest, AWrittenProjectHasItsThreeFilesAndRunsInItsOwnDirectory)
{
    const COM_Scoped problem(QV_1DProblem::New());
    const std::filesystem::path project = mDirectory.path() / "a/b";
    RunProject::write(project, *problem);
    EXPECT_TRUE(RunProject::isProject(project));
    EXPECT_EQ(RunProject::parametersFile(project), project / "parameters.xml");
    EXPECT_EQ(mDirectory.read("a/b/savingPlotterWindows.txt"), "");
    EXPECT_EQ(
        SavedProblem(mDirectory.file("a/b/parameters.xml")).text("QV_1DProblem", "mSavingPath"),
        "./");
    const SavedProblem window(mDirectory.file("a/b/project.dpj"));
    EXPECT_EQ(window.text("QVG_MainWindow", "mSavingFile"), "project.dpj");
    EXPECT_EQ(window.text("QVG_MainWindow", "mSavingModelFile"), "parameters.xml");
    EXPECT_EQ(window.text("QVG_MainWindow", "mPlotterWindowsFileName"), "savingPlotterWindows.txt");
}

TEST_F(RunProjectTest, ADirectoryWithOtherFilesMayBecomeAProject)
{
    mDirectory.write("notes.txt", "mine");
    const COM_Scoped problem(QV_1DProblem::New());
    RunProject::write(mDirectory.path(), *problem);
    EXPECT_TRUE(RunProject::isProject(mDirectory.path()));
    EXPECT_EQ(mDirectory.read("notes.txt"), "mine");
}

TEST_F(RunProjectTest, AProjectIsNotWrittenOverAnother)
{
    const COM_Scoped problem(QV_1DProblem::New());
    for (const char* name : {"parameters.xml", "other.dpj"}) {
        mDirectory.write(name, "mine");
        EXPECT_THROW(RunProject::write(mDirectory.path(), *problem), RunError) << name;
        EXPECT_EQ(mDirectory.read(name), "mine");
        EXPECT_FALSE(std::filesystem::exists(mDirectory.path() / "project.dpj"));
        std::filesystem::remove(mDirectory.path() / name);
    }
}

TEST_F(RunProjectTest, AProjectThatCannotBeWrittenLeavesNothingHalf)
{
    std::filesystem::create_directory(mDirectory.path() / "savingPlotterWindows.txt");
    const COM_Scoped problem(QV_1DProblem::New());
    EXPECT_THROW(RunProject::write(mDirectory.path(), *problem), RunError);
    EXPECT_FALSE(RunProject::isProject(mDirectory.path()));
}
