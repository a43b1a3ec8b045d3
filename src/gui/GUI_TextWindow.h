#pragma once
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_TextMenu.h"

#include <string>

class GUI_TextEdit;

/// A window that shows one text of a file, plain or with formats, and lets the user change it unless it is
/// only for reading.
///
/// A file is UTF-8; one that is not is taken for Latin-1 and becomes UTF-8 when it is saved. Files that
/// cannot be opened are passed over without a message. Before the user closes a window whose text was
/// changed, he is asked whether to save it; a close by the program is silent.
class GUI_TextWindow : public GUI_ChildWindow
{
    COM_CLASS(GUI_TextWindow)
public:
    using GUI_ChildWindow::createFile;
    using GUI_ChildWindow::load;
    using GUI_ChildWindow::save;

    /// Begins an empty text of that name. A file of it is left alone until the text is saved.
    void createFile(const std::string& path, const std::string& file) override;
    /// Shows the window's file, or nothing where there is none.
    void load() override;
    void save() const override;

    // What the entries of the menus do. Nothing in a window for reading, but for printing and copying.
    virtual void undo();
    virtual void redo();
    /// Asks for a printer first.
    virtual void print();
    virtual void cut();
    virtual void copy();
    virtual void paste();
    // These give what is selected, or what is typed next, the state of their entry.
    virtual void bold();
    virtual void italic();
    virtual void underline();
    virtual void rightAlign();
    virtual void leftAlign();
    virtual void centerAlign();

    bool isEditable() const { return mIsEditable; }
    /// Null once the window is closed.
    GUI_TextEdit* getTextEdit() const;

protected:
    /// `name` is the key of the caption. The entries for other files are there if `isLoadFileShown`.
    GUI_TextWindow(GUI_ParentWindow& parent, bool isEditable,
                   const std::string& name = "Text Window", bool isLoadFileShown = true,
                   bool isContainer = false);
    /// Requires: `parent` is not null.
    GUI_TextWindow(GUI_ParentWindow* parent, bool isEditable,
                   const std::string& name = "Text Window", bool isLoadFileShown = true,
                   bool isContainer = false);
    ~GUI_TextWindow() override = default;

    void closeEvent(QCloseEvent* event) override;

private:
    void initComponents(const std::string& name, bool isLoadFileShown);
    /// Null once the window is closed, and in a window for reading.
    GUI_TextEdit* getEditable() const;
    /// Null once the window is closed.
    const GUI_TextMenu* getTextMenu() const;
    bool isOn(GUI_TextMenu::Format format) const;
    void align(Qt::Alignment alignment);
    void setText(GUI_TextEdit& text, const std::string& value) const;
    void showFormats() const;
    /// False when the user keeps the window open, or when what he wants to be saved cannot be.
    bool isReadyToClose();

    bool mIsEditable;
};
