#include "gui2d/GUI2D_ActionCopyValues.h"

#include "gui/GUI_Message.h"
#include "gui2d/GUI2D_CurveTable.h"
#include "gui2d/GUI2D_Plotter.h"

#include <QClipboard>
#include <QGuiApplication>

GUI2D_ActionCopyValues::GUI2D_ActionCopyValues(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Copy the Values"), "GUI2D_ActionCopyValues")
{
    COM_TYPE(GUI2D_ActionCopyValues);
}

void GUI2D_ActionCopyValues::act(GUI2D_DrawPanel& panel)
{
    const auto* const plotter = dynamic_cast<GUI2D_Plotter*>(&panel);
    const std::string table =
        plotter == nullptr ? std::string() : GUI2D_CurveTable::text(*plotter, '\t');
    if (table.empty()) {
        GUI_Message::printInformation(translate("Warning"), translate("No curve selected"));
    } else {
        QGuiApplication::clipboard()->setText(toQString(table));
    }
}
