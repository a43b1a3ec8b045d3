#include "gui/GUI_Progress.h"

#include "gui/GUI_Object.h"
#include "gui/GUI_ParentWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QProgressBar>
#include <QScreen>
#include <QThread>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>

#include <algorithm>

GUI_Progress::GUI_Progress(int steps)
{
    COM_TYPE(GUI_Progress);
    initComponents(nullptr, steps);
}

GUI_Progress::GUI_Progress(GUI_ParentWindow& parent, int steps)
{
    COM_TYPE(GUI_Progress);
    initComponents(&parent, steps);
}

GUI_Progress::~GUI_Progress()
{
    mWidget->close();
    delete mWidget;
}

void GUI_Progress::initComponents(const QWidget* parent, int steps)
{
    constexpr int width = 400;
    constexpr int height = 30;
    constexpr int margin = 4; // a greater one would make the window higher
    constexpr int lowering = 20;

    mWidget = new QWidget;
    // The end of a computation is not the end of the program.
    mWidget->setAttribute(Qt::WA_QuitOnClose, false);
    mProgress = new QProgressBar(mWidget);
    mProgress->setRange(0, std::max(steps, 0));
    auto* const layout = new QVBoxLayout(mWidget);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(mProgress);
    setName(GUI_Object::translate("Progress Bar"));

    mWidget->resize(width, height);
    QPoint middle;
    if (parent != nullptr) {
        middle = parent->mapToGlobal(parent->rect().center());
    } else if (const QScreen* const screen = QGuiApplication::primaryScreen()) {
        middle = screen->availableGeometry().center();
    }
    mWidget->move(middle - mWidget->rect().center() + QPoint(0, lowering));
    mWidget->show();
    waitUntilSeen();
}

// A window that was never exposed stays blank, and during the computation no events are processed.
void GUI_Progress::waitUntilSeen()
{
    constexpr int patience = 500; // ms
    constexpr int slice = 20;     // ms
    QElapsedTimer timer;
    timer.start();
    const QWindow* const window = mWidget->windowHandle();
    while (window != nullptr && !window->isExposed() && !timer.hasExpired(patience)) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, slice);
        QThread::msleep(1);
    }
}

void GUI_Progress::setName(const std::string& name)
{
    mWidget->setWindowTitle(GUI_Object::toQString(name));
}

void GUI_Progress::printInt(int value)
{
    mProgress->setValue(value);
}
