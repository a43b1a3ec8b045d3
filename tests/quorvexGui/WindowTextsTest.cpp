// What the windows show in the six languages: nothing untranslated, nothing cut, no letter and no key twice.
#include "gui/GUI_Mnemonic.h"
#include "ManyWindows.h"
#include "support/SpokenLanguage.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableWidget>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace {

constexpr auto languages = static_cast<unsigned char>(std::size(DICO_Dictionary::STRING_LANGS));

/// Those of a window that the user sees, windows of their own left out.
template <typename Widget>
QList<Widget*> shownIn(const QWidget& window)
{
    QList<Widget*> shown;
    for (Widget* const widget : window.findChildren<Widget*>()) {
        if (widget->isVisible() && widget->window() == &window) {
            shown.append(widget);
        }
    }
    return shown;
}

void addTexts(QStringList& texts, const QTableWidget& table)
{
    for (int column = 0; column < table.columnCount(); ++column) {
        if (const QTableWidgetItem* const item = table.horizontalHeaderItem(column)) {
            texts.append(item->text());
        }
    }
    for (const QTableWidgetItem* const item : table.findItems("*", Qt::MatchWildcard)) {
        texts.append(item->text());
    }
}

/// The texts of a window with those of its menus, lists, headers and hints, but not what the user may type over.
QStringList textsOf(const QWidget& window)
{
    QStringList texts{window.windowTitle()};
    for (const QWidget* const widget : shownIn<QWidget>(window)) {
        texts.append(widget->toolTip());
    }
    for (const QLabel* const label : shownIn<QLabel>(window)) {
        texts.append(label->text());
    }
    for (const QAbstractButton* const button : shownIn<QAbstractButton>(window)) {
        texts.append(button->text());
    }
    for (const QGroupBox* const box : shownIn<QGroupBox>(window)) {
        texts.append(box->title());
    }
    for (const QTextBrowser* const text : shownIn<QTextBrowser>(window)) {
        texts.append(text->toPlainText());
    }
    for (const QTabBar* const bar : shownIn<QTabBar>(window)) {
        for (int i = 0; i < bar->count(); ++i) {
            texts.append(bar->tabText(i));
        }
    }
    for (const QComboBox* const box : shownIn<QComboBox>(window)) {
        for (int i = 0; i < box->count(); ++i) {
            texts.append(box->itemText(i));
        }
    }
    for (const QListWidget* const list : shownIn<QListWidget>(window)) {
        for (int i = 0; i < list->count(); ++i) {
            texts.append(list->item(i)->text());
        }
    }
    for (const QTableWidget* const table : shownIn<QTableWidget>(window)) {
        addTexts(texts, *table);
    }
    for (const QAction* const action : window.findChildren<QAction*>()) {
        if (action->isVisible()) {
            texts.append({action->text(), action->toolTip(), action->iconText()});
        }
    }
    texts.removeDuplicates();
    return texts;
}

QString untranslatedOf(QString text)
{
    static const QRegularExpression translated("\\{[^{}]*\\}");
    // Numbers, units, and what is no word of a language.
    static const QRegularExpression known("\\b(Ex|Ey|Rho|Bloch Eq|[-+]?[0-9.]+(e[-+]?[0-9]+)?|inf|"
                                          "[kMGT]?B|min|MHz|rad|Hz|mW|fs|nm)\\b");
    static const QRegularExpression word("[A-Za-z]{2,}");
    text.remove(translated);
    text.remove(known);
    return text.contains(word) ? text : QString();
}

/// The letters that are marked in more than one of the texts, as capitals.
QString repeatedLetters(const QStringList& texts)
{
    QString letters;
    QString repeated;
    for (const QString& text : texts) {
        const QString letter = GUI_Mnemonic::letter(text).toUpper();
        if (!letter.isEmpty() && letters.contains(letter)) {
            repeated += letter;
        }
        letters += letter;
    }
    return repeated;
}

QStringList repeatedTexts(const QStringList& texts)
{
    QStringList known;
    QStringList repeated;
    for (const QString& marked : texts) {
        const QString text = GUI_Mnemonic::text(marked);
        (known.contains(text) ? repeated : known).append(text);
    }
    return repeated;
}

/// What is wrong with the marked letters, labels and keys of a window's menus.
QStringList clashesOf(const GUI_ParentWindow& window)
{
    QStringList titles;
    QStringList clashes;
    QStringList keys;
    const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
    window.getMenu()->getAllMenus(*menus);
    for (unsigned long i = 0; i < menus->size(); ++i) {
        titles.append((*menus)[i].title());
        QStringList labels;
        for (unsigned long j = 0; j < (*menus)[i].getActions().size(); ++j) {
            const GUI_Action& action = (*menus)[i].getActions()[j];
            labels.append(action.text());
            keys.append(
                QKeySequence::listToString(action.shortcuts()).split("; ", Qt::SkipEmptyParts));
        }
        clashes.append(repeatedTexts(labels));
        clashes.append(repeatedLetters(labels));
    }
    clashes += repeatedTexts(titles) + repeatedTexts(keys);
    clashes.append(repeatedLetters(titles));
    clashes.removeAll(QString());
    return clashes;
}

