#pragma once
#include "gui/GUI_MenuPanel.h"

#include <string>

class GUI_Action;
class GUI_TextEdit;

/// The menus of a text window: its file, the changes of the text and its formats.
class GUI_TextMenu : public GUI_MenuPanel
{
    COM_CLASS(GUI_TextMenu)
public:
    /// Places in the menu of the formats.
    enum Format { UNDERLINE, ITALIC, BOLD, LEFT_ALIGN, RIGHT_ALIGN, CENTER_ALIGN };

    /// Of the three alignments that are on, leaves the first.
    void updateStateMenus() override;

    /// Whether the text of the window can be changed.
    bool isEditable() const;
    /// False when it is missing too.
    bool isOn(Format format) const;
    /// Marks the formats that the text has at its cursor. The actions are not carried out.
    void showFormats(const GUI_TextEdit& text) const;

protected:
    /// The entries for a new text, for another one and for another name are there if `isLoadFileShown`.
    GUI_TextMenu(GUI_ParentWindow& window, bool isLoadFileShown);
    /// Requires: `window` is not null.
    GUI_TextMenu(GUI_ParentWindow* window, bool isLoadFileShown);
    ~GUI_TextMenu() override = default;

private:
    void createFileMenu(bool isLoadFileShown);
    void createEditMenu();
    void createFormatMenu();
    /// Null when it was taken off.
    GUI_Action* getFormatAction(Format format) const;
    /// Checks or unchecks the action without carrying it out.
    void mark(Format format, bool isChecked) const;

    // With which the menus were built: a translation asked for later may be another.
    std::string mFileName;
    std::string mFormatName;
};
