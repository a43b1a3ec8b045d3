#include "common/COM_FileWriter.h"

#include "support/ChildProcess.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using Names = std::vector<std::string>;

mode_t modeOf(const std::string& name)
{
    struct stat status
    {};
    EXPECT_EQ(stat(name.c_str(), &status), 0);
    return status.st_mode & 07777;
}

bool writes(const std::string& name, const std::string& text)
{
    COM_FileWriter writer(name);
    writer.stream() << text;
    return writer.commit();
}

} // namespace

TEST(COM_FileWriter, ANewFileHoldsEveryByteWritten)
{
    const TestDirectory directory;
    const std::string text("line\r\n\0\377 end", 12);
    COM_FileWriter writer(directory.file("new"));
    EXPECT_TRUE(writer.isOpen());
    writer.stream() << text;
    EXPECT_TRUE(writer.commit());
    EXPECT_EQ(directory.read("new"), text);
    EXPECT_EQ(namesIn(directory.path()), Names{"new"});
}

TEST(COM_FileWriter, ANewFileHasThePermissionsThatTheMaskLeaves)
{
    const TestDirectory directory;
    const mode_t mask = umask(027);
    EXPECT_TRUE(writes(directory.file("new"), "text"));
    umask(mask);
    EXPECT_EQ(modeOf(directory.file("new")), 0640U);
}

TEST(COM_FileWriter, NothingIsSeenBeforeItIsCommitted)
{
    const TestDirectory directory;
    directory.write("old", "old text");
    COM_FileWriter replacing(directory.file("old"));
    COM_FileWriter creating(directory.file("new"));
    replacing.stream() << std::string(100000, 'x') << std::flush;
    creating.stream() << std::string(100000, 'x') << std::flush;
    EXPECT_EQ(directory.read("old"), "old text");
    EXPECT_FALSE(std::filesystem::exists(directory.file("new")));
    EXPECT_TRUE(replacing.commit());
    EXPECT_TRUE(creating.commit());
    EXPECT_EQ(directory.read("old"), std::string(100000, 'x'));
    EXPECT_EQ(namesIn(directory.path()), (Names{"new", "old"}));
}

TEST(COM_FileWriter, WhatIsNotCommittedLeavesNoTrace)
{
    const TestDirectory directory;
    directory.write("old", "old text");
    {
        COM_FileWriter replacing(directory.file("old"));
        COM_FileWriter creating(directory.file("new"));
        replacing.stream() << "new text";
        creating.stream() << "new text";
    }
    EXPECT_EQ(directory.read("old"), "old text");
    EXPECT_EQ(namesIn(directory.path()), Names{"old"});
}

TEST(COM_FileWriter, AReaderOfTheOldFileReadsItToItsEnd)
{
    const TestDirectory directory;
    std::ifstream reader(directory.write("file", "old text"));
    EXPECT_TRUE(writes(directory.file("file"), "new"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old text");
    EXPECT_EQ(directory.read("file"), "new");
}

TEST(COM_FileWriter, AnEmptyTextMakesAnEmptyFile)
{
    const TestDirectory directory;
    directory.write("file", "old text");
    EXPECT_TRUE(COM_FileWriter(directory.file("file")).commit());
    EXPECT_EQ(directory.read("file"), "");
}

TEST(COM_FileWriter, ASecondCommitIsRefusedAndChangesNothing)
{
    const TestDirectory directory;
    {
        COM_FileWriter writer(directory.file("file"));
        writer.stream() << "text";
        EXPECT_TRUE(writer.commit());
        EXPECT_FALSE(writer.commit());
    }
    EXPECT_EQ(directory.read("file"), "text");
}

TEST(COM_FileWriter, TheOldFilesPermissionsAreKept)
{
    const TestDirectory directory;
    for (const mode_t mode : {0600U, 0640U, 0644U, 0755U, 0666U}) {
        directory.write("file", "old text");
        ASSERT_EQ(chmod(directory.file("file").c_str(), mode), 0);
        EXPECT_TRUE(writes(directory.file("file"), "new text"));
        EXPECT_EQ(modeOf(directory.file("file")), mode);
        EXPECT_EQ(directory.read("file"), "new text");
    }
}

TEST(COM_FileWriter, ALinkStaysALinkAndItsTargetIsReplaced)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "data");
    directory.write("data/target", "old text");
    std::filesystem::create_symlink("data/target", directory.path() / "link");
    std::filesystem::create_symlink("link", directory.path() / "second");
    EXPECT_TRUE(writes(directory.file("second"), "new text"));
    EXPECT_EQ(directory.read("data/target"), "new text");
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "link"));
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "second"));
    EXPECT_EQ(namesIn(directory.path()), (Names{"data", "link", "second"}));
    EXPECT_EQ(namesIn(directory.path() / "data"), Names{"target"});
}

