// Menus and actions are found again by their translated labels, and each action with an "&" gets Ctrl and
// that letter in its window. So no language may give two of a window the same.
#include "dictionary/DICO_Dictionary.h"
#include "WordTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr std::size_t languages = std::size(DICO_Dictionary::STRING_LANGS);

struct Menu
{
    const char* mName;
    std::vector<const char*> mActions;
};

struct Window
{
    const char* mName;
    std::vector<Menu> mMenus;
    std::string mTaken = {};           ///< Letters of accelerators that no label decides.
    std::string mEnglishClashes = {};  ///< Letters that the keys themselves give to two actions.
    std::string mEnglishBarClash = {}; ///< Letters that the keys themselves give to two menus.
};

void PrintTo(const Window& window, std::ostream* out)
{
    *out << window.mName;
}

std::vector<std::string> namesOf(const Window& window, std::size_t lang)
{
    std::vector<std::string> names;
    for (const Menu& menu : window.mMenus) {
        names.push_back(wordIn(menu.mName, lang));
    }
    return names;
}

std::vector<std::string> labelsOf(const Menu& menu, std::size_t lang)
{
    std::vector<std::string> labels;
    for (const char* const action : menu.mActions) {
        labels.push_back(wordIn(action, lang));
    }
    return labels;
}

std::vector<std::string> labelsOf(const Window& window, std::size_t lang)
{
    std::vector<std::string> all;
    for (const Menu& menu : window.mMenus) {
        const std::vector<std::string> labels = labelsOf(menu, lang);
        all.insert(all.end(), labels.begin(), labels.end());
    }
    return all;
}

std::string textOf(const std::string& label)
{
    std::string text = label;
    text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
    return text;
}

/// Those that occur more than once or are missing, whatever their "&".
std::vector<std::string> repeated(const std::vector<std::string>& labels)
{
    std::set<std::string> known{""};
    std::vector<std::string> result;
    for (const std::string& label : labels) {
        if (!known.insert(textOf(label)).second) {
            result.push_back(label);
        }
    }
    return result;
}

/// Letters that more than one label has, or that are taken, in alphabetical order.
std::string clashesOf(const std::vector<std::string>& labels, const std::string& taken)
{
    std::set<char> known(taken.begin(), taken.end());
    std::set<char> clashes;
    for (const std::string& label : labels) {
        const char letter = mnemonicOf(label);
        if (letter != '\0' && !known.insert(letter).second) {
            clashes.insert(letter);
        }
    }
    return {clashes.begin(), clashes.end()};
}

class MenuWordsTest : public testing::TestWithParam<Window>
{};

const Window mainWindow{
    "MainWindow",
    {{"&Project", {"&New Project", "&Load Project", "&Save Project", "Save &As Project", "&Quit"}},
     {"&Edit", {"&Parameters", "Project Description", "Preferences"}},
     {"&Run", {"&Run"}},
     {"&Visualize", {"&Visualize"}},
     {"&Help", {"Manual", "About"}}}};

const Window textEditor{
    "TextEditor",
    {{"&File", {"&New Text", "&Load Text", "&Save", "Save &As", "&Print", "&Quit"}},
     {"&Edit", {"Undo", "&Redo", "&Copy", "Cut", "Paste"}},
     {"&Format", {"&Underline", "&Italic", "Bold", "Left Align", "Right Align", "Center Align"}}},
    "BVXZ",
    "",
    "F"};

const Window helpBrowser{"HelpBrowser",
                         {{"&File", {"&New Window", "&Open File", "&Print", "Close"}},
                          {"&Navigator", {"Back", "Next", "Home"}},
                          {"&History", {}},
                          {"&Bookmark", {"&Add Bookmark"}},
                          {"&Help", {"About", "About Browser"}}},
                         "Q",
                         "",
                         "H"};

const Window plotter{
    "Plotter",
    {{"&File", {"&Load File", "&Save", "Save &As", "Save As Image", "&Quit"}},
     {"&Edit", {"&Redo", "&Undo", "Show &Grid", "Show &Axes", "&Options", "&Print", "&Legends"}},
     {"&Zoom", {"Zoom +", "Zoom -", "Zoom Select", "Zoom Fit"}},
     {"&Move", {"Move North", "Move South", "Move West", "Move East"}},
     {"&Tools",
      {"Log/FFT Transform", "Save Plot", "Load Plot", "Export the Curves", "Copy the Picture",
       "Copy the Values"}}},
    "",
    "AL",
    ""};

} // namespace

TEST_P(MenuWordsTest, MenusOfABarHaveDifferentNames)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        EXPECT_EQ(repeated(namesOf(GetParam(), lang)), std::vector<std::string>())
            << DICO_Dictionary::STRING_LANGS[lang];
    }
}

TEST_P(MenuWordsTest, ActionsOfAMenuHaveDifferentLabels)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        for (const Menu& menu : GetParam().mMenus) {
            EXPECT_EQ(repeated(labelsOf(menu, lang)), std::vector<std::string>())
                << DICO_Dictionary::STRING_LANGS[lang] << ", " << menu.mName;
        }
    }
}

TEST_P(MenuWordsTest, ActionsOfAWindowHaveDifferentLetters)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        EXPECT_EQ(clashesOf(labelsOf(GetParam(), lang), GetParam().mTaken),
                  lang == DICO_Dictionary::LANG_EN ? GetParam().mEnglishClashes : "")
            << DICO_Dictionary::STRING_LANGS[lang];
    }
}

TEST_P(MenuWordsTest, MenusOfABarHaveDifferentLetters)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        EXPECT_EQ(clashesOf(namesOf(GetParam(), lang), ""),
                  lang == DICO_Dictionary::LANG_EN ? GetParam().mEnglishBarClash : "")
            << DICO_Dictionary::STRING_LANGS[lang];
    }
}

TEST_P(MenuWordsTest, TheLetterSOnlySaves)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        for (const Menu& menu : GetParam().mMenus) {
            for (const char* const action : menu.mActions) {
                if (mnemonicOf(wordIn(action, lang)) == 'S') {
                    EXPECT_TRUE(std::string(action).starts_with("&Save"))
                        << DICO_Dictionary::STRING_LANGS[lang] << ", " << action;
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, MenuWordsTest,
                         testing::Values(mainWindow, textEditor, helpBrowser, plotter),
                         [](const auto& window) { return window.param.mName; });
