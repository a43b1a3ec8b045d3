#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

/// Whole texts by the names of their files.
using ResultFiles = std::map<std::string, std::string>;

/// The result files of a run, "*.res", that lie in a directory. What is no regular file is passed over,
/// and one that cannot be read fails the test.
inline ResultFiles resultFilesIn(const std::filesystem::path& directory)
{
    ResultFiles files;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        if (entry.path().extension() == ".res" && entry.is_regular_file()) {
            std::ifstream stream(entry.path(), std::ios::binary);
            EXPECT_TRUE(stream.is_open()) << entry.path();
            files[entry.path().filename().string()].assign(std::istreambuf_iterator<char>(stream),
                                                           {});
        }
    }
    return files;
}
