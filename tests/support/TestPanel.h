#pragma once
#include "common/COM_Scoped.h"
#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_RootVBoxLayout.h"

#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// A panel that writes down what its components report.
class TestPanel : public GUI_RootPanel
{
    COM_CLASS(TestPanel)
public:
    void componentClicked(GUI_ActionComponent& component) override
    {
        mFlags.push_back(component.getFlagId());
        mValues.push_back(component.getValue());
        if (mAnswer) {
            mAnswer(component);
        }
    }
    void updateValues() override
    {
        ++mUpdates;
        if (mShowModel) {
            mShowModel();
        }
        GUI_RootPanel::updateValues();
    }
    /// Forgets what was written down.
    void forget()
    {
        mFlags.clear();
        mValues.clear();
    }

    std::vector<int> mFlags;          ///< Of the senders, one for each report.
    std::vector<std::string> mValues; ///< Of the senders at the time of the report.
    int mUpdates = 0;
    std::function<void(GUI_ActionComponent&)> mAnswer; ///< What else a report does.
    std::function<void()> mShowModel;                  ///< What else `updateValues` does.

protected:
    template <typename... Arguments>
    explicit TestPanel(Arguments&&... arguments)
        : GUI_RootPanel(std::forward<Arguments>(arguments)...)
    {
        COM_TYPE(TestPanel);
    }
    ~TestPanel() override = default;
};

/// A `TestPanel` with a column of components, in a window of its own.
class TestForm
{
public:
    TestForm()
    {
        const COM_Scoped layout(GUI_RootVBoxLayout::New(*mPanel));
        mLayout = layout.get();
    }

    TestPanel& operator*() const { return *mPanel; }
    TestPanel* operator->() const { return mPanel.get(); }
    GUI_RootVBoxLayout& layout() const { return *mLayout; }

    /// Makes a component inside the panel and puts it into the column, which alone holds it.
    template <typename Component>
    Component& add(int flag = 0) const
    {
        const COM_Scoped component(Component::New(*mPanel, static_cast<unsigned char>(flag)));
        mLayout->addToComponents(*component);
        return *component;
    }
    /// Shows the panel as the active window, and forgets what that was reported for.
    void show() const
    {
        mPanel->show();
        mPanel->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mPanel.get()));
        mPanel->forget();
    }

private:
    COM_Scoped<TestPanel> mPanel{TestPanel::New()};
    GUI_RootVBoxLayout* mLayout; ///< Counted by the panel.
};
