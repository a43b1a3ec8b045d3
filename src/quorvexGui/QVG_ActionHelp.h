#pragma once
#include "gui/GUI_RootAction.h"

/// Tells what the program is. For the manual there is no window in this build, and the user is told so.
class QVG_ActionHelp : public GUI_RootAction
{
    COM_CLASS(QVG_ActionHelp)
public:
    static constexpr unsigned char ABOUT_TYPE = 0;
    static constexpr unsigned char MANUAL_TYPE = 1;

    void toDo() override;

protected:
    explicit QVG_ActionHelp(unsigned char type);
    ~QVG_ActionHelp() override = default;

private:
    unsigned char mType; ///< `ABOUT_TYPE` or `MANUAL_TYPE`.
};
