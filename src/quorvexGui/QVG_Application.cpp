#include "quorvexGui/QVG_Application.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Action.h"
#include "quorvexGui/QVG_MainWindow.h"

#include <QIcon>

QVG_Application::QVG_Application(int argc, char** argv)
    : GUI_Application(argc, argv)
{
    COM_TYPE(QVG_Application);
    // Qt has taken its own arguments out of the array. The name is passed on as bytes.
    if (arguments().size() > 1) {
        loadPreferences(argv[1]);
    }
    initComponents();
}

void QVG_Application::initComponents()
{
    QIcon icon;
    for (const char* const file : {"quorvex-48.png", "quorvex-256.png"}) {
        icon.addFile(GUI_Object::toQString(GUI_Action::ICONS_PATH + file));
    }
    setWindowIcon(icon);
    setDesktopFileName("quorvex");
    const COM_Scoped window(QVG_MainWindow::New(translate("Quorvex Simulation"), false));
    setMainWindow(window.get());
    window->setSavingPath(WORKING_PATH);
}
