#pragma once
#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_Mnemonic.h"
#include "gui/GUI_ParentPanel.h"

#include <QWidget>

#include <string>

/// What all components that the user acts on share, over the Qt class that they are.
///
/// A concrete class adds its signals, its value, and a slot `toDo`, which moc finds in classes with
/// Q_OBJECT alone.
template <typename Widget>
class GUI_Widget : public Widget, public GUI_ActionComponent
{
public:
    void setTooltipText(const std::string& text) { Widget::setToolTip(toQString(text)); }

    void setEnabled(bool flag) override { Widget::setEnabled(flag); }
    using GUI_Component::setLayout;

protected:
    /// A widget inside the panel's, with the shared font. Without a panel it has no parent.
    GUI_Widget(GUI_ParentPanel* panel, const unsigned char& flag)
        : Widget(GUI_ParentPanel::qtWidget(panel))
        , GUI_ActionComponent(flag)
    {
        applyFont(*this);
    }
    ~GUI_Widget() override { GUI_Grave::orphanCounted(*this); }

    /// The tool tip of a label: without its first "&".
    void setTooltipLabel(const std::string& label)
    {
        Widget::setToolTip(GUI_Mnemonic::text(toQString(label)));
    }
};
