#include "FuzzSupport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

bool isFinished = false;

/// A reader that ends the process must not look like success, whatever status it gives.
void failUnlessFinished()
{
    if (!isFinished) {
        std::fprintf(stderr, "the process was ended from inside\n");
        std::_Exit(EXIT_FAILURE);
    }
}

} // namespace

/// Hands every file of a corpus to a target, as an ordinary program: `<target> <directory>`. The last name
/// on standard error is that of the file that ended it.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_DIRECTORY\n", argv[0]);
        return EXIT_FAILURE;
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::atexit(failUnlessFinished);
    for (const std::filesystem::path& file : files) {
        std::fprintf(stderr, "%s\n", file.filename().c_str());
        const std::string input = bytesOf(file.string());
        // A copy without a byte to spare, so that reading past the end is noticed.
        const std::vector<std::uint8_t> bytes(input.begin(), input.end());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    isFinished = true;
    std::fprintf(stderr, "%zu inputs\n", files.size());
    return files.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
