#include "gui2d/GUI2D_DetailWindow.h"

#include "gui/GUI_EventScope.h"

#include <QShortcut>

GUI2D_DetailWindow::GUI2D_DetailWindow(GUI_ParentWindow& parent, const std::string& name,
                                       bool isContainer)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(GUI2D_DetailWindow);
    setName(name);
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, [this] {
        const GUI_EventScope scope;
        close(false);
    });
}
