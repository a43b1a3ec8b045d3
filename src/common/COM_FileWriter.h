#pragma once
#include <fstream>
#include <string>

/// Replaces a file whole or not at all.
///
/// The text goes to a new file beside the old one, which takes its place, with its permissions, when all
/// of it is on the disk. Until `commit` has succeeded the old file is untouched. Where the directory takes
/// no second file, or the name is no plain file, the text is written in place.
class COM_FileWriter
{
public:
    explicit COM_FileWriter(const std::string& fileName);
    /// Takes the new file away unless it was committed.
    ~COM_FileWriter();
    COM_FileWriter(const COM_FileWriter&) = delete;
    COM_FileWriter& operator=(const COM_FileWriter&) = delete;

    /// False when the file cannot be written.
    bool isOpen() const { return mStream.is_open(); }
    std::ostream& stream() { return mStream; }
    /// Puts the new file in the place of the old one. False, with the old file as it was, when
    /// anything could not be written.
    bool commit();

private:
    bool openBeside();
    bool flushToDisk();

    std::string mFileName;  ///< The file itself, links followed.
    std::string mSparePath; ///< The new file; empty when it is written in place.
    std::ofstream mStream;
};
