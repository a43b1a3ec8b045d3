#pragma once

/// Says that a handler called by Qt runs: what is released meanwhile is deleted after it.
///
/// One of these stands at the head of every function that Qt calls and that may release objects. The last one
/// to go asks the event loop to delete what waits.
class GUI_EventScope
{
public:
    GUI_EventScope();
    ~GUI_EventScope();
    GUI_EventScope(const GUI_EventScope&) = delete;
    GUI_EventScope& operator=(const GUI_EventScope&) = delete;
};
