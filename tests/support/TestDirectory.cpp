#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

TestDirectory::TestDirectory()
{
    const std::string letters(6, 'X'); // mkdtemp puts others in their place
    std::string name = std::filesystem::temp_directory_path() / ("quorvex-test-" + letters);
    if (mkdtemp(name.data()) == nullptr) {
        ADD_FAILURE() << "no temporary directory " << name;
    }
    mPath = name;
}

TestDirectory::~TestDirectory()
{
    std::error_code ignored;
    std::filesystem::permissions(mPath, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(mPath, ignored);
}

std::string TestDirectory::write(const std::string& name, const std::string& text) const
{
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name);
}

std::string TestDirectory::read(const std::string& name) const
{
    std::ifstream stream(file(name), std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file(name);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::string> namesIn(const std::filesystem::path& directory)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}