TEST(COM_FileWriter, ALinkToAFileThatIsNotThereYetMakesThatFile)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "data");
    std::filesystem::create_symlink("data/target", directory.path() / "link");
    EXPECT_TRUE(writes(directory.file("link"), "text"));
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "link"));
    EXPECT_EQ(directory.read("link"), "text");
    EXPECT_EQ(namesIn(directory.path() / "data"), Names{"target"});
}

TEST(COM_FileWriter, ALinkToItselfCannotBeWritten)
{
    const TestDirectory directory;
    std::filesystem::create_symlink("link", directory.path() / "link");
    COM_FileWriter writer(directory.file("link"));
    writer.stream() << "text";
    EXPECT_FALSE(writer.isOpen() && writer.commit());
    EXPECT_EQ(namesIn(directory.path()), Names{"link"});
    EXPECT_TRUE(std::filesystem::is_symlink(directory.path() / "link"));
}

TEST(COM_FileWriter, TwoWritersOfOneFileDoNotMeet)
{
    const TestDirectory directory;
    COM_FileWriter first(directory.file("file"));
    COM_FileWriter second(directory.file("file"));
    first.stream() << "first";
    second.stream() << "second";
    EXPECT_TRUE(second.commit());
    EXPECT_EQ(directory.read("file"), "second");
    EXPECT_TRUE(first.commit());
    EXPECT_EQ(directory.read("file"), "first");
    EXPECT_EQ(namesIn(directory.path()), Names{"file"});
}

TEST(COM_FileWriter, AFileThatStandsInTheWayBesideIsLeftAlone)
{
    const TestDirectory directory;
    COM_FileWriter first(directory.file("file"));
    const std::string spare = namesIn(directory.path()).front();
    first.stream() << "first";
    EXPECT_TRUE(first.commit());
    directory.write(spare, "foreign");
    EXPECT_TRUE(writes(directory.file("file"), "second"));
    EXPECT_EQ(directory.read("file"), "second");
    EXPECT_EQ(directory.read(spare), "foreign");
}

TEST(COM_FileWriter, AMissingDirectoryCannotBeWrittenTo)
{
    const TestDirectory directory;
    COM_FileWriter writer(directory.file("missing/file"));
    EXPECT_FALSE(writer.isOpen());
    EXPECT_FALSE(writer.commit());
    EXPECT_EQ(namesIn(directory.path()), Names{});
}

TEST(COM_FileWriter, AFileIsNoDirectory)
{
    const TestDirectory directory;
    directory.write("file", "old text");
    COM_FileWriter writer(directory.file("file/below"));
    EXPECT_FALSE(writer.isOpen());
    EXPECT_FALSE(writer.commit());
    EXPECT_EQ(directory.read("file"), "old text");
    EXPECT_EQ(namesIn(directory.path()), Names{"file"});
}

TEST(COM_FileWriter, ADirectoryIsNotReplaced)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.path() / "inner");
    COM_FileWriter writer(directory.file("inner"));
    EXPECT_FALSE(writer.isOpen());
    EXPECT_FALSE(writer.commit());
    EXPECT_EQ(namesIn(directory.path()), Names{"inner"});
    EXPECT_TRUE(std::filesystem::is_directory(directory.path() / "inner"));
}

TEST(COM_FileWriter, ANameWithoutLettersCannotBeWritten)
{
    EXPECT_FALSE(writes("", "text"));
}

