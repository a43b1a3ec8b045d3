#pragma once
#include <memory>
#include <string>
#include <system_error>
#include <vector>

/// The reader of the result files of a run.
///
/// A run saves what happens at its captors, a few nodes of the mesh, with one line per time step in
/// every file: line k of each belongs to step k. So a line counts only when it holds exactly as
/// many numbers as captors.res promises, and the white space behind the last of them, without which
/// a cut file could end in the midst of a number. Reading stops at the first line that is not so:
/// no value ever slips to another step. Blank lines are passed over, any white space stands between
/// numbers, lines end as on any system. Only plain files are read. The memory taken follows the
/// size of the files, never a number in them. Nothing is printed; copies are independent; constant
/// operations may run in several threads.
class QV_Results
{
public:
    /// A node at which the run has saved. The values given here are those of a captor that
    /// captors.res names without describing it.
    struct Captor
    {
        unsigned long mLocation = 0;        ///< Number of the node in the mesh, and in file names.
        double mRelativePosition = 0.0;     ///< Location over the number of nodes, 0 to below 1.
        std::vector<double> mPosition{0.0}; ///< At most 3 coordinates, dimensionless.
        unsigned long mRhoSize = 1;         ///< Rows, and columns, of each density matrix.
        unsigned long mBlochEquationsNumber = 1; ///< Density matrices: one per system.
        unsigned long mEDimension = 1;           ///< Components of the field.
    };
    /// The columns of tps.res, of equal lengths, one value per step.
    struct Times
    {
        std::vector<double> mT;               ///< Dimensionless: seconds times the Rabi frequency.
        std::vector<double> mRabiFrequencies; ///< rad/s, in every line the same.
        std::vector<double> mSeconds;
    };
    /// One column of the file of a captor, beside the times in that same file. Both are of equal
    /// lengths.
    struct Samples
    {
        std::vector<double> mT; ///< Dimensionless.
        std::vector<double> mValues;
    };
    /// Points (mX[k], mY[k]); both are of equal lengths.
    struct Curve
    {
        std::vector<double> mX; ///< Seconds.
        std::vector<double> mY;
    };
    /// Row and column of an element of a density matrix, from 0.
    struct Element
    {
        unsigned long mI;
        unsigned long mJ;
    };
    /// What `removeResultFiles` did.
    struct Removal
    {
        unsigned long mRemoved = 0; ///< Files that are gone.
        bool mIsComplete = true;    ///< False when some could not be removed, or not be looked for.
    };

    /// All that was saved at one captor, side by side, a row per step of tps.res.
    ///
    /// The columns, in order: "t" (dimensionless) and "t (s)"; "E0 (V/m)" and so on for each
    /// component of the field; for each system b "Rho_Bloch<b> iterations", then the elements of
    /// its matrix row after row, "Rho_Bloch<b>[0][0]" and so on. A file that is not there has no
    /// columns.
    class Table
    {
    public:
        unsigned long getRowsNumber() const { return mTimes.mSeconds.size(); }
        unsigned long getColumnsNumber() const { return mColumnsNumber; }
        /// Empty for a column that does not exist.
        std::string getColumnName(unsigned long column) const;
        /// Not-a-number for a cell that does not exist, or beyond the end of its column's file.
        double getValue(unsigned long row, unsigned long column) const;

    private:
        friend class QV_Results;

        /// The columns of one file, without its times.
        struct Part
        {
            bool mIsField;               ///< Of the field, else of a density matrix.
            unsigned long mSystem;       ///< Of the density matrix.
            unsigned long mRhoSize;      ///< Of the density matrix.
            unsigned long mFirstColumn;  ///< Place in the table.
            unsigned long mWidth;        ///< Number of columns, at least 1.
            std::vector<double> mValues; ///< mValues[row * mWidth + column - mFirstColumn].
        };

        /// The part that `column` lies in; null for the times and for columns that do not exist.
        const Part* partOf(unsigned long column) const;

        Times mTimes;
        std::vector<Part> mParts; ///< From left to right.
        unsigned long mColumnsNumber = 2;
    };

    /// All that was saved at all captors, read step by step and never held: one line of each file is in memory.
    /// All files stay open meanwhile.
    class Rows
    {
    public:
        /// The columns of one file, without its times. Those of a field are its components, in V/m; those of a
        /// density matrix the iterations, then the real parts of its elements, row after row.
        struct Part
        {
            unsigned long mCaptor;   ///< Number of the captor, from 1 by ascending node.
            unsigned long mLocation; ///< Node of the captor.
            bool mIsField;           ///< Of the field, else of a density matrix.
            unsigned long mSystem;   ///< Of the density matrix.
            unsigned long mRhoSize;  ///< Of the density matrix.
            unsigned long mWidth;    ///< Number of columns, at least 1.
            /// Those of the present step: `mWidth` of them, or none when the file has ended before.
            std::vector<double> mValues;
        };

        /// Opens tps.res and the files of the captors that `results` has read; `results` is not needed
        /// further.
        explicit Rows(const QV_Results& results);
        ~Rows();
        Rows(const Rows&) = delete;
        Rows& operator=(const Rows&) = delete;

        /// Why there are no rows, as a sentence without line end: tps.res is missing, or another file is there
        /// and cannot be opened, as where there are more than a process may open. Empty when all is well.
        const std::string& getMessage() const { return mMessage; }
        /// Goes to the next step, at first to the first one. False behind the last line of tps.res.
        bool next();
        double getSeconds() const { return mSeconds; }
        /// Captor after captor, the field first, then the systems. A file that is missing has none.
        const std::vector<Part>& getParts() const { return mParts; }

