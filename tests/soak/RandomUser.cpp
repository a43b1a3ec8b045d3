#include "RandomUser.h"

#include "gui/GUI_Application.h"
#include "gui/GUI_RootWindow.h"
#include "gui2d/GUI2D_DrawPanel.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Problem.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

const char* const numbers[] = {"0",     "1",   "2",     "3",      "-1",    "5e-5",  "1.5e-6",
                               "1e-29", "4e9", "1e-13", "3.2e14", "0.125", "100",   "7",
                               "90",    "20",  "1e24",  "1e10",   "2.5",   "-3e-15"};
const char* const noNumbers[] = {"",
                                 "abc",
                                 "1,5",
                                 "--3",
                                 "1e400",
                                 "nan",
                                 "-inf",
                                 "1e-400",
                                 "0x1p",
                                 "1.2.3.",
                                 " ",
                                 "\xc3\xa9",
                                 "99999999999999999999",
                                 "+",
                                 "e",
                                 "#"};
const char* const names[] = {
    "a",       "soak",      "soak.dpj", "other.dpj", "none.dpj",
    "a b.xml", "p.xml",     "noSuch/x", "",          "\xc3\xa9t\xc3\xa9.dpj",
    "sub/",    "sub/in.dpj"};
constexpr Qt::Key keys[] = {Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down,
                            Qt::Key_Left,     Qt::Key_Right,   Qt::Key_Return, Qt::Key_Escape,
                            Qt::Key_Space,    Qt::Key_Home,    Qt::Key_End,    Qt::Key_PageDown,
                            Qt::Key_PageUp,   Qt::Key_Delete,  Qt::Key_F2,     Qt::Key_F10,
                            Qt::Key_Backspace};

/// A run is to be over soon, whatever was typed.
void keepProblemSmall()
{
    constexpr unsigned long mostSteps = 199;
    constexpr double mostNodes = 2000.0;
    constexpr unsigned long mostLevels = 6;
    auto* const application = dynamic_cast<GUI_Application*>(qApp);
    auto* const problem = dynamic_cast<QV_Problem*>(application->getModel());
    if (problem == nullptr) {
        return;
    }
    problem->setMaxTimeStepsNumber(std::min(problem->getMaxTimeStepsNumber(), mostSteps));
    if (auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem->getMilieu())) {
        const double cell = milieu->computeMesh().mCell;
        if (cell > 0.0 && milieu->getLength() > mostNodes * cell) {
            milieu->setLength(mostNodes * cell);
        }
    }
    if (QV_Bloch::getLevelsNumber() > mostLevels) {
        QV_Bloch::setLevelsNumber(mostLevels);
    }
}

/// Those below `window` that the user can see and use, windows of their own left out.
template <typename Type>
QList<Type*> usable(const QWidget& window)
{
    QList<Type*> found;
    for (Type* const widget : window.findChildren<Type*>()) {
        if (widget->isVisible() && widget->isEnabled() && widget->window() == &window) {
            found.append(widget);
        }
    }
    return found;
}

} // namespace

RandomUser::RandomUser(unsigned seed, int acts, std::function<void()> done)
    : mRandom(seed)
    , mActsLeft(acts)
    , mDone(std::move(done))
{
    scheduleAct();
}

void RandomUser::scheduleAct()
{
    QTimer::singleShot(0, this, [this] { act(); });
}

void RandomUser::act()
{
    // First of all: the act may open a dialog, which is the place of the next one.
    scheduleAct();
    if (mActsLeft <= 0) {
        leave();
        return;
    }
    --mActsLeft;
    keepProblemSmall();
    if (auto* const popup = QApplication::activePopupWidget()) {
        if (auto* const menu = qobject_cast<QMenu*>(popup)) {
            actInMenu(*menu);
        } else if (auto* const list = popup->findChild<QAbstractItemView*>()) {
            actInList(*list);
        } else {
            QTest::keyClick(popup, Qt::Key_Escape);
        }
    } else if (auto* const modal = QApplication::activeModalWidget()) {
        actIn(*modal);
    } else {
        QList<QWidget*> windows;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->isVisible()) {
                windows.append(window);
            }
        }
        // Between the visits to the main window most of the time goes to the others.
        if (windows.size() > 1 && !once(3)) {
            windows.removeIf([](const QWidget* window) {
                return dynamic_cast<const GUI_RootWindow*>(window) != nullptr;
            });
        }
        if (!windows.empty()) {
            actIn(*one(windows));
        }
    }
    mDone();
}

void RandomUser::leave()
{
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QWidget* const modal = QApplication::activeModalWidget()) {
        if (auto* const box = qobject_cast<QMessageBox*>(modal)) {
            one(box->buttons())->click(); // all but one of them let the program end
        } else {
            modal->close();
        }
    } else {
        QApplication::closeAllWindows();
    }
}

void RandomUser::actIn(QWidget& window)
{
    if (auto* const box = qobject_cast<QMessageBox*>(&window)) {
        answer(*box);
        return;
    }
    if (auto* const files = qobject_cast<QFileDialog*>(&window)) {
        actInFileDialog(*files);
        return;
    }
    auto* const dialog = qobject_cast<QDialog*>(&window);
    if (qobject_cast<QPrintDialog*>(dialog) != nullptr) {
        // What it prints to would lie outside the working directory.
        QTest::keyClick(dialog, Qt::Key_Escape);
        return;
    }
    if (dialog != nullptr && dialog->findChild<QAbstractSpinBox*>() == nullptr
        && dialog->findChild<QLineEdit*>() == nullptr) {
        answerCheck(*dialog);
        return;
    }
    const bool isMain = dynamic_cast<GUI_RootWindow*>(&window) != nullptr;
    if (once(isMain ? 400 : 30)) {
        window.close();
    } else if (once(6)) {
        pressKey(window);
    } else if (isMain || once(window.findChild<QMenuBar*>() != nullptr ? 4 : 30)) {
        triggerAction(window);
    } else if (once(2)) {
        QList<QWidget*> fields;
        for (QLineEdit* const field : usable<QLineEdit>(window)) {
            fields.append(field);
        }
        for (QAbstractItemView* const table : usable<QAbstractItemView>(window)) {
            fields.append(table);
        }
        for (QTextEdit* const text : usable<QTextEdit>(window)) {
            fields.append(text);
        }
        if (!fields.empty()) {
            type(*one(fields));
        }
    } else {
        const QList<QWidget*> widgets = usable<QWidget>(window);
        if (!widgets.empty()) {
            click(*one(widgets));
        }
    }
}

