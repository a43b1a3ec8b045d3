#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_BaseDirectory.h"
#include "gui/GUI_Component.h"
#include "quorvexGui/QVG_Application.h"

#include <string>

int main(int argc, char** argv)
{
    const std::string sources_path = GUI_BaseDirectory::find();
    const std::string lang = QUORVEX_LANG;
    GUI_Application::TRANSLATOR_PATH = sources_path + "/linguist/";
    GUI_Application::DOC_FILE = "index.html";
    GUI_Application::DOC_ABOUT = "about.txt";
    GUI_Application::DOC_PATH = sources_path + "/doc/quorvexGui/html/";
    GUI_Action::ICONS_PATH = sources_path + "/icons/";
    GUI_Component::ICONS_PATH = GUI_Action::ICONS_PATH;
    // Before the application exists: it looks for Qt's own texts in the language of the words.
    const bool isFrench = lang.rfind("fr") != std::string::npos;
    GUI_Object::setLang(isFrench ? DICO_Dictionary::LANG_FR : DICO_Dictionary::LANG_EN);
    GUI_Object::setDictionaryFile(sources_path + "/linguist/dictionary.xml");
    QVG_Application::New(argc, argv)->run();
    return 0;
}
