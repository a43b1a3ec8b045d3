#pragma once
#include "gui/GUI_Component.h"

#include <string>

/// A component that the user acts on: it has a value, as text, and reports to the panel or the tool bar
/// that holds it.
class GUI_ActionComponent : public GUI_Component
{
public:
    virtual void setEnabled(bool flag) = 0;
    /// Shows `value`. Spin boxes and lists report this like an act of the user.
    virtual void setValue(const std::string& value) = 0;
    virtual std::string getValue() const = 0;
    /// Reports: to the panel of the layout first, unless the panel displays, then to the tool bar. What the
    /// panel releases meanwhile, this component included, goes when the handler has returned.
    virtual void toDo();

protected:
    using GUI_Component::GUI_Component;
    ~GUI_ActionComponent() override = default;
};
