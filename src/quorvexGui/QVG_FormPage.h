#pragma once
#include <array>

class GUI_ParentPanel;
class QVG_FormPanel;

/// How a page of the data window puts its forms together.
class QVG_FormPage
{
public:
    QVG_FormPage() = delete;

    /// One below the other, with the fields of all of them in one column.
    static void arrange(GUI_ParentPanel& page, const std::array<QVG_FormPanel*, 3>& forms);
};
