#pragma once
#include "gui/GUI_Object.h"

class GUI_ParentWindow;
class QDialog;
class QWidget;

/// How the boxes are run that wait for an answer.
class GUI_Dialog : public GUI_Object
{
public:
    GUI_Dialog() = delete;

    /// The window before which a box stands: `window`, or the active one. Null if there is none.
    static QWidget* parent(GUI_ParentWindow* window);
    /// Shows the dialog with the shared font and gives its result. Windows that are released while it waits
    /// live until it is gone, its parent among them.
    static int run(QDialog& dialog);
};
