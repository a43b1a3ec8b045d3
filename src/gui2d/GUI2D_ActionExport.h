#pragma once
#include "gui2d/GUI2D_Action.h"

#include <string>

/// Writes the picture as PDF, SVG or PNG, or the numbers of the shown curves as CSV, by the extension of the
/// name that the user gives. Any other name gets ".pdf".
class GUI2D_ActionExport : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionExport)
protected:
    explicit GUI2D_ActionExport(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionExport() override = default;

    void act(GUI2D_DrawPanel& panel) override;

private:
    /// The contents of the file; empty when there is nothing to write.
    static std::string contents(GUI2D_DrawPanel& panel, const std::string& format);
};
