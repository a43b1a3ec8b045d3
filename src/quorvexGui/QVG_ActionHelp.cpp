#include "quorvexGui/QVG_ActionHelp.h"

#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_BrowserWindow.h"
#include "gui/GUI_RootWindow.h"

#include <filesystem>
#include <system_error>

QVG_ActionHelp::QVG_ActionHelp(unsigned char type)
    : GUI_RootAction(nullptr, translate(type == ABOUT_TYPE ? "About" : "Manual"))
    , mType(type)
{
    COM_TYPE(QVG_ActionHelp);
}

std::string QVG_ActionHelp::getManual()
{
    const std::string french = GUI_Application::DOC_PATH + "fr/" + GUI_Application::DOC_FILE;
    std::error_code error;
    const bool isFrench =
        getLang() == DICO_Dictionary::LANG_FR && std::filesystem::is_regular_file(french, error);
    return isFrench ? french : GUI_Application::DOC_PATH + GUI_Application::DOC_FILE;
}

void QVG_ActionHelp::toDo()
{
    GUI_RootWindow* const window = getRootWindow();
    if (window != nullptr && mType == MANUAL_TYPE) {
        const COM_Scoped manual(GUI_BrowserWindow::New(*window, "Help Window"));
        manual->setHome(getManual());
        manual->show();
    } else if (window != nullptr && window->getApplication() != nullptr) {
        window->getApplication()->about();
    }
    GUI_RootAction::toDo();
}
