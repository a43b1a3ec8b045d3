#pragma once
#include "common/COM_Object.h"

#include <string>

class GUI_ParentWindow;

/// Message boxes. Each waits for its answer; texts are shown as they are given.
class GUI_Message : public COM_Object
{
    COM_CLASS(GUI_Message)
public:
    // Answers of `printWarning`: the place of the button.
    static constexpr int YES = 0;
    static constexpr int NO = 1;
    static constexpr int CANCEL = 2;

    /// The box stands before the active window. What it gives tells nothing: there is one button.
    static int printMessage(const std::string& title, const std::string& text);
    static int printInformation(const std::string& title, const std::string& text);
    /// The text may be rich text. A null parent stands for the active window, here and below.
    static int printAbout(GUI_ParentWindow* parent, const std::string& title,
                          const std::string& text);
    /// The Return key says `YES`, Escape and the title bar say `NO`.
    static int printWarning(GUI_ParentWindow* parent, const std::string& title,
                            const std::string& text, const std::string& button0Text,
                            const std::string& button1Text);
    /// The Return key says `YES`, Escape and the title bar say `CANCEL`.
    static int printWarning(GUI_ParentWindow* parent, const std::string& title,
                            const std::string& text, const std::string& button0Text,
                            const std::string& button1Text, const std::string& button2Text);

protected:
    GUI_Message();
    ~GUI_Message() override = default;
};
