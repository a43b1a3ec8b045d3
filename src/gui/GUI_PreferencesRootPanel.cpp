#include "gui/GUI_PreferencesRootPanel.h"

#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_ComboBox.h"
#include "gui/GUI_Dialog.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_File.h"
#include "gui/GUI_GridLayout.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_UnknownAction.h"

#include <QFont>
#include <QFontDialog>

namespace {

struct Row
{
    const char* mLabel; ///< Key of the text.
    unsigned char mField;
    unsigned char mButton;
};

using Panel = GUI_PreferencesRootPanel;

constexpr Row ROWS[] = {
    {"Dictionary Path", Panel::COMPO_DICO_PATH_LE, Panel::COMPO_DICO_PATH_BUT},
    {"Document Path", Panel::COMPO_DOCU_PATH_LE, Panel::COMPO_DOCU_PATH_BUT},
    {"Icons Path", Panel::COMPO_ICON_PATH_LE, Panel::COMPO_ICON_PATH_BUT},
    {"Working Path", Panel::COMPO_WORK_PATH_LE, Panel::COMPO_WORK_PATH_BUT},
    {"Font Style", Panel::COMPO_FONT_LE, Panel::COMPO_FONT_BUT},
};

} // namespace

GUI_PreferencesRootPanel::GUI_PreferencesRootPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI_PreferencesRootPanel);
    initComponents();
    GUI_PreferencesRootPanel::updateValues();
}

void GUI_PreferencesRootPanel::initComponents()
{
    constexpr int rowsNumber = static_cast<int>(std::size(ROWS));

    const COM_Scoped layout(
        GUI_RootGridLayout::New(*this, 3, 1, GUI_ParentLayout::MARGIN, GUI_ParentLayout::SPACING));
    const COM_Scoped fields(GUI_GridLayout::New(rowsNumber + 1, 3));
    const COM_Scoped buttons(GUI_HBoxLayout::New());
    layout->addToChildren(*fields, 0, 0);
    layout->addToChildren(*buttons, 2, 0);
    layout->setRowStretch(1, 1);

    for (int i = 0; i < rowsNumber; ++i) {
        const std::string text = translate(ROWS[i].mLabel);
        const COM_Scoped field(GUI_LineEdit::New(*this, ROWS[i].mField));
        const COM_Scoped button(GUI_Button::New(*this, ROWS[i].mButton));
        field->setTooltipText(text);
        button->setLabel("...");
        button->setTooltipText(text);
        fields->addLabel(*this, i, text, *field);
        fields->addToComponents(*field, i, 1);
        fields->addToComponents(*button, i, 2);
        if (i == 0) {
            getWindow()->setFocusProxy(field.get());
        }
    }

    const COM_Scoped languages(GUI_ComboBox::New(*this, COMPO_LANG_BUT));
    languages->setLabel(translate("Language"));
    languages->addItem(toQString(translate("English")));
    languages->addItem(toQString(translate("French")));
    fields->addLabel(*this, rowsNumber, translate("Language"), *languages);
    fields->addToComponents(*languages, rowsNumber, 1);

    const COM_Scoped ok(GUI_Button::New(*this, COMPO_OK));
    ok->setLabel(translate("Ok"));
    buttons->addSpacer(0);
    buttons->addToComponents(*ok);
}

void GUI_PreferencesRootPanel::updateValues()
{
    const GUI_Display display(*this);
    for (const Row& row : ROWS) {
        showValue(row.mField, getStored(row.mField));
    }
    showValue(COMPO_LANG_BUT, COM_Integer::toString(getLang()));
    GUI_RootPanel::updateValues();
}

