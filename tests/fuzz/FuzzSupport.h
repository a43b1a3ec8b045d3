#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What every target defines: hands one input to a reader. Returns 0; a defect ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input as text, bytes as they are.
std::string_view textOf(const std::uint8_t* data, std::size_t size);

/// Ends the process by abort, after a line on standard error, when something that holds for every input
/// does not hold.
void require(bool condition, const char* what);

/// A directory of this process, in memory where the system has such a place, with a slash at its end. It is
/// removed when the process ends.
const std::string& scratchDirectory();
/// Replaces a file of that directory and gives its path.
std::string writeScratch(const std::string& name, std::string_view bytes);
/// All bytes of a file.
std::string bytesOf(const std::string& path);
