#include "gui2d/GUI2D_ActionExport.h"

#include "common/COM_FileWriter.h"
#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui2d/GUI2D_CurveTable.h"
#include "gui2d/GUI2D_Picture.h"
#include "gui2d/GUI2D_Plotter.h"

#include <QFileInfo>
#include <QStringList>

namespace {

std::string extensionOf(const std::string& name)
{
    return GUI_Object::toTString(QFileInfo(GUI_Object::toQString(name)).suffix().toLower());
}

bool isFormat(const std::string& extension)
{
    static const QStringList formats{"pdf", "svg", "png", "csv"};
    return formats.contains(GUI_Object::toQString(extension));
}

bool write(const std::string& name, const std::string& contents)
{
    COM_FileWriter file(name);
    if (!file.isOpen()) {
        return false;
    }
    file.stream() << contents;
    return file.commit();
}

} // namespace

GUI2D_ActionExport::GUI2D_ActionExport(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Export the Curves"), "GUI2D_ActionExport")
{
    COM_TYPE(GUI2D_ActionExport);
}

void GUI2D_ActionExport::act(GUI2D_DrawPanel& panel)
{
    GUI_ParentWindow* const window = getWindow();
    std::string name = GUI_File::selectSavingFile(
        window, getStartPath(), "(*.pdf *.svg *.png *.csv)", translate("Export the Curves"), "...");
    if (name.empty()) {
        return;
    }
    if (!isFormat(extensionOf(name))) {
        name += ".pdf";
        if (!GUI_File::isReplacementAllowed(window, name)) {
            return;
        }
    }
    const std::string format = extensionOf(name);
    const std::string text = contents(panel, format);
    if (text.empty() && format == "csv") {
        GUI_Message::printInformation(translate("Warning"), translate("No curve selected"));
    } else if (text.empty() || !write(name, text)) {
        GUI_Message::printInformation(translate("Warning"),
                                      translate("The file can not be written"));
    }
}

std::string GUI2D_ActionExport::contents(GUI2D_DrawPanel& panel, const std::string& format)
{
    if (format == "csv") {
        const auto* const plotter = dynamic_cast<GUI2D_Plotter*>(&panel);
        return plotter == nullptr ? std::string() : GUI2D_CurveTable::text(*plotter, ',');
    }
    return GUI2D_Picture::file(panel, toQString(format)).toStdString();
}
