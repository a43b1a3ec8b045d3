// makeDictionary WORDS DICTIONARY
//
// Makes the dictionary that is shipped from its table of words. A row has six columns, cut by tabs: the key,
// which is the English text, and the French, German, Spanish, Chinese and Italian texts. The same table gives
// the same bytes. Status 1, after a line on standard error, for a table that is not in order.
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr std::size_t columns = std::size(DICO_Dictionary::STRING_LANGS);

std::vector<std::string> cellsOf(const std::string& row)
{
    std::vector<std::string> cells(1);
    for (const char c : row) {
        if (c == '\t') {
            cells.emplace_back();
        } else {
            cells.back() += c;
        }
    }
    return cells;
}

/// What is wrong with a row, or the empty string.
std::string faultOf(const std::vector<std::string>& cells, const DICO_Dictionary& dictionary)
{
    if (cells.size() != columns) {
        return std::to_string(cells.size()) + " columns in place of " + std::to_string(columns);
    }
    if (std::any_of(cells.begin(), cells.end(), [](const auto& cell) { return cell.empty(); })) {
        return "an empty text";
    }
    if (dictionary.getWords().get(cells.front()) != nullptr) {
        return "a key for the second time";
    }
    // The file has no means to quote these.
    const auto isUnsafe = [](const auto& cell) { return cell.find("</") != std::string::npos; };
    if (cells.front().find('"') != std::string::npos
        || std::any_of(cells.begin(), cells.end(), isUnsafe)) {
        return "a text that a dictionary file cannot hold";
    }
    return {};
}

/// False after a line on standard error.
bool addWords(std::istream& table, DICO_Dictionary& dictionary)
{
    std::string row;
    for (unsigned long line = 1; std::getline(table, row); ++line) {
        const std::vector<std::string> cells = cellsOf(row);
        const std::string fault = faultOf(cells, dictionary);
        if (!fault.empty()) {
            std::cerr << "line " << line << ": " << fault << "\n";
            return false;
        }
        const COM_Scoped word(DICO_Word::New());
        for (std::size_t i = 0; i < columns; ++i) {
            word->setTranslation(DICO_Dictionary::STRING_LANGS[i], cells[i]);
        }
        dictionary.getWords().put(cells.front(), *word);
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: makeDictionary WORDS DICTIONARY\n";
        return EXIT_FAILURE;
    }
    std::ifstream table(argv[1]);
    if (!table.is_open()) {
        std::cerr << argv[1] << " cannot be opened\n";
        return EXIT_FAILURE;
    }
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    if (!addWords(table, *dictionary)) {
        return EXIT_FAILURE;
    }
    dictionary->save(argv[2]);
    const COM_Scoped saved(DICO_Dictionary::New(std::string(argv[2])));
    if (saved->getWords().keys() != dictionary->getWords().keys()) {
        std::cerr << argv[2] << " does not hold the words\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
