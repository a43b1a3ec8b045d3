#include "gui/GUI_Label.h"

#include "gui/GUI_Grave.h"
#include "gui/GUI_Mnemonic.h"
#include "gui/GUI_ParentPanel.h"

GUI_Label::GUI_Label(GUI_ParentPanel* panel, const unsigned char& flag)
    : QLabel(GUI_ParentPanel::qtWidget(panel))
    , GUI_Component(flag)
{
    COM_TYPE(GUI_Label);
    applyFont(*this);
}

GUI_Label::GUI_Label(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_Label(&panel, flag)
{}

GUI_Label::~GUI_Label()
{
    GUI_Grave::orphanCounted(*this);
}

void GUI_Label::setLabel(const std::string& label)
{
    const QString text = toQString(label);
    setText(text);
    setToolTip(GUI_Mnemonic::text(text));
    resize(sizeHint());
}

void GUI_Label::setTooltipText(const std::string& text)
{
    setToolTip(toQString(text));
}

std::string GUI_Label::toString() const
{
    return getIdentityString() + " " + toTString(text());
}
