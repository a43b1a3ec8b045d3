#include "gui2d/GUI2D_Coverage.h"

#include <algorithm>
#include <bit>

namespace {

constexpr int wordBits = 64;

} // namespace

GUI2D_Coverage::GUI2D_Coverage(int left, int top, int columns, int rows)
    : mLeft(left)
    , mTop(top)
    , mColumns(std::max(columns, 0))
    , mRows(std::max(rows, 0))
    , mWords((mRows + wordBits - 1) / wordBits)
    , mBits(static_cast<std::size_t>(mColumns) * mWords)
    , mInUse(mColumns)
{}

bool GUI2D_Coverage::add(int column, int from, int to)
{
    if (from > to) {
        std::swap(from, to);
    }
    if (column < mLeft || column >= mLeft + mColumns || from < mTop || to >= mTop + mRows) {
        return false;
    }
    const int place = column - mLeft;
    const int first = from - mTop;
    const int last = to - mTop;
    mInUse[place] = true;
    Word* const bits = mBits.data() + static_cast<std::size_t>(place) * mWords;
    const Word head = ~Word(0) << (first % wordBits);
    const Word tail = ~Word(0) >> (wordBits - 1 - last % wordBits);
    const int firstWord = first / wordBits;
    const int lastWord = last / wordBits;
    if (firstWord == lastWord) {
        bits[firstWord] |= head & tail;
        return true;
    }
    bits[firstWord] |= head;
    std::fill(bits + firstWord + 1, bits + lastWord, ~Word(0));
    bits[lastWord] |= tail;
    return true;
}

void GUI2D_Coverage::takeLines(std::vector<QLine>& lines)
{
    for (int column = 0; column < mColumns; ++column) {
        if (mInUse[column]) {
            takeColumn(column, lines);
            mInUse[column] = false;
        }
    }
}

void GUI2D_Coverage::takeColumn(int column, std::vector<QLine>& lines)
{
    Word* const bits = mBits.data() + static_cast<std::size_t>(column) * mWords;
    // The first row from `row` on whose bit is `isCovered`; the number of rows if there is none.
    const auto find = [&](int row, bool isCovered) {
        for (int word = row / wordBits; word < mWords; ++word) {
            Word left = isCovered ? bits[word] : ~bits[word];
            if (word == row / wordBits) {
                left &= ~Word(0) << (row % wordBits);
            }
            if (left != 0) {
                return std::min(word * wordBits + std::countr_zero(left), mRows);
            }
        }
        return mRows;
    };
    for (int row = find(0, true); row < mRows;) {
        const int end = find(row, false);
        lines.emplace_back(mLeft + column, mTop + row, mLeft + column, mTop + end - 1);
        row = end < mRows ? find(end, true) : mRows;
    }
    std::fill_n(bits, mWords, Word(0));
}
