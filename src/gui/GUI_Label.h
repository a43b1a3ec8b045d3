#pragma once
#include "gui/GUI_Component.h"

#include <QLabel>

#include <string>

/// A text that the user only reads.
class GUI_Label : public QLabel, public GUI_Component
{
    Q_OBJECT
    COM_CLASS(GUI_Label)
public:
    /// Flag for labels of panels whose fields are looked up by flag, where the usual 0 may be a field's.
    static constexpr unsigned char NO_FIELD = 255;

    /// Shows the text, makes it the tool tip without its first "&", and takes the size that it needs.
    void setLabel(const std::string& label);
    void setTooltipText(const std::string& text);
    using GUI_Component::setLayout;

    /// Identity, a blank, the text.
    std::string toString() const override;

protected:
    explicit GUI_Label(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_Label(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_Label() override;
};
