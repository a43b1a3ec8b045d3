#include "gui/GUI_Grave.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_ChildMenu.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_RootWindow.h"
#include "support/TestWindows.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

#include <vector>

TEST(GUI_Grave, OutsideHandlersAnObjectGoesAtOnce)
{
    auto* const action = GUI_Action::New();
    const QPointer<QObject> life = action;
    action->Delete();
    EXPECT_TRUE(life.isNull());
}

TEST(GUI_Grave, InsideAHandlerAnObjectStaysUntilTheLoopIsBack)
{
    auto* const action = GUI_Action::New();
    const QPointer<QObject> life = action;
    {
        const GUI_EventScope outer;
        {
            const GUI_EventScope inner;
            action->Delete();
        }
        GUI_Grave::flush();
        settle();
        EXPECT_FALSE(life.isNull());
        EXPECT_EQ(action->getLabel(), "Action");
    }
    EXPECT_FALSE(life.isNull());
    settle();
    EXPECT_TRUE(life.isNull());
}

TEST(GUI_Grave, AFlushAfterTheHandlerNeedsNoLoop)
{
    auto* const action = GUI_Action::New();
    const QPointer<QObject> life = action;
    {
        const GUI_EventScope scope;
        action->Delete();
    }
    GUI_Grave::flush();
    EXPECT_TRUE(life.isNull());
    settle();
}

TEST(GUI_Grave, ACondemnedWindowIsGoneFromTheScreenAtOnce)
{
    auto* const window = GUI_RootWindow::New();
    window->show();
    const QPointer<QWidget> life = window;
    {
        const GUI_EventScope scope;
        window->Delete();
        EXPECT_TRUE(window->isHidden());
    }
    settle();
    EXPECT_TRUE(life.isNull());
}

TEST(GUI_Grave, PartsGoBeforeTheirWhole)
{
    std::vector<char> order;
    auto* const menu = GUI_RootMenu::New("menu");
    auto* const action = GUI_Action::New();
    menu->addToActions(*action);
    QObject::connect(menu, &QObject::destroyed, [&order] { order.push_back('m'); });
    QObject::connect(action, &QObject::destroyed, [&order] { order.push_back('a'); });
    action->Delete();
    {
        const GUI_EventScope scope;
        menu->Delete();
    }
    settle();
    EXPECT_EQ(order, (std::vector<char>{'a', 'm'}));
}

TEST(GUI_Grave, WhatADialogsLoopWouldDeleteWaitsForTheHandlerThatOpenedIt)
{
    auto* const first = GUI_Action::New();
    auto* const second = GUI_Action::New();
    const QPointer<QObject> firstLife = first;
    const QPointer<QObject> secondLife = second;
    {
        const GUI_EventScope scope;
        first->Delete();
        QEventLoop dialog;
        QTimer::singleShot(0, &dialog, [second] {
            const GUI_EventScope inner;
            second->Delete();
        });
        QTimer::singleShot(20, &dialog, &QEventLoop::quit);
        dialog.exec();
        EXPECT_FALSE(firstLife.isNull());
        EXPECT_FALSE(secondLife.isNull());
    }
    settle();
    EXPECT_TRUE(firstLife.isNull());
    EXPECT_TRUE(secondLife.isNull());
}

TEST(GUI_Grave, AWidgetThatGoesLeavesTheCountedOnesBelowIt)
{
    QPointer<QWidget> box = new QWidget;
    auto* const inside = new QWidget(box);
    const COM_Scoped window(GUI_RootWindow::New());
    static_cast<QWidget*>(window.get())->setParent(inside);
    GUI_Grave::orphanCounted(*box);
    EXPECT_EQ(window->parentWidget(), nullptr);
    EXPECT_EQ(inside->parentWidget(), box);
    delete box;
    EXPECT_EQ(window->getName(), "Parent Window");
}

TEST(GUI_Grave, DetachingWhatHasNoParentChangesNothing)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped action(GUI_Action::New());
    GUI_Grave::detach(*window);
    GUI_Grave::detach(*action);
    EXPECT_EQ(window->parentWidget(), nullptr);
    EXPECT_EQ(action->parent(), nullptr);
}

TEST(GUI_Grave, AnEmptiedLayoutGivesUpItsPlainPartsAndItsWidgets)
{
    QWidget box;
    QVBoxLayout layout(&box);
    auto* const widget = new QWidget;
    auto* const part = new QHBoxLayout;
    auto* const deeper = new QWidget;
    part->addWidget(deeper);
    layout.addWidget(widget);
    layout.addLayout(part);
    layout.addStretch();
    const QPointer<QLayout> partLife = part;
    GUI_Grave::emptyLayout(layout);
    EXPECT_EQ(layout.count(), 0);
    EXPECT_TRUE(partLife.isNull());
    EXPECT_EQ(widget->parentWidget(), &box);
    EXPECT_EQ(deeper->parentWidget(), &box);
}