/// True when the widget has less room than its text takes. A text of several lines has what it takes.
bool isCut(const QLabel& label)
{
    return !label.wordWrap() && label.width() < label.sizeHint().width();
}

bool isCut(const QWidget& widget)
{
    return widget.width() < widget.sizeHint().width();
}

/// The texts of a window that do not fit in their widgets.
QStringList cutTextsOf(const QWidget& window)
{
    QStringList cut;
    for (const QLabel* const label : shownIn<QLabel>(window)) {
        // The derived quantities are shortened by themselves where the window is narrow.
        if (isCut(*label) && label->minimumWidth() != 1) {
            cut.append(label->text());
        }
    }
    for (const QAbstractButton* const button : shownIn<QAbstractButton>(window)) {
        if (!button->text().isEmpty() && isCut(*button)) {
            cut.append(button->text());
        }
    }
    for (const QComboBox* const box : shownIn<QComboBox>(window)) {
        if (isCut(*box)) {
            cut.append(box->currentText());
        }
    }
    for (const QGroupBox* const box : shownIn<QGroupBox>(window)) {
        if (box->width() < box->fontMetrics().horizontalAdvance(box->title()) + 2 * 8) {
            cut.append(box->title());
        }
    }
    for (const QListWidget* const list : shownIn<QListWidget>(window)) {
        if (list->count() > 0
            && list->viewport()->width() < list->visualItemRect(list->item(0)).width()) {
            cut.append(list->item(0)->text());
        }
    }
    for (const QTabBar* const bar : shownIn<QTabBar>(window)) {
        if (isCut(*bar)) {
            cut.append(bar->tabText(0));
        }
    }
    for (const QMenuBar* const bar : shownIn<QMenuBar>(window)) {
        for (QAction* const menu : bar->actions()) {
            const QRect place = bar->actionGeometry(menu);
            if (!bar->rect().contains(place) || place.isEmpty()) {
                cut.append(menu->text());
            }
        }
    }
    return cut;
}

class WindowTextsTest : public testing::TestWithParam<unsigned char>
{
protected:
    SpokenLanguage mLanguage{GetParam()};
};

} // namespace

TEST(WindowTexts, EveryTextGoesThroughTheDictionary)
{
    const SpokenLanguage marked([](const std::string& key) { return "{" + key + "}"; });
    const ManyWindows windows;
    int texts = 0;
    const int views = windows.visit([&texts](QWidget& window) {
        for (const QString& text : textsOf(window)) {
            ++texts;
            EXPECT_EQ(untranslatedOf(text).toStdString(), "")
                << window.windowTitle().toStdString() << ": " << text.toStdString();
        }
    });
    EXPECT_EQ(views, ManyWindows::VIEWS);
    EXPECT_GT(texts, 200);
}

TEST(WindowTexts, WhatHasNoRoomIsSeen)
{
    const SpokenLanguage talkative([](const std::string& key) { return key + key + key; });
    const ManyWindows windows;
    int cut = 0;
    windows.visit([&cut](QWidget& window) { cut += static_cast<int>(cutTextsOf(window).size()); });
    EXPECT_GT(cut, 10);
}

TEST_P(WindowTextsTest, NothingIsCut)
{
    const ManyWindows windows;
    const int views = windows.visit([](QWidget& window) {
        EXPECT_EQ(cutTextsOf(window).join("\n").toStdString(), "")
            << window.windowTitle().toStdString();
    });
    EXPECT_EQ(views, ManyWindows::VIEWS);
}

TEST_P(WindowTextsTest, WindowsFitOnASmallScreen)
{
    const ManyWindows windows;
    const int views = windows.visit([](QWidget& window) {
        EXPECT_LE(window.minimumSizeHint().width(), 1024) << window.windowTitle().toStdString();
        EXPECT_LE(window.minimumSizeHint().height(), 720) << window.windowTitle().toStdString();
    });
    EXPECT_EQ(views, ManyWindows::VIEWS);
}

TEST_P(WindowTextsTest, NoMenuHasALetterAndNoWindowAKeyTwice)
{
    const ManyWindows windows;
    EXPECT_EQ(clashesOf(*windows.main()).join("\n").toStdString(), "");
    EXPECT_EQ(clashesOf(windows.plot()).join("\n").toStdString(), "");
    EXPECT_EQ(clashesOf(windows.browser()).join("\n").toStdString(), "");
    // "&File" and "&Format": the letters of the keys are what they are.
    EXPECT_EQ(clashesOf(windows.text()).join("\n").toStdString(),
              GetParam() == DICO_Dictionary::LANG_EN ? "F" : "");
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowTextsTest,
                         testing::Range(DICO_Dictionary::LANG_EN, languages), [](const auto& lang) {
                             return std::string(DICO_Dictionary::STRING_LANGS[lang.param]);
                         });
