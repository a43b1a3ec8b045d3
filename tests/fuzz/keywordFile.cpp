// Reads the input as a file of keywords. Words that end the process are thrown out of the reader.
#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "FuzzSupport.h"
#include "ProcessExit.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_Problem.h"
#include "quorvex/QV_ProblemCheck.h"

#include <sstream>

namespace {

constexpr long slowCount = 64;           ///< Levels or systems; more of them only take time,
constexpr long refusedLevels = 1L << 14; ///< unless they are so many that they are refused.

/// True when a group asks for so many levels or systems that making them is what takes the time.
bool isSlow(std::string_view text)
{
    std::istringstream stream{std::string(text)};
    std::string group;
    std::string token;
    while (stream >> token) {
        if (group.empty()) {
            group = token.starts_with('&') ? token : "";
            continue;
        }
        if (token.starts_with("n=")) {
            const long number = COM_Integer::parseInt(token.substr(2));
            const bool isRefused = group == "&dim" && (number < 0 || number > refusedLevels);
            if (number > slowCount && !isRefused) {
                return true;
            }
        }
        if (token.starts_with('/') || token.ends_with('/')) {
            group.clear();
            std::getline(stream, token);
        }
    }
    return false;
}

void read(const std::string& file)
{
    const COM_Scoped loader(QV_LoaderWriter::New());
    try {
        require(loader->readFile(file), "a file that is there is read");
    } catch (const ProcessExit& end) {
        require(end.mStatus == 0, "an unknown word ends the process with status 0");
        return;
    }
    require(loader->getProblem() != nullptr, "reading makes a problem");
    QV_ProblemCheck::check(*loader->getProblem(), scratchDirectory());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = textOf(data, size);
    if (!isSlow(text)) {
        read(writeScratch("qv1.dat", text));
        QV_Bloch::resetShared();
    }
    return 0;
}
