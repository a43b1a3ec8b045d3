#pragma once
#include <string>

class TestDirectory;

/// A complete set of older parameter files for a small problem: 40 nodes, a pulse of 4 fs, 20 steps by
/// splitting, two levels.
class OlderFiles
{
public:
    /// The keyword file, group after group in their usual order.
    static std::string keywords();
    /// The same with `from` replaced by `to`; a text that is not there fails the test.
    static std::string keywordsWith(const std::string& from, const std::string& to);
    /// The file that holds the atoms, and the name that goes with the keywords.
    static std::string matrices();
    static constexpr const char* MATRIX_FILE = "qv2p.dat";

    /// Makes the directory `name` with both files.
    static void write(const TestDirectory& directory, const std::string& name);
    static void write(const TestDirectory& directory, const std::string& name,
                      const std::string& keywords);
};
