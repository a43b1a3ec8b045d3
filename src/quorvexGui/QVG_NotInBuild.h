#pragma once

/// Stands in for the windows that this build lacks.
class QVG_NotInBuild
{
public:
    QVG_NotInBuild() = delete;

    /// Tells the user so, in a message box.
    static void tell();
};