void RandomUser::actInMenu(QMenu& menu)
{
    constexpr Qt::Key menuKeys[] = {Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Down,  Qt::Key_Left,
                                    Qt::Key_Return, Qt::Key_Right, Qt::Key_Escape};
    QTest::keyClick(&menu, one(menuKeys));
}

void RandomUser::actInList(QAbstractItemView& list)
{
    constexpr Qt::Key listKeys[] = {Qt::Key_Up,     Qt::Key_Down,   Qt::Key_End,
                                    Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape};
    QTest::keyClick(&list, one(listKeys));
}

void RandomUser::actInFileDialog(QDialog& dialog)
{
    auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (field == nullptr || once(4)) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        return;
    }
    // Nothing outside the working directory is written.
    field->setText(QDir::currentPath() + "/" + QString::fromUtf8(one(names)));
    QTest::keyClick(field, Qt::Key_Return);
}

void RandomUser::answer(QMessageBox& box)
{
    if (once(6)) {
        QTest::keyClick(&box, Qt::Key_Escape);
        return;
    }
    QTest::mouseClick(one(box.buttons()), Qt::LeftButton);
}

/// A program that would take all memory or days is let go once in ten times.
void RandomUser::answerCheck(QDialog& dialog)
{
    const QList<QAbstractButton*> buttons = usable<QAbstractButton>(dialog);
    for (QAbstractButton* const button : buttons) {
        if (buttons.size() == 2 && button == buttons.front() && once(10)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QTest::keyClick(&dialog, Qt::Key_Escape);
}

void RandomUser::click(QWidget& widget)
{
    const QPoint place(below(std::max(widget.width(), 1)), below(std::max(widget.height(), 1)));
    if (dynamic_cast<GUI2D_DrawPanel*>(&widget) != nullptr && !once(3)) {
        useMouseOn(widget, place);
    } else if (once(10)) {
        QTest::mouseDClick(&widget, Qt::LeftButton, {}, place);
    } else {
        QTest::mouseClick(&widget, once(15) ? Qt::RightButton : Qt::LeftButton, {}, place);
    }
}

/// Drags a rectangle from `place`, or turns the wheel there.
void RandomUser::useMouseOn(QWidget& plot, const QPoint& place)
{
    const QPointF global = plot.mapToGlobal(QPointF(place));
    if (once(3)) {
        QWheelEvent wheel(place, global, {}, QPoint(0, once(2) ? 120 : -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&plot, &wheel);
        return;
    }
    const QPointer<QWidget> life = &plot;
    QTest::mousePress(&plot, Qt::LeftButton, {}, place);
    const QPoint end(below(std::max(plot.width(), 1)), below(std::max(plot.height(), 1)));
    if (life != nullptr) {
        QTest::mouseMove(&plot, end);
    }
    if (life != nullptr) {
        QTest::mouseRelease(&plot, Qt::LeftButton, {}, end);
    }
}

void RandomUser::type(QWidget& field)
{
    const QPointer<QWidget> life = &field;
    QWidget* target = &field;
    if (auto* const table = qobject_cast<QAbstractItemView*>(&field)) {
        if (table->model() == nullptr || table->model()->rowCount() == 0
            || table->model()->columnCount() == 0) {
            return;
        }
        const QModelIndex cell = table->model()->index(below(table->model()->rowCount()),
                                                       below(table->model()->columnCount()));
        table->setCurrentIndex(cell);
        table->edit(cell);
        const QList<QLineEdit*> editors = table->viewport()->findChildren<QLineEdit*>();
        if (life == nullptr || editors.empty()) {
            return;
        }
        target = editors.back();
    }
    const QPointer<QWidget> typed = target;
    target->setFocus();
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    const QString text = QString::fromUtf8(once(3) ? one(noNumbers) : one(numbers));
    for (const QChar letter : text) {
        if (typed == nullptr) {
            return;
        }
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QApplication::sendEvent(typed, &press);
    }
    if (typed != nullptr) {
        constexpr Qt::Key ends[] = {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape};
        QTest::keyClick(typed, one(ends));
    }
}

void RandomUser::pressKey(QWidget& window)
{
    QWidget* const focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
    QTest::keyClick(focus, one(keys), once(5) ? Qt::AltModifier : Qt::NoModifier);
}

/// Chooses an entry of a menu that is not greyed, or opens the menu.
void RandomUser::triggerAction(const QWidget& window)
{
    const auto* const bar = window.findChild<QMenuBar*>();
    if (bar == nullptr || bar->actions().empty()) {
        return;
    }
    QMenu* const menu = one(bar->actions())->menu();
    if (menu == nullptr || menu->actions().empty()) {
        return;
    }
    if (once(5)) {
        menu->popup(window.mapToGlobal(QPoint(0, 0)));
        return;
    }
    QAction* const action = one(menu->actions());
    // Who leaves the program ends the process, which is slow to start.
    if (action->isEnabled() && (action != menu->actions().back() || once(20))) {
        action->trigger();
    }
}
