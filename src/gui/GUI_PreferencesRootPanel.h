#pragma once
#include "gui/GUI_RootPanel.h"

#include <string>

/// Edits the paths, the font and the language that all windows share. Each change counts at once, for texts
/// and windows that are made from then on; "Ok" writes the preferences file.
class GUI_PreferencesRootPanel : public GUI_RootPanel
{
    COM_CLASS(GUI_PreferencesRootPanel)
public:
    // Buttons and the choice of the language, then the fields for the text.
    static constexpr unsigned char COMPO_DICO_PATH_BUT = 0;
    static constexpr unsigned char COMPO_DOCU_PATH_BUT = 1;
    static constexpr unsigned char COMPO_ICON_PATH_BUT = 2;
    static constexpr unsigned char COMPO_FONT_BUT = 3;
    static constexpr unsigned char COMPO_LANG_BUT = 4;
    static constexpr unsigned char COMPO_WORK_PATH_BUT = 5;
    static constexpr unsigned char COMPO_OK = 6;
    static constexpr unsigned char COMPO_DICO_PATH_LE = 7;
    static constexpr unsigned char COMPO_DOCU_PATH_LE = 8;
    static constexpr unsigned char COMPO_ICON_PATH_LE = 9;
    static constexpr unsigned char COMPO_FONT_LE = 10;
    static constexpr unsigned char COMPO_WORK_PATH_LE = 11;

    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI_PreferencesRootPanel(GUI_ParentWindow& window);
    ~GUI_PreferencesRootPanel() override = default;

private:
    void initComponents();

    // Each asks with a dialog.
    void setDicoPath();
    void setDocuPath();
    void setIconsPath();
    void setWorkingPath();
    void setFont();
    /// Any number but 0 is French.
    static void setLang(const std::string& value);

    /// A field was left or confirmed: what was typed counts as if it had been chosen. An empty text does
    /// not, and the stored value comes back.
    void setTyped(unsigned char field, const std::string& text);
    /// Stores what was chosen for a field, and shows it. An empty text changes nothing.
    void setChosen(unsigned char field, const std::string& text);
    static void store(unsigned char field, const std::string& text);
    static void storeFont(const std::string& text);
    /// The stored value of a field as it is shown.
    static std::string getStored(unsigned char field);
    std::string selectPath(unsigned char field, const std::string& text, const std::string& title);
    void savePreferences();
};
