#pragma once
#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QList>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <utility>

/// Answers the dialogs that come up one after the other, each by a function of its own, and closes them in
/// any case. A dialog too many fails the test, and so does one that never came.
class DialogAnswers
{
public:
    DialogAnswers()
    {
        // Queued, since a timer does not fire inside its own slot, where an answer may open a dialog.
        QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] {
            QMetaObject::invokeMethod(
                &mTimer, [this] { answerNext(); }, Qt::QueuedConnection);
        });
        mTimer.start(INTERVAL);
    }
    ~DialogAnswers() { EXPECT_EQ(mAnswers.size(), 0U) << "dialogs that did not come"; }
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;

    /// What to do with the next dialog, which is of that class.
    template <typename Dialog, typename Answer>
    DialogAnswers& add(Answer answer)
    {
        mAnswers.push_back([answer](QDialog& shown) {
            auto* const dialog = qobject_cast<Dialog*>(&shown);
            ASSERT_NE(dialog, nullptr) << shown.metaObject()->className();
            answer(*dialog);
        });
        return *this;
    }

private:
    static constexpr int INTERVAL = 10; // ms

    void answerNext()
    {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == mCurrent) {
            return;
        }
        const QPointer<QDialog> former = std::exchange(mCurrent, dialog);
        if (mAnswers.empty()) {
            ADD_FAILURE() << "unexpected dialog " << dialog->windowTitle().toStdString();
        } else {
            const std::function<void(QDialog&)> next = mAnswers.front();
            mAnswers.pop_front();
            next(*dialog);
        }
        if (dialog != nullptr && dialog->isVisible()) {
            dialog->reject();
        }
        mCurrent = former;
    }

    std::deque<std::function<void(QDialog&)>> mAnswers;
    QPointer<QDialog> mCurrent; ///< The one that is being answered.
    QTimer mTimer;
};

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
