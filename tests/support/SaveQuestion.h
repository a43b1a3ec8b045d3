#pragma once
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

/// Expects the question whether to save, with its two buttons, and presses one.
inline std::function<void(QMessageBox&)> answerSaveQuestion(const char* title, const char* text,
                                                            QMessageBox::StandardButton button)
{
    return [title, text, button](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), title);
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        ASSERT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Yes");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "No");
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    };
}
