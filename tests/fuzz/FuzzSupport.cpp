#include "FuzzSupport.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {

constexpr const char* memoryDirectory = "/dev/shm";

/// Standard output leads nowhere from the start: readers tell there what they miss, for every input anew.
bool silence()
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    return nowhere >= 0 && dup2(nowhere, STDOUT_FILENO) >= 0 && close(nowhere) == 0;
}

class Directory
{
public:
    Directory()
    {
        require(silence(), "no way to silence standard output");
        const bool isChosen = std::getenv("TMPDIR") != nullptr;
        const bool hasMemory = access(memoryDirectory, W_OK | X_OK) == 0;
        const std::filesystem::path place = !isChosen && hasMemory
                                                ? std::filesystem::path(memoryDirectory)
                                                : std::filesystem::temp_directory_path();
        std::string name = (place / "quorvex-fuzz-XXXXXX").string();
        require(mkdtemp(name.data()) != nullptr, "no scratch directory");
        mPath = name + "/";
    }
    ~Directory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};

const Directory scratch;

} // namespace

std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

void require(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

const std::string& scratchDirectory()
{
    return scratch.path();
}

std::string writeScratch(const std::string& name, std::string_view bytes)
{
    const std::string path = scratchDirectory() + name;
    const int handle = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
    require(handle >= 0, "a scratch file can be made");
    const bool isWritten =
        write(handle, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    require(isWritten && close(handle) == 0, "a scratch file can be written");
    return path;
}

std::string bytesOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    require(stream.is_open(), "a scratch file can be read");
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
