#pragma once
#include <QAbstractButton>
#include <QApplication>
#include <QList>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

/// Answers the next modal dialog: `answer` gets it from within its own event loop, and then it is closed if it
/// is still there, so that a wrong answer fails a test and doesn't hang it. Say this before the dialog opens.
/// The flag returned turns true when the dialog was seen; the watch ends with the flag's life.
template <typename Answer>
[[nodiscard]] std::shared_ptr<const bool> onNextDialog(Answer answer)
{
    constexpr int pollingInterval = 5; // ms
    const auto isSeen = std::make_shared<bool>(false);
    auto* const timer = new QTimer(qApp);
    const auto look = [timer, answer, watch = std::weak_ptr<bool>(isSeen)] {
        const std::shared_ptr<bool> seen = watch.lock();
        const QPointer<QWidget> dialog = QApplication::activeModalWidget();
        if (seen != nullptr && dialog == nullptr) {
            return;
        }
        timer->stop();
        timer->deleteLater();
        if (seen == nullptr) {
            return;
        }
        *seen = true;
        answer(*dialog);
        if (dialog != nullptr && dialog->isVisible()) {
            dialog->close();
        }
    };
    QObject::connect(timer, &QTimer::timeout, timer, look);
    timer->start(pollingInterval);
    return isSeen;
}

/// Presses the button of that text, its "&" left out. A dialog without it fails the test.
inline void pressButton(const QWidget& dialog, const QString& text)
{
    const QList<QAbstractButton*> buttons = dialog.findChildren<QAbstractButton*>();
    for (QAbstractButton* const button : buttons) {
        if (button->text().remove('&') == text) {
            button->click();
            return;
        }
    }
    ADD_FAILURE() << "no button " << text.toStdString();
}
