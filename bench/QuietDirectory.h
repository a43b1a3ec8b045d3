#pragma once
#include "BenchDirectory.h"

#include <filesystem>
#include <iostream>
#include <streambuf>
#include <string>

/// A directory of its own for the files of a run, and nothing on standard output meanwhile.
class QuietDirectory
{
public:
    QuietDirectory()
        : mFormer(std::filesystem::current_path())
        , mBuffer(std::cout.rdbuf(nullptr))
    {
        std::filesystem::current_path(mDirectory.path());
    }
    ~QuietDirectory()
    {
        std::cout.rdbuf(mBuffer);
        std::cout.clear();
        std::filesystem::current_path(mFormer);
    }
    QuietDirectory(const QuietDirectory&) = delete;
    QuietDirectory& operator=(const QuietDirectory&) = delete;

    std::string slashed() const { return mDirectory.slashed(); }

private:
    std::filesystem::path mFormer;
    BenchDirectory mDirectory;
    std::streambuf* mBuffer;
};
