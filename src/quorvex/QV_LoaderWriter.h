#pragma once
#include "quorvex/QV_Object.h"

#include <iosfwd>
#include <string>
#include <vector>

class QV_Problem;

/// The bridge between a problem and its files: meta-model XML both ways, and the older plain-text parameter
/// files, `qv1.dat` with keywords and a matrix file of the `qv2.dat` family, for reading.
/// docs/file-formats.md has the grammars.
class QV_LoaderWriter : public QV_Object
{
    COM_CLASS(QV_LoaderWriter)
public:
    void setProblem(QV_Problem* problem);
    void setProblem(QV_Problem& problem) { setProblem(&problem); }
    void resetProblem() { setProblem(nullptr); }
    QV_Problem* getProblem() const { return mProblem; }

    /// Reads into the present problem, or makes the file's problem the present one. A file that holds no
    /// problem changes nothing.
    void load(const std::string& file);
    void load(const std::string& file, QV_Problem* problem);
    void load(const std::string& file, QV_Problem& problem) { load(file, &problem); }
    /// Writes the present problem, if there is one. The name is relative to the working directory. False,
    /// after a line on standard output, when the file cannot be written; the old one is then as it was.
    bool save(const std::string& file) const;
    bool save(const std::string& file, QV_Problem* problem);
    bool save(const std::string& file, QV_Problem& problem) { return save(file, &problem); }

    /// Makes a new one-dimensional problem from a keyword file. False, after a line on standard output, when
    /// the file cannot be opened. A word that names no method or pulse ends the process with status 0.
    bool readFile(const std::string& file);
    /// Completes the problem from a matrix file for `n` levels; method and relaxation type tell which
    /// sections it has. False when it cannot be opened or `n` is larger than memory allows. Numbers that
    /// the file lacks are 0.
    bool readMatrix(unsigned long n, const std::string& file, unsigned char method,
                    unsigned char relaxation);
    /// Reads `qv1.dat` in `path`, which ends in a slash or is empty, or makes a default problem when there
    /// is none, and then the matrix file that fits its data.
    void create1DMaxwellProblem(const std::string& path);
    void create1DMaxwellProblem() { create1DMaxwellProblem({}); }

    /// "group attribute" of each value without default that the last keyword file did not give.
    const std::vector<std::string>& getMissingAttributes() const { return mMissingAttributes; }
    /// How many numbers the last matrix file was short of.
    unsigned long getMissingNumbers() const { return mMissingNumbers; }
    /// Name of the matrix file for a method and a relaxation type.
    static std::string matrixFileName(unsigned char method, unsigned char relaxation);
    /// A zero-terminated copy that the caller frees with delete[].
    static char* stringToCharArray(const std::string& text);

protected:
    QV_LoaderWriter();
    ~QV_LoaderWriter() override;

private:
    struct Parameters;

    static bool readLine(std::ifstream& stream, std::string& keyword,
                         std::vector<std::string>& attributes, std::vector<std::string>& values,
                         std::string& comment);
    void createProblem(const Parameters& parameters);
    static void setAtoms(const Parameters& parameters);

    QV_Problem* mProblem = nullptr; ///< Counted.
    std::vector<std::string> mMissingAttributes;
    unsigned long mMissingNumbers = 0;
};
