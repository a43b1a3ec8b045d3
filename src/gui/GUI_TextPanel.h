#pragma once
#include "gui/GUI_RootPanel.h"

class GUI_TextEdit;

/// The text of a text window, over all of it. What is typed stays in the text until the window is saved.
class GUI_TextPanel : public GUI_RootPanel
{
    COM_CLASS(GUI_TextPanel)
public:
    static constexpr unsigned char COMPO_TEXT = 0;

    /// Null when it was taken out.
    GUI_TextEdit* getTextEdit() const;

protected:
    explicit GUI_TextPanel(GUI_ParentWindow& window);
    /// Null leaves the panel without window.
    explicit GUI_TextPanel(GUI_ParentWindow* window);
    ~GUI_TextPanel() override = default;

private:
    void initComponents();
};
