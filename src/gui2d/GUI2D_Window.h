#pragma once

class GUI2D_DrawPanel;

/// A window around a draw panel, to which the actions of its menus are addressed.
class GUI2D_Window
{
public:
    /// Null while there is none.
    virtual GUI2D_DrawPanel* getDrawPanel() const = 0;

protected:
    ~GUI2D_Window() = default;
};
