#pragma once
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

/// Types a name into a file dialog and presses Return.
inline void typeName(QFileDialog& dialog, const std::string& name)
{
    auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(field, nullptr) << "not the dialog of Qt itself";
    // Without the focus the field would follow what gets selected in the list.
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    field->setFocus();
    field->setText(QString::fromStdString(name));
    QTest::keyClick(field, Qt::Key_Return);
}
