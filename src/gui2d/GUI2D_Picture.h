#pragma once
#include <QByteArray>
#include <QImage>
#include <QString>

class GUI2D_DrawPanel;

/// The picture of a draw panel for other programs, as it is shown.
class GUI2D_Picture
{
public:
    /// With the pixels of the screen. Null for a panel without size.
    static QImage image(GUI2D_DrawPanel& panel);
    /// The contents of a file in the format "pdf", "svg" or "png". Empty for every other, and for a panel
    /// without size.
    static QByteArray file(GUI2D_DrawPanel& panel, const QString& format);
};
