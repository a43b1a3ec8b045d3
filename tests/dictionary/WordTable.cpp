#include "WordTable.h"

#include <fstream>
#include <sstream>

namespace {

std::vector<WordRow> readTable()
{
    std::vector<WordRow> rows;
    std::ifstream table(QUORVEX_SOURCES "/data/linguist/words.tsv");
    std::string line;
    while (std::getline(table, line)) {
        std::istringstream cells(line + "\t");
        WordRow row;
        std::string cell;
        while (std::getline(cells, cell, '\t')) {
            row.push_back(cell);
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace

const std::vector<WordRow>& wordTable()
{
    static const std::vector<WordRow> rows = readTable();
    return rows;
}

std::string wordIn(const std::string& key, std::size_t lang)
{
    for (const WordRow& row : wordTable()) {
        if (row.front() == key && lang < row.size()) {
            return row[lang];
        }
    }
    return {};
}

char mnemonicOf(const std::string& text)
{
    const std::size_t mark = text.find('&');
    if (mark == std::string::npos || mark + 1 == text.size()) {
        return '\0';
    }
    const char letter = text[mark + 1];
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

unsigned long countOf(const std::string& text, const std::string& part)
{
    unsigned long count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}
