#pragma once
#include "gui/GUI_ChildPanel.h"

#include <QGroupBox>

#include <concepts>
#include <string>

/// A child panel with a frame and a title.
class GUI_FramePanel : public QGroupBox, public GUI_ChildPanel
{
    Q_OBJECT
    COM_CLASS(GUI_FramePanel)
public:
    /// The title, as given.
    void setLabel(const std::string& label);

    using GUI_ChildPanel::setParent;
    using GUI_ParentPanel::setEnabled;

protected:
    GUI_FramePanel();
    explicit GUI_FramePanel(GUI_ParentPanel* parent);
    /// A template, so that a panel of this very class is taken for the parent and not for a copy.
    template <std::derived_from<GUI_ParentPanel> Panel>
    explicit GUI_FramePanel(Panel& parent)
        : GUI_FramePanel(static_cast<GUI_ParentPanel*>(&parent))
    {}
    ~GUI_FramePanel() override;
};
