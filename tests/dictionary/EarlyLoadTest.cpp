// What the program does before main: a shared dictionary is made and loaded while other files' statics
// may not exist yet.
#include "dictionary/DICO_Dictionary.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <unistd.h>

namespace {

/// Loads a dictionary and then a file that is not there, ahead of every static of an ordinary priority.
struct EarlyLoad
{
    EarlyLoad()
    {
        int ends[2] = {-1, -1};
        const int output = dup(STDOUT_FILENO);
        if (output < 0 || pipe(ends) != 0) {
            return;
        }
        dup2(ends[1], STDOUT_FILENO);
        mDictionary->load(QUORVEX_SOURCES "/data/linguist/dictionary.xml");
        mDictionary->load("no such file");
        dup2(output, STDOUT_FILENO);
        close(output);
        close(ends[1]);
        std::array<char, 200> bytes{};
        const ssize_t count = read(ends[0], bytes.data(), bytes.size());
        close(ends[0]);
        mPrinted.assign(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    ~EarlyLoad() { mDictionary->Delete(); }
    EarlyLoad(const EarlyLoad&) = delete;
    EarlyLoad& operator=(const EarlyLoad&) = delete;

    DICO_Dictionary* mDictionary = DICO_Dictionary::New(DICO_Dictionary::LANG_FR);
    std::string mPrinted; ///< To standard output meanwhile.
};

[[gnu::init_priority(101)]] EarlyLoad early;

} // namespace

TEST(EarlyLoad, ADictionaryIsLoadedBeforeAnyOtherStatic)
{
    EXPECT_EQ(early.mDictionary->getLang(), DICO_Dictionary::LANG_FR);
    EXPECT_EQ(early.mDictionary->translate("&File"), "&Fichier");
}

TEST(EarlyLoad, AMissingFileIsAnnouncedBeforeTheStreamsOfOtherFilesAreSetUp)
{
    EXPECT_EQ(early.mPrinted, "ERROR:no such file can not be opened !! \n");
}
