#pragma once
#include "gui/GUI_RootAction.h"

#include <string>

/// Tells what the program is, or opens its manual, each time in a window of its own.
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
    /// The first page of the manual: the French one for French texts, if there is one.
    static std::string getManual();

    unsigned char mType; ///< `ABOUT_TYPE` or `MANUAL_TYPE`.
};
