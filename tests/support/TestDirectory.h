#pragma once
#include <filesystem>
#include <string>
#include <vector>

/// A directory of its own for a test, removed with all its contents at the end of the scope.
class TestDirectory
{
public:
    TestDirectory();
    ~TestDirectory();
    TestDirectory(const TestDirectory&) = delete;
    TestDirectory& operator=(const TestDirectory&) = delete;

    const std::filesystem::path& path() const { return mPath; }
    /// The directory's path with a slash at its end.
    std::string slashed() const { return mPath.string() + "/"; }
    /// The path of a file in the directory.
    std::string file(const std::string& name) const { return (mPath / name).string(); }
    /// Writes a file in the directory and gives its path.
    std::string write(const std::string& name, const std::string& text) const;
    /// The whole text of a file in the directory; a missing file fails the test.
    std::string read(const std::string& name) const;

private:
    std::filesystem::path mPath;
};

/// The names of what lies in a directory, in order.
std::vector<std::string> namesIn(const std::filesystem::path& directory);
