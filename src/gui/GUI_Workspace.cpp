#include "gui/GUI_Workspace.h"

#include "gui/GUI_Grave.h"

GUI_Workspace::GUI_Workspace(QWidget* parent)
    : QMdiArea(parent)
{
    COM_TYPE(GUI_Workspace);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

GUI_Workspace::~GUI_Workspace()
{
    GUI_Grave::orphanCounted(*this);
}