TEST(COM_FileWriter, AFailedWriteKeepsTheOldFile)
{
    const TestDirectory directory;
    directory.write("file", "old text");
    {
        COM_FileWriter writer(directory.file("file"));
        writer.stream() << "new text";
        writer.stream().setstate(std::ios::badbit);
        EXPECT_FALSE(writer.commit());
    }
    EXPECT_EQ(directory.read("file"), "old text");
    EXPECT_EQ(namesIn(directory.path()), Names{"file"});
}

TEST(COM_FileWriter, ADiskThatFillsUpKeepsTheOldFile)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", "old text");
    // A limit on the size of files stands for the full disk; also for the last bytes, written by commit.
    for (const unsigned long size : {100000UL, 5000UL}) {
        EXPECT_EQ(runInChild([&] {
                      std::signal(SIGXFSZ, SIG_IGN);
                      const rlimit limit{4096, 4096};
                      setrlimit(RLIMIT_FSIZE, &limit);
                      return writes(name, std::string(size, 'x')) ? 1 : 0;
                  }),
                  0);
        EXPECT_EQ(directory.read("file"), "old text");
        EXPECT_EQ(namesIn(directory.path()), Names{"file"});
    }
}

TEST(COM_FileWriter, AFullDeviceIsNoticedAtTheCommit)
{
    COM_FileWriter writer("/dev/full");
    EXPECT_TRUE(writer.isOpen());
    writer.stream() << "text";
    EXPECT_FALSE(writer.commit());
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(COM_FileWriter, ADeviceIsWrittenInPlace)
{
    EXPECT_TRUE(writes("/dev/null", "text"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(COM_FileWriter, APipeIsWrittenAndNotWaitedFor)
{
    const TestDirectory directory;
    const std::string name = directory.file("pipe");
    ASSERT_EQ(mkfifo(name.c_str(), 0600), 0);
    const pid_t child = startInChild([&name] { return writes(name, "text") ? 0 : 1; });
    std::ifstream reader(name);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "text");
    reader.close();
    EXPECT_EQ(endOfChild(child), 0);
}

TEST(COM_FileWriter, ANameTooLongForASecondOneIsWrittenInPlace)
{
    const TestDirectory directory;
    const std::string name(250, 'n');
    EXPECT_TRUE(writes(directory.file(name), "text"));
    EXPECT_TRUE(writes(directory.file(name), "other"));
    EXPECT_EQ(directory.read(name), "other");
    EXPECT_EQ(namesIn(directory.path()), Names{name});
}

TEST(COM_FileWriter, ADirectoryThatTakesNoSecondFileIsWrittenInPlace)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", "old text");
    ASSERT_EQ(chmod(name.c_str(), 0666), 0);
    ASSERT_EQ(chmod(directory.path().c_str(), 0555), 0);
    EXPECT_EQ(runInChild([&name] {
                  becomeOrdinaryUser();
                  return writes(name, "new text") ? 0 : 1;
              }),
              0);
    EXPECT_EQ(directory.read("file"), "new text");
    EXPECT_EQ(namesIn(directory.path()), Names{"file"});
}

TEST(COM_FileWriter, AFileThatMayNotBeWrittenIsNotReplacedEither)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", "old text");
    ASSERT_EQ(chmod(name.c_str(), 0444), 0);
    ASSERT_EQ(chmod(directory.path().c_str(), 0777), 0);
    EXPECT_EQ(runInChild([&name] {
                  becomeOrdinaryUser();
                  COM_FileWriter writer(name);
                  return writer.isOpen() || writer.commit() ? 1 : 0;
              }),
              0);
    EXPECT_EQ(directory.read("file"), "old text");
    EXPECT_EQ(namesIn(directory.path()), Names{"file"});
}

TEST(COM_FileWriter, AMaskThatForbidsWritingNewFilesDoesNotLoseTheText)
{
    const TestDirectory directory;
    const std::string name = directory.write("file", "old text");
    ASSERT_EQ(chmod(name.c_str(), 0666), 0);
    ASSERT_EQ(chmod(directory.path().c_str(), 0777), 0);
    EXPECT_EQ(runInChild([&name] {
                  becomeOrdinaryUser();
                  umask(0222);
                  return writes(name, "new text") ? 0 : 1;
              }),
              0);
    EXPECT_EQ(directory.read("file"), "new text");
    EXPECT_EQ(namesIn(directory.path()), Names{"file"});
}
