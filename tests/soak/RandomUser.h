#pragma once
#include <QObject>

#include <functional>
#include <iterator>
#include <random>

class QAbstractItemView;
class QDialog;
class QMenu;
class QMessageBox;
class QPoint;
class QWidget;

/// Somebody who does whatever a mouse and a keyboard can do to the windows of the running application, one act at a
/// time: he clicks, types numbers good and bad, goes through lists, menus and dialogs, and closes windows.
///
/// The acts follow from the seed alone, apart from what depends on time. The next act is due as soon as Qt is
/// back in an event loop, that of a dialog included. After the last one the windows are closed.
class RandomUser : public QObject
{
    Q_OBJECT
public:
    /// `done` is called after each act.
    RandomUser(unsigned seed, int acts, std::function<void()> done);

private:
    void scheduleAct();
    void act();
    void leave();
    void actIn(QWidget& window);
    void actInMenu(QMenu& menu);
    void actInList(QAbstractItemView& list);
    void actInFileDialog(QDialog& dialog);
    void answer(QMessageBox& box);
    void answerCheck(QDialog& dialog);
    void click(QWidget& widget);
    void useMouseOn(QWidget& plot, const QPoint& place);
    void type(QWidget& field);
    void pressKey(QWidget& window);
    void triggerAction(const QWidget& window);

    int below(int number) { return std::uniform_int_distribution<int>(0, number - 1)(mRandom); }
    bool once(int times) { return below(times) == 0; }
    template <typename List>
    auto one(const List& list)
    {
        return list[below(static_cast<int>(std::size(list)))];
    }

    std::mt19937 mRandom;
    int mActsLeft;
    std::function<void()> mDone;
};
