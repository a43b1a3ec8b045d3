#include "gui/GUI_Object.h"

#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_RootWindow.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <QFont>

#include <gtest/gtest.h>

#include <string>

namespace {

/// An object that Qt knows nothing of.
class PlainObject : public GUI_Object
{
    COM_CLASS(PlainObject)
public:
    static inline int mLiving = 0;

protected:
    PlainObject()
    {
        COM_TYPE(PlainObject);
        ++mLiving;
    }
    ~PlainObject() override { --mLiving; }
};

/// What is answered ahead of every static of an ordinary priority, the shared dictionary among them.
struct EarlyText
{
    std::string mText = GUI_Object::translate("Yes");
    unsigned char mLang = (GUI_Object::setLang(DICO_Dictionary::LANG_IT), GUI_Object::getLang());
};

[[gnu::init_priority(101)]] const EarlyText early;

/// Puts language, words and font back at the end.
class GUI_ObjectTest : public testing::Test
{
protected:
    ~GUI_ObjectTest() override
    {
        GUI_Object::setFontName("");
        GUI_Object::setLang(mLang);
        GUI_Object::setDictionaryFile(mDictionaryFile);
    }

    /// A dictionary of one word.
    std::string dictionaryFile(const std::string& key, const std::string& french) const
    {
        const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
        dictionary->addWord(key, french);
        dictionary->save(mDirectory.file("words.xml"));
        return mDirectory.file("words.xml");
    }

    TestDirectory mDirectory;
    unsigned char mLang = GUI_Object::getLang();
    std::string mDictionaryFile = GUI_Object::getDictionaryFile();
};

} // namespace

TEST_F(GUI_ObjectTest, TheSharedWordsAreThereBeforeMainInFrench)
{
    ASSERT_NE(GUI_Object::getDictionary(), nullptr);
    EXPECT_EQ(GUI_Object::getLang(), 1);
    EXPECT_TRUE(GUI_Object::getDictionaryFile().ends_with("/data//linguist/dictionary.xml"));
    EXPECT_EQ(GUI_Object::getFontName(), "");
}

TEST_F(GUI_ObjectTest, WithoutTheSharedWordsATextIsItsKey)
{
    EXPECT_EQ(early.mText, "Yes");
    EXPECT_EQ(early.mLang, DICO_Dictionary::LANG_EN);
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    EXPECT_EQ(GUI_Object::translate("Yes"), "Oui");
}

TEST_F(GUI_ObjectTest, AWordIsTranslatedAndAnUnknownOneIsItsOwnText)
{
    GUI_Object::setDictionaryFile(dictionaryFile("Tree", "Ch\xc3\xaane"));
    GUI_Object::setLang(1);
    EXPECT_EQ(GUI_Object::translate("Tree"), "Ch\xc3\xaane");
    EXPECT_EQ(GUI_Object::translate("Forest"), "Forest");
    GUI_Object::setLang(0);
    EXPECT_EQ(GUI_Object::translate("Tree"), "Tree");
}

TEST_F(GUI_ObjectTest, TheLanguageIsThatOfTheSharedDictionary)
{
    GUI_Object::setLang(3);
    EXPECT_EQ(GUI_Object::getLang(), 2);
    EXPECT_EQ(GUI_Object::getDictionary()->getLang(), 2);
    GUI_Object::setLang(9);
    EXPECT_EQ(GUI_Object::getLang(), 0);
}

TEST_F(GUI_ObjectTest, AFileThatCannotBeReadIsAnnouncedAndLeavesTheWords)
{
    GUI_Object::setDictionaryFile(dictionaryFile("Tree", "Arbre"));
    GUI_Object::setLang(1);
    const std::string missing = mDirectory.file("missing.xml");
    EXPECT_EQ(printedBy([&missing] { GUI_Object::setDictionaryFile(missing); }),
              "ERROR:" + missing + " can not be opened !! \n");
    EXPECT_EQ(GUI_Object::getDictionaryFile(), missing);
    EXPECT_EQ(GUI_Object::translate("Tree"), "Arbre");
}

TEST_F(GUI_ObjectTest, TextCrossesToQtAndBackByteForByte)
{
    const std::string text = "h\xc3\xa9 \xe6\x97\xa5 \xf0\x9d\x84\x9e \xce\xa9";
    EXPECT_EQ(GUI_Object::toQString(text).size(), 9); // one letter takes two units
    EXPECT_EQ(GUI_Object::toTString(GUI_Object::toQString(text)), text);
    EXPECT_EQ(GUI_Object::toTString(GUI_Object::toQString("")), "");
    const std::string withZero("a\0b", 3);
    EXPECT_EQ(GUI_Object::toTString(GUI_Object::toQString(withZero)), withZero);
}

TEST_F(GUI_ObjectTest, WindowsAndMenusTakeTheSharedFontWhenTheyAreMade)
{
    QFont font("DejaVu Sans", 17);
    font.setBold(true);
    const COM_Scoped before(GUI_RootWindow::New());
    const QFont own = before->font();
    GUI_Object::setFontName(GUI_Object::toTString(font.toString()));
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped menu(GUI_RootMenu::New());
    EXPECT_EQ(window->font().pointSize(), 17);
    EXPECT_TRUE(window->font().bold());
    EXPECT_EQ(menu->font().pointSize(), 17);
    EXPECT_EQ(before->font(), own);
}

TEST_F(GUI_ObjectTest, ATextThatIsNoFontLeavesTheOwnOne)
{
    const COM_Scoped before(GUI_RootWindow::New());
    GUI_Object::setFontName("a,b,c,d");
    const COM_Scoped window(GUI_RootWindow::New());
    EXPECT_EQ(window->font(), before->font());
}

TEST_F(GUI_ObjectTest, AnObjectWithoutQtSideGoesWithItsLastReference)
{
    auto* const object = PlainObject::New();
    EXPECT_EQ(PlainObject::mLiving, 1);
    EXPECT_TRUE(object->instanceOf("GUI_Object"));
    EXPECT_EQ(printedBy([object] { object->Delete(); }), "");
    EXPECT_EQ(PlainObject::mLiving, 0);
}
