#pragma once
#include "gui/GUI_Application.h"

/// The desktop program: the preferences of its first argument, then its main window.
class QVG_Application : public GUI_Application
{
    COM_CLASS(QVG_Application)
protected:
    /// Arguments that Qt knows are Qt's; the first of the others names the preferences file.
    QVG_Application(int argc, char** argv);
    ~QVG_Application() override = default;

private:
    void initComponents();
};
