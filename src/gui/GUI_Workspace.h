#pragma once
#include "gui/GUI_Object.h"

#include <QMdiArea>

/// The area of a container window in which its child windows live. Scroll bars come as needed.
class GUI_Workspace : public QMdiArea, public GUI_Object
{
    COM_CLASS(GUI_Workspace)
protected:
    explicit GUI_Workspace(QWidget* parent);
    ~GUI_Workspace() override;
};
