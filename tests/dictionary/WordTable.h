#pragma once
#include <string>
#include <vector>

/// A row of the shipped table of words: the key, which is the English text, and the texts in French, German,
/// Spanish, Chinese and Italian.
using WordRow = std::vector<std::string>;

/// All rows, however many cells they have. Read once.
const std::vector<WordRow>& wordTable();
/// The text of a key in the language of that number; the empty string without it.
std::string wordIn(const std::string& key, std::size_t lang);
/// The letter after the first "&" of a text as a capital; '\0' if there is none.
char mnemonicOf(const std::string& text);
/// The number of times that `part` stands in `text`.
unsigned long countOf(const std::string& text, const std::string& part);
