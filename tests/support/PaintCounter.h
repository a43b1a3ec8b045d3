#pragma once
#include <QEvent>
#include <QWidget>

#include <utility>

/// Counts how often a widget is painted on the screen.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    /// Since the last call.
    int take() { return std::exchange(mNumber, 0); }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        mNumber += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int mNumber = 0;
};
