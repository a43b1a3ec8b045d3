#pragma once
#include "common/COM_Out.h"

#include <QObject>

#include <string>

class GUI_ParentWindow;
class QProgressBar;
class QWidget;

/// A bar in a window of its own that shows how far a long computation has come.
///
/// The window is on the screen when the constructor returns, which may take half a second. From then on it
/// needs no event loop: each `printInt` paints at once.
class GUI_Progress : public QObject, public COM_Out
{
    COM_CLASS(GUI_Progress)
public:
    /// The number of steps done. One out of range changes nothing.
    void printInt(int value) override;

    /// The caption.
    void setName(const std::string& name);

protected:
    static constexpr int DEFAULT_STEPS = 100;

    /// A negative number of steps counts as 0; a bar without steps only moves to and fro.
    explicit GUI_Progress(int steps = DEFAULT_STEPS);
    /// Before the middle of `parent` instead of the middle of the screen.
    GUI_Progress(GUI_ParentWindow& parent, int steps);
    ~GUI_Progress() override;

private:
    /// `parent` may be null.
    void initComponents(const QWidget* parent, int steps);
    void waitUntilSeen();

    QProgressBar* mProgress = nullptr; ///< Owned by `mWidget`.
    QWidget* mWidget = nullptr;        ///< The window. Owned.
};
