#pragma once
#include <QLine>

#include <cstdint>
#include <vector>

/// Which pixels of some columns are covered by vertical lines. Many lines over one another become few.
class GUI2D_Coverage
{
public:
    /// Columns from `left` and rows from `top` on; none is covered.
    GUI2D_Coverage(int left, int top, int columns, int rows);

    /// Covers a column from one row to another, both included. False, and nothing is covered: some of it lies
    /// outside.
    bool add(int column, int from, int to);
    /// Appends a line for each stretch of covered rows, column after column, and uncovers them.
    void takeLines(std::vector<QLine>& lines);

private:
    using Word = std::uint64_t;

    void takeColumn(int column, std::vector<QLine>& lines);

    int mLeft;
    int mTop;
    int mColumns;
    int mRows;
    int mWords;               ///< Of a column.
    std::vector<Word> mBits;  ///< Column after column, the lowest bit first.
    std::vector<bool> mInUse; ///< The columns with a covered row.
};