    private:
        struct Files;

        void open(const std::string& name, Part part);

        std::unique_ptr<Files> mFiles;
        std::vector<Part> mParts;
        double mSeconds = 0.0;
        std::string mMessage;
    };

    static constexpr const char* CAPTORS_FILE = "captors.res";
    static constexpr const char* FREQUENCIES_FILE = "level_Frequencies.res";
    static constexpr const char* TIMES_FILE = "tps.res";
    /// Larger numbers in captors.res are damage and are passed over.
    static constexpr unsigned long MAX_LOCATION = 2147483647;
    static constexpr unsigned long MAX_RHO_SIZE = 1000;
    static constexpr unsigned long MAX_SYSTEMS = 100000;
    static constexpr unsigned long MAX_E_DIMENSION = 3;
    static constexpr unsigned long MAX_COORDINATES = 3;
    /// Names that `expectedFileNames` gives at the most. A run holds its files open all at once,
    /// and this is the number that systems usually allow a process.
    static constexpr unsigned long MAX_FILES = 1048576;

    /// Reads captors.res and makes `directory` the one to read from; what was read before is
    /// forgotten. The text stands in front of the file names as it is, so it ends in a slash;
    /// empty, it is the working directory. False, with a message and no captors, when the file
    /// cannot be opened.
    ///
    /// Each word "captors" begins a captor; "Location:", "RelPosition:", "Position:", "RhoSize:",
    /// "BlochEquationsNumber:" and "EDim:" stand before its values, in any order and layout. Other
    /// words are passed over. A value that is no number, is negative or exceeds its limit leaves
    /// the former one. A missing position, or one of less than 2 characters, has no coordinates;
    /// else its first and last character are dropped and commas part the coordinates, of which the
    /// first 3 count.
    bool readCaptors(const std::string& directory);
    /// Reads tps.res. False, with a message and no times, when it cannot be opened.
    bool readTimes();

    /// The captors by ascending location, those of equal location as in the file.
    const std::vector<Captor>& getCaptors() const { return mCaptors; }
    /// The times that `readTimes` has read last.
    const Times& getTimes() const { return mTimes; }
    /// Why the last `readCaptors` or `readTimes` has failed: a sentence without line end. Empty
    /// when it has not.
    const std::string& getMessage() const { return mMessage; }

    /// One component of the field, from 0, in V/m. Empty for one that does not exist.
    Samples readField(const Captor& captor, unsigned long component) const;
    /// All components of the field in V/m, `mEDimension` vectors of equal lengths, by one reading
    /// of the file.
    std::vector<std::vector<double>> readFields(const Captor& captor) const;
    /// Real part of the element (i, j) of the density matrix of a system, all from 0. Empty for one
    /// that does not exist. In the files of the predictor-corrector it is seen from a turning,
    /// decaying frame.
    Samples readDensity(const Captor& captor, unsigned long system, unsigned long i,
                        unsigned long j) const;
    /// The same for several elements by one reading of the file: a vector for each of `elements`.
    std::vector<std::vector<double>> readDensities(const Captor& captor, unsigned long system,
                                                   const std::vector<Element>& elements) const;
    /// Iterations that a system took in each step. Empty for a system that does not exist.
    Samples readIterations(const Captor& captor, unsigned long system) const;

    /// `values` over the seconds that `readTimes` has read last: as many points as the shorter has.
    Curve curveOf(std::vector<double> values) const;
    /// The same with what `readField`, `readDensity` and `readIterations` give.
    Curve fieldCurve(const Captor& captor, unsigned long component) const;
    Curve densityCurve(const Captor& captor, unsigned long system, unsigned long i,
                       unsigned long j) const;
    Curve iterationsCurve(const Captor& captor, unsigned long system) const;

    /// All files of a captor as one table, with a row for each time that `readTimes` has read last.
    Table readTable(const Captor& captor) const;

    /// Number of files that a run with these captors makes: 3, and for each captor 1 for its field
    /// and 1 for each of its systems.
    unsigned long expectedFilesNumber() const;
    /// Their names without the directory, the first `MAX_FILES` of them: the 3, then captor after
    /// captor.
    std::vector<std::string> expectedFileNames() const;

    static std::string fieldFileName(unsigned long location);
    static std::string densityFileName(unsigned long system, unsigned long location);
    /// Whether a run writes files of that name: captors.res, level_Frequencies.res, tps.res,
    /// E_at_<digits>.res or Rho_Bloch<digits>_at_<digits>.res.
    static bool isResultFileName(const std::string& name);
    /// Removes the files of such names from a directory, with or without a slash at its end, and
    /// nothing else; links are removed, not followed. A directory of such a name stays and counts
    /// as not removed. A `directory` that does not exist holds nothing to remove; empty, it is the
    /// working directory.
    static Removal removeResultFiles(const std::string& directory);

private:
    /// The systems below `mBlochEquationsNumber` of which there is a density file, ascending. `error` tells
    /// when the directory could not be looked through.
    std::vector<unsigned long> findSystems(const Captor& captor, std::error_code& error) const;
    /// One column of a density file; 0 holds the times, 1 the iterations, then comes the matrix.
    Samples readDensityColumn(const Captor& captor, unsigned long system,
                              unsigned long column) const;

    std::string mDirectory; ///< Put in front of the file names as it is.
    std::vector<Captor> mCaptors;
    Times mTimes;
    std::string mMessage;
};
