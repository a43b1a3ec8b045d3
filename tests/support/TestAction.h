#pragma once
#include "gui/GUI_Action.h"

#include <functional>
#include <string>

/// An action that counts its calls and does what a test asks for.
class TestAction : public GUI_Action
{
    COM_CLASS(TestAction)
public:
    void toDo() override
    {
        ++mCalls;
        if (mWork) {
            mWork();
        }
        GUI_Action::toDo();
    }

    int mCalls = 0;
    std::function<void()> mWork;

protected:
    explicit TestAction(const std::string& label = "Action")
    {
        COM_TYPE(TestAction);
        setLabel(label);
    }
    ~TestAction() override = default;
};
