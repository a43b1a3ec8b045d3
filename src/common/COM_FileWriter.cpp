#include "common/COM_FileWriter.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t newFileMode = 0666; ///< Less what the process's mask takes away.
constexpr int tries = 100;           ///< Names tried for the file beside.

/// The file that `name` leads to when it is a link to an existing one, else `name`.
std::string resolved(const std::string& name)
{
    char* const path = realpath(name.c_str(), nullptr);
    if (path == nullptr) {
        return name;
    }
    std::string result(path);
    std::free(path);
    return result;
}

} // namespace

COM_FileWriter::COM_FileWriter(const std::string& fileName)
    : mFileName(resolved(fileName))
{
    struct stat status
    {};
    // A link that is still one leads to no file yet: the text is written through it.
    const bool exists = lstat(mFileName.c_str(), &status) == 0;
    const bool isPlain = !exists || S_ISREG(status.st_mode);
    // A file that may not be written is not replaced behind its owner's back either.
    const bool isAllowed = !exists || access(mFileName.c_str(), W_OK) == 0;
    if (isPlain && isAllowed && openBeside()) {
        if (exists) {
            chmod(mSparePath.c_str(), status.st_mode & 07777);
        }
        return;
    }
    mStream.open(mFileName, std::ios::binary | std::ios::trunc);
}

COM_FileWriter::~COM_FileWriter()
{
    mStream.close();
    if (!mSparePath.empty()) {
        unlink(mSparePath.c_str());
    }
}

bool COM_FileWriter::openBeside()
{
    for (int i = 0; i < tries; ++i) {
        const std::string spare =
            mFileName + "." + std::to_string(getpid()) + "." + std::to_string(i) + ".new";
        const int handle =
            open(spare.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, newFileMode);
        if (handle >= 0) {
            ::close(handle);
            mStream.open(spare, std::ios::binary | std::ios::trunc);
            if (!mStream.is_open()) { // the process's mask forbids it
                unlink(spare.c_str());
                return false;
            }
            mSparePath = spare;
            return true;
        }
        if (errno != EEXIST) {
            return false;
        }
    }
    return false;
}

bool COM_FileWriter::flushToDisk()
{
    mStream.close();
    if (mStream.fail()) {
        return false;
    }
    // A pipe is not waited for until somebody else writes to it.
    const int handle = open((mSparePath.empty() ? mFileName : mSparePath).c_str(),
                            O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) {
        return mSparePath.empty(); // a pipe or a device, already written
    }
    const bool isSafe = fsync(handle) == 0 || errno == EINVAL || errno == EROFS;
    ::close(handle);
    return isSafe;
}

bool COM_FileWriter::commit()
{
    if (!isOpen() || !flushToDisk()) {
        return false;
    }
    if (mSparePath.empty()) {
        return true;
    }
    if (std::rename(mSparePath.c_str(), mFileName.c_str()) != 0) {
        return false;
    }
    mSparePath.clear();
    return true;
}