void GUI_PreferencesRootPanel::componentClicked(GUI_ActionComponent& component)
{
    switch (component.getFlagId()) {
    case COMPO_DICO_PATH_BUT:
        setDicoPath();
        break;
    case COMPO_DOCU_PATH_BUT:
        setDocuPath();
        break;
    case COMPO_ICON_PATH_BUT:
        setIconsPath();
        break;
    case COMPO_WORK_PATH_BUT:
        setWorkingPath();
        break;
    case COMPO_FONT_BUT:
        setFont();
        break;
    case COMPO_LANG_BUT:
        setLang(component.getValue());
        // The name of the default font is a text too; in the former language it would pass for a font.
        updateValues();
        break;
    case COMPO_OK:
        savePreferences();
        break;
    case COMPO_DICO_PATH_LE:
    case COMPO_DOCU_PATH_LE:
    case COMPO_ICON_PATH_LE:
    case COMPO_FONT_LE:
    case COMPO_WORK_PATH_LE:
        setTyped(component.getFlagId(), component.getValue());
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void GUI_PreferencesRootPanel::setDicoPath()
{
    setChosen(COMPO_DICO_PATH_LE, GUI_File::selectFile(getWindow(), getDictionaryFile(), "(*.xml)",
                                                       translate("Translator Path Selection"),
                                                       translate("Choose the dictionary file")));
}

void GUI_PreferencesRootPanel::setDocuPath()
{
    setChosen(COMPO_DOCU_PATH_LE,
              selectPath(COMPO_DOCU_PATH_LE, translate("Choose the document path"),
                         translate("Document Path Selection")));
}

void GUI_PreferencesRootPanel::setIconsPath()
{
    setChosen(COMPO_ICON_PATH_LE, selectPath(COMPO_ICON_PATH_LE, translate("Choose the icons path"),
                                             translate("Icons Path Selection")));
}

void GUI_PreferencesRootPanel::setWorkingPath()
{
    setChosen(COMPO_WORK_PATH_LE,
              selectPath(COMPO_WORK_PATH_LE, translate("Choose the working path"),
                         translate("Working Path Selection")));
}

std::string GUI_PreferencesRootPanel::selectPath(unsigned char field, const std::string& text,
                                                 const std::string& title)
{
    return GUI_File::selectPath(getWindow(), getStored(field), title, text);
}

void GUI_PreferencesRootPanel::setFont()
{
    QFontDialog dialog(QApplication::font(), GUI_Dialog::parent(getWindow()));
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    dialog.setWindowTitle(toQString(translate("Font Style")));
    if (GUI_Dialog::run(dialog) == QDialog::Accepted) {
        setChosen(COMPO_FONT_LE, toTString(dialog.selectedFont().toString()));
    }
}

void GUI_PreferencesRootPanel::setLang(const std::string& value)
{
    const bool isFrench = COM_Integer::parseInt(value) != 0;
    GUI_Object::setLang(isFrench ? DICO_Dictionary::LANG_FR : DICO_Dictionary::LANG_EN);
}

void GUI_PreferencesRootPanel::setTyped(unsigned char field, const std::string& text)
{
    setChosen(field, text == getStored(field) ? std::string() : text);
}

void GUI_PreferencesRootPanel::setChosen(unsigned char field, const std::string& text)
{
    if (!text.empty()) {
        store(field, text);
    }
    updateValues();
}

void GUI_PreferencesRootPanel::store(unsigned char field, const std::string& text)
{
    // File names are appended to paths as they are.
    const std::string path = text.ends_with('/') ? text : text + "/";
    switch (field) {
    case COMPO_DICO_PATH_LE:
        GUI_Application::chooseDictionary(text);
        break;
    case COMPO_DOCU_PATH_LE:
        GUI_Application::DOC_PATH = path;
        break;
    case COMPO_ICON_PATH_LE:
        GUI_Action::ICONS_PATH = path;
        GUI_Component::ICONS_PATH = path;
        break;
    case COMPO_WORK_PATH_LE:
        GUI_Application::WORKING_PATH = path;
        break;
    default:
        storeFont(text);
        break;
    }
}

void GUI_PreferencesRootPanel::storeFont(const std::string& text)
{
    if (text == translate("default font")) {
        setFontName({});
    } else if (QFont().fromString(toQString(text))) {
        setFontName(text);
    }
}

std::string GUI_PreferencesRootPanel::getStored(unsigned char field)
{
    switch (field) {
    case COMPO_DICO_PATH_LE:
        return getDictionaryFile();
    case COMPO_DOCU_PATH_LE:
        return GUI_Application::DOC_PATH;
    case COMPO_ICON_PATH_LE:
        return GUI_Action::ICONS_PATH;
    case COMPO_WORK_PATH_LE:
        return GUI_Application::WORKING_PATH;
    default:
        return getFontName().empty() ? translate("default font") : getFontName();
    }
}

void GUI_PreferencesRootPanel::savePreferences()
{
    GUI_ParentWindow* const window = getWindow();
    if (window == nullptr) {
        return;
    }
    GUI_RootWindow* const root = window->getRoot();
    if (root != nullptr && root->getApplication() != nullptr) {
        root->getApplication()->savePreferences();
    }
    window->close(false);
}
