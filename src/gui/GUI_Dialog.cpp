#include "gui/GUI_Dialog.h"

#include "gui/GUI_EventScope.h"
#include "gui/GUI_ParentWindow.h"

#include <QApplication>
#include <QDialog>

QWidget* GUI_Dialog::parent(GUI_ParentWindow* window)
{
    return window != nullptr ? window : QApplication::activeWindow();
}

int GUI_Dialog::run(QDialog& dialog)
{
    const GUI_EventScope scope;
    applyFont(dialog);
    return dialog.exec();
}
