#pragma once
#include <vector>

class GUI_Object;
class QLayout;
class QObject;

/// Where objects wait that are released while Qt is still inside one of their handlers, and the place that
/// keeps Qt from deleting what is counted.
///
/// Counts decide how long an object lives, Qt parents do not. So a counted object leaves its Qt parent before
/// one of the two goes, and it is deleted only when no handler runs. Outside handlers that is at once.
class GUI_Grave
{
public:
    /// Takes a condemned object out of Qt's tree and deletes it, now or when the handlers have returned.
    static void bury(const GUI_Object& object, QObject& qtSide);
    /// Deletes what waits, parts before wholes, unless a handler runs.
    static void flush();

    /// Takes an object out of its Qt parent, hidden if it is a widget. Nothing is deleted but the frame of a
    /// sub-window. An object without Qt parent is left as it is.
    static void detach(QObject& qtSide);
    /// Detaches every counted object below `qtSide`. First statement in the destructor of each counted
    /// widget. The layout of a widget stays and goes with it.
    static void orphanCounted(QObject& qtSide);
    /// Drops the items of a layout; counted layouts among them are set free. First statement in the
    /// destructor of each counted layout.
    static void emptyLayout(QLayout& layout);

private:
    friend class GUI_EventScope;

    static void leaveHandler();

    static int mDepth;                                ///< Handlers that run, one inside the other.
    static std::vector<const GUI_Object*> mCondemned; ///< In the order of their release.
};
