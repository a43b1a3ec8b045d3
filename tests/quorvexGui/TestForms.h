#pragma once
#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_RootPanel.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvexGui/QVG_DataWindow.h"
#include "TestMainWindow.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// The data window of a new project, shown, and what a user does in it.
class TestForms
{
public:
    TestForms()
    {
        mMain.createProject();
        open();
    }

    TestMainWindow& main() { return mMain; }
    QVG_DataWindow& window() const { return *mWindow; }
    QV_1DProblem& problem() const { return dynamic_cast<QV_1DProblem&>(mMain.problem()); }
    QV_1DMilieu& milieu() const { return dynamic_cast<QV_1DMilieu&>(*problem().getMilieu()); }
    QV_1DMaxwell& maxwell() const
    {
        return dynamic_cast<QV_1DMaxwell&>(*problem().getMaxwellSystem());
    }
    QV_IncidentFields& wave() const { return *maxwell().getIncidentFields(); }

    /// Opens a window in place of the present one, as after a change of language.
    void open()
    {
        if (mWindow != nullptr) {
            mWindow->close(false);
        }
        const COM_Scoped window(QVG_DataWindow::New(*mMain));
        mWindow = window.get();
        mWindow->show();
        QApplication::setActiveWindow(mWindow);
        QCoreApplication::processEvents();
    }
    /// Shows one of the two pages.
    void showPage(int page) const { mWindow->findChild<QTabWidget*>()->setCurrentIndex(page); }

    template <typename Form>
    Form& form() const
    {
        for (QWidget* const widget : mWindow->findChildren<QWidget*>()) {
            if (auto* const found = dynamic_cast<Form*>(widget)) {
                return *found;
            }
        }
        throw std::runtime_error("no such form");
    }
    template <typename Form>
    GUI_ActionComponent& component(unsigned char flag) const
    {
        return dynamic_cast<GUI_ActionComponent&>(*form<Form>().getComponent(flag));
    }
    template <typename Form>
    QWidget& widget(unsigned char flag) const
    {
        return *component<Form>(flag).qtWidget();
    }
    /// What a component shows.
    template <typename Form>
    std::string shown(unsigned char flag) const
    {
        return component<Form>(flag).getValue();
    }
    template <typename Form>
    bool isEnabled(unsigned char flag) const
    {
        return widget<Form>(flag).isEnabled();
    }
    /// Replaces the text of a field, or of a box with arrows, and presses Return.
    template <typename Form>
    void type(unsigned char flag, const char* text) const
    {
        QWidget& field = widget<Form>(flag);
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    /// Presses a button or ticks a box.
    template <typename Form>
    void click(unsigned char flag) const
    {
        QWidget& button = widget<Form>(flag);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    /// Goes to an item of a list with the keyboard.
    template <typename Form>
    void choose(unsigned char flag, int item) const
    {
        QWidget& list = widget<Form>(flag);
        const int present = std::stoi(shown<Form>(flag));
        const Qt::Key key = item < present ? Qt::Key_Up : Qt::Key_Down;
        for (int i = 0; i < std::abs(item - present); ++i) {
            QTest::keyClick(&list, key);
        }
    }
    /// The captions of the windows opened from the forms.
    std::vector<std::string> details() const { return TestMainWindow::captionsOf(*mWindow); }
    /// The window opened first from the forms. Requires: there is one.
    GUI_ChildWindow& detail() const { return *childrenOf<GUI_ChildWindow>(*mWindow).front(); }

private:
    TestMainWindow mMain;
    QVG_DataWindow* mWindow = nullptr; ///< The main window's child. Borrowed.
};
