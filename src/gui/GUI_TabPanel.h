#pragma once
#include "gui/GUI_ChildPanel.h"

#include <QTabWidget>

#include <concepts>
#include <string>

/// A child panel whose own child panels are the pages of a notebook.
class GUI_TabPanel : public QTabWidget, public GUI_ChildPanel
{
    Q_OBJECT
    COM_CLASS(GUI_TabPanel)
public:
    /// Adds the panel as the last page, titled as given, and as a child. A panel without a widget
    /// becomes a child only.
    void insertPanel(GUI_ChildPanel& panel, const std::string& name);

    using GUI_ChildPanel::setParent;
    using GUI_ParentPanel::setEnabled;

protected:
    GUI_TabPanel();
    explicit GUI_TabPanel(GUI_ParentPanel* parent);
    /// A template, so that a panel of this very class is taken for the parent and not for a copy.
    template <std::derived_from<GUI_ParentPanel> Panel>
    explicit GUI_TabPanel(Panel& parent)
        : GUI_TabPanel(static_cast<GUI_ParentPanel*>(&parent))
    {}
    ~GUI_TabPanel() override;
};
