#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>

/// A directory of its own for the files of a benchmark, removed with all its contents at the end of the scope.
class BenchDirectory
{
public:
    BenchDirectory()
    {
        const std::string letters(6, 'X'); // mkdtemp puts others in their place
        std::string name = std::filesystem::temp_directory_path() / ("quorvex-bench-" + letters);
        if (mkdtemp(name.data()) == nullptr) {
            std::abort();
        }
        mPath = name;
    }
    ~BenchDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    BenchDirectory(const BenchDirectory&) = delete;
    BenchDirectory& operator=(const BenchDirectory&) = delete;

    const std::filesystem::path& path() const { return mPath; }
    /// The directory's path with a slash at its end.
    std::string slashed() const { return mPath.string() + "/"; }

private:
    std::filesystem::path mPath;
};
