#include "gui/GUI_BaseDirectory.h"

#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

/// Lists the tests with a copy of this program and keeps what it prints before `main`.
class ProgramCopy
{
public:
    ProgramCopy()
    {
        std::filesystem::create_directory(mDirectory.path() / "bin");
        std::filesystem::copy_file("/proc/self/exe", mDirectory.path() / "bin" / "program");
    }
    /// The status of the process.
    int run() const
    {
        const std::string command = "'" + mDirectory.file("bin/program")
                                    + "' --gtest_list_tests --gtest_filter=-* >'"
                                    + mDirectory.file("log") + "'";
        return std::system(command.c_str());
    }
    std::string log() const { return mDirectory.read("log"); }
    const TestDirectory& directory() const { return mDirectory; }

private:
    TestDirectory mDirectory;
};

} // namespace

TEST(GUI_BaseDirectory, AProgramInABuildDirectoryFindsTheSources)
{
    const std::string directory = GUI_BaseDirectory::find();
    EXPECT_TRUE(directory.ends_with("/src/data/")) << directory;
    EXPECT_TRUE(std::filesystem::is_directory(directory));
}

TEST(GUI_BaseDirectory, AnInstalledProgramPrefersWhatLiesBesideItAndStartsWithoutADictionary)
{
    const ProgramCopy program;
    std::filesystem::create_directories(program.directory().path() / "share" / "quorvex");
    EXPECT_EQ(program.run(), 0);
    const std::string file = std::filesystem::canonical(program.directory().path()).string()
                             + "/share/quorvex//linguist/dictionary.xml";
    EXPECT_EQ(program.log(), "ERROR:" + file + " can not be opened !! \n");
}

TEST(GUI_BaseDirectory, AProgramWithoutDataBesideItGoesToTheSources)
{
    const ProgramCopy program;
    EXPECT_EQ(program.run(), 0);
    EXPECT_EQ(program.log(), "");
}
