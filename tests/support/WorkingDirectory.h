#pragma once
#include <gtest/gtest.h>

#include <filesystem>

/// Makes a directory the process's working directory for the scope.
class WorkingDirectory
{
public:
    explicit WorkingDirectory(const std::filesystem::path& path)
        : mFormer(std::filesystem::current_path())
    {
        enter(path);
    }
    ~WorkingDirectory() { enter(mFormer); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    static void enter(const std::filesystem::path& path)
    {
        std::error_code error;
        std::filesystem::current_path(path, error);
        EXPECT_FALSE(error) << path << ": " << error.message();
    }

    std::filesystem::path mFormer;
};
