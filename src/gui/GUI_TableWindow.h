#pragma once
#include "common/COM_Scoped.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui/GUI_RootPanel.h"

#include <functional>
#include <string>

/// What the windows for vectors and matrices share: all of the window is one form with a table, to which the
/// setters hand on what they are told. `Form` is the class of the form.
class GUI_TableWindow : public GUI_ChildWindow
{
protected:
    using GUI_ChildWindow::GUI_ChildWindow;
    ~GUI_TableWindow() override = default;

    /// Names the window and fills it with a form for `model`, which may be null.
    template <typename Form, typename Model>
    void fill(const std::string& name, Model* model, bool showDim)
    {
        setName(name);
        const COM_Scoped root(GUI_RootPanel::New(*this));
        const COM_Scoped layout(GUI_RootHBoxLayout::New(*root));
        const COM_Scoped form(Form::New(root.get(), model, showDim));
        layout->addPanel(*form);
    }
    /// Null once the window is closed.
    template <typename Form>
    Form* getForm() const
    {
        const GUI_RootPanel* const root = getPanel();
        return root != nullptr ? dynamic_cast<Form*>(root->getChild(0)) : nullptr;
    }
    /// Calls a setter of the form, or a function that takes the form, unless there is none any more.
    template <typename Form, typename Setter, typename... Arguments>
    void tell(Setter setter, const Arguments&... arguments) const
    {
        if (Form* const form = getForm<Form>()) {
            std::invoke(setter, *form, arguments...);
        }
    }
};
