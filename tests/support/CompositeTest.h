#pragma once
#include "gui/GUI_Component.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_Table.h"
#include "support/EnglishTexts.h"
#include "support/PaintCounter.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <cstdlib>

/// A shown window in English whose panel has a layout for the panel that is tested.
class CompositeTest : public testing::Test
{
protected:
    CompositeTest()
        : mWindow(GUI_RootWindow::New("Test"))
        , mRoot(GUI_RootPanel::New(*mWindow))
    {
        GUI_RootVBoxLayout::New(*mRoot)->Delete();
    }
    ~CompositeTest() override
    {
        mRoot->Delete();
        mWindow->Delete();
    }

    GUI_RootWindow& window() { return *mWindow; }
    GUI_RootPanel& root() { return *mRoot; }

    /// Shows the window with `panel`, a child of `root`, in it.
    void show(GUI_ParentPanel& panel)
    {
        mRoot->getMainLayout()->addPanel(panel);
        mWindow->setSize(700, 500);
        mWindow->show();
        QApplication::setActiveWindow(mWindow);
        ASSERT_TRUE(QTest::qWaitForWindowActive(mWindow));
    }

    /// The component of that flag as what it is, never null in a test that goes on.
    template <typename Component>
    static Component& component(const GUI_ParentPanel& panel, unsigned char flag)
    {
        auto* const found = dynamic_cast<Component*>(panel.getComponent(flag));
        if (found == nullptr) {
            ADD_FAILURE() << "no component of that kind with the flag " << int(flag);
            std::abort();
        }
        return *found;
    }

    /// Whether `action` has the widget painted again.
    template <typename Action>
    static bool isPaintedAfter(QWidget& widget, Action action)
    {
        QCoreApplication::processEvents();
        PaintCounter counter(widget);
        QCoreApplication::processEvents();
        EXPECT_EQ(counter.take(), 0) << "painted by itself";
        action();
        QCoreApplication::processEvents();
        return counter.take() > 0;
    }

    static void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

    static void clickCell(GUI_Table& table, int row, int column)
    {
        const QRect cell = table.visualRect(table.model()->index(row, column));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    }

    /// Opens the editor of a cell, types over its text and ends with `last`.
    static void typeIntoCell(GUI_Table& table, int row, int column, const char* text,
                             Qt::Key last = Qt::Key_Return)
    {
        clickCell(table, row, column);
        QTest::keyClick(&table, Qt::Key_F2);
        const QPointer<QLineEdit> editor = table.findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << "the cell cannot be edited";
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, last);
        // Qt takes over what was typed, and deletes the editor, in the event loop.
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_EQ(editor, nullptr);
    }

    /// Types over the number in a box and presses Return.
    static void typeNumber(QWidget& box, const char* text)
    {
        auto* const field = box.findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }

private:
    const EnglishTexts mEnglish;
    GUI_RootWindow* mWindow;
    GUI_RootPanel* mRoot;
};
