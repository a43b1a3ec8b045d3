#include "quorvexGui/QVG_Application.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_MainWindow.h"

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
    const COM_Scoped window(QVG_MainWindow::New(translate("Quorvex Simulation"), false));
    setMainWindow(window.get());
    window->setSavingPath(WORKING_PATH);
}
