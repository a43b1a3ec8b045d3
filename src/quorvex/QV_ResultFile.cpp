#include "quorvex/QV_ResultFile.h"

#include <charconv>
#include <cstdlib>
#include <iostream>
#include <sys/resource.h>

namespace {

constexpr std::size_t bufferSize = 65536;
constexpr int decimals = 6;

} // namespace

bool QV_ResultFile::open(const std::string& name)
{
    close();
    mName = name;
    mFile = std::fopen(name.c_str(), "we");
    if (mFile != nullptr) {
        std::setvbuf(mFile, nullptr, _IOFBF, bufferSize);
    }
    return mFile != nullptr;
}

void QV_ResultFile::openOrExit(const std::string& name)
{
    if (!open(name)) {
        std::cout << "FATAL ERROR: Problem of creation of file " << name << "\n";
        std::exit(0);
    }
}

bool QV_ResultFile::close()
{
    if (mFile == nullptr) {
        return true;
    }
    const bool isWritten = std::ferror(mFile) == 0;
    const bool isClosed = std::fclose(mFile) == 0;
    mFile = nullptr;
    if (isWritten && isClosed) {
        return true;
    }
    std::cerr << "The file " << mName << " could not be written completely.\n";
    return false;
}

std::string QV_ResultFile::fixedText(double x)
{
    char text[400]; // 309 digits before the point at the most
    const auto end =
        std::to_chars(text, text + sizeof text, x, std::chars_format::fixed, decimals).ptr;
    return {static_cast<const char*>(text), static_cast<const char*>(end)};
}

void QV_ResultFile::raiseOpenFilesLimit()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur < limit.rlim_max) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}
