#pragma once
#include "gui/GUI_Button.h"

#include <QColor>

#include <string>

/// A button whose background is a color that a dialog changes. Its value is the color's name.
class GUI_ColorButton : public GUI_Button
{
    Q_OBJECT
    COM_CLASS(GUI_ColorButton)
public:
    /// A color as "#rrggbb" or by its English name; a text that is no color changes nothing.
    void setValue(const std::string& value) override;
    /// "#rrggbb".
    std::string getValue() const override;

public slots:
    /// Lets the user choose a color, then reports, also when he cancels.
    void toDo() override;

protected:
    /// With an empty label.
    explicit GUI_ColorButton(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_ColorButton(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    GUI_ColorButton(GUI_ParentPanel* panel, const std::string& label,
                    const unsigned char& flag = 0);
    GUI_ColorButton(GUI_ParentPanel& panel, const std::string& label,
                    const unsigned char& flag = 0);
    ~GUI_ColorButton() override = default;

    /// With the very colour inside: styles paint backgrounds in a paler one.
    void paintEvent(QPaintEvent* event) override;

private:
    void setColor(const QColor& color);

    QColor mColor; ///< The background, always valid.
};
