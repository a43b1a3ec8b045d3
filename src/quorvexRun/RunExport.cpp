#include "quorvexRun/RunExport.h"

#include "common/COM_FileWriter.h"

#include <charconv>

namespace {

constexpr unsigned long stepsBetweenLooks = 1024; ///< Between questions whether to stop.

/// 1 is the unit of what has none. Indices are words of their own: readers that take brackets out of names
/// would make one name of [1][11] and [11][1]. Numbers go through texts, which no locale divides into groups.
void writeName(std::ostream& out, const QV_Results::Rows::Part& part, unsigned long place)
{
    out << ",captor " << std::to_string(part.mCaptor) << " node " << std::to_string(part.mLocation);
    if (part.mIsField) {
        static constexpr const char* axes[] = {"x", "y", "z"}; // as many as a field may have
        out << " E" << axes[place] << " (V/m)";
        return;
    }
    out << " system " << std::to_string(part.mSystem);
    if (place == 0) {
        out << " iterations (1)";
        return;
    }
    const unsigned long element = place - 1;
    out << " Re rho " << std::to_string(element / part.mRhoSize) << " "
        << std::to_string(element % part.mRhoSize) << " (1)";
}

/// The shortest text that reads as the same number: it has all digits that the result file has.
void appendNumber(std::string& line, double value)
{
    char text[32]; // 24 at the most, as -1.7976931348623157e+308
    const auto [end, error] = std::to_chars(text, text + sizeof text, value);
    line.append(text, error == std::errc() ? end : text);
}

} // namespace

// Part by part: a damaged captors.res may promise more columns than memory holds.
void RunExport::writeHeader(std::ostream& out, const QV_Results::Rows& rows)
{
    out << "time (s)";
    for (const QV_Results::Rows::Part& part : rows.getParts()) {
        for (unsigned long place = 0; place < part.mWidth; ++place) {
            writeName(out, part, place);
        }
    }
    out << "\n";
}

void RunExport::writeRow(std::ostream& out, const QV_Results::Rows& rows, std::string& text)
{
    text.clear();
    appendNumber(text, rows.getSeconds());
    for (const QV_Results::Rows::Part& part : rows.getParts()) {
        if (part.mValues.empty()) {
            text.append(part.mWidth, ',');
        }
        for (const double value : part.mValues) {
            text += ',';
            appendNumber(text, value);
        }
        out << text;
        text.clear();
    }
    out << text << "\n";
}

RunExport::Result RunExport::write(const std::string& fileName,
                                   const std::function<bool()>& isStopped)
{
    mMessage.clear();
    QV_Results results;
    if (!results.readCaptors(mDirectory)) {
        mMessage = results.getMessage();
        return UNREADABLE;
    }
    QV_Results::Rows rows(results);
    if (!rows.getMessage().empty()) {
        mMessage = rows.getMessage();
        return UNREADABLE;
    }
    COM_FileWriter file(fileName);
    writeHeader(file.stream(), rows);
    std::string text;
    for (unsigned long number = 0; file.stream().good() && rows.next(); ++number) {
        if (number % stepsBetweenLooks == 0 && isStopped()) {
            return STOPPED;
        }
        writeRow(file.stream(), rows, text);
    }
    return file.commit() ? WRITTEN : UNWRITABLE;
}
