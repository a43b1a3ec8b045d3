#pragma once
#include "gui/GUI_ChildWindow.h"

#include <string>
#include <vector>

/// A window that calls itself a text window and writes down where it is saved.
class TestTextWindow : public GUI_ChildWindow
{
    COM_CLASS(TestTextWindow)
public:
    using GUI_ChildWindow::save;

    void save() const override { mSaved.push_back(getSavingPath() + getSavingFile()); }

    mutable std::vector<std::string> mSaved;

protected:
    /// Of a parent of any class: one of this class would pass for a copy.
    template <typename Window>
    explicit TestTextWindow(Window& parent)
        : GUI_ChildWindow(static_cast<GUI_ParentWindow&>(parent))
    {
        setType("GUI_TextWindow");
        COM_TYPE(TestTextWindow);
        setName("Text");
    }
    ~TestTextWindow() override = default;
};
