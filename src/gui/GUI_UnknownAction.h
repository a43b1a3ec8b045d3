#pragma once

class GUI_ActionComponent;

/// What a panel says about a component that it doesn't know.
class GUI_UnknownAction
{
public:
    /// "action unknown !", the component's flag in decimal, and a line end, on standard output.
    static void print(const GUI_ActionComponent& component);
};
