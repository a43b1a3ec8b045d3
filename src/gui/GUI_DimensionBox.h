#pragma once
#include <string>

class GUI_Label;
class GUI_ParentLayout;
class GUI_ParentPanel;

/// The box for a dimension of a matrix or a vector: numbers from 1 to 100000.
class GUI_DimensionBox
{
public:
    /// Adds a label and a box of that flag to a layout of the panel. Gives the label, which the layout holds.
    static GUI_Label* add(GUI_ParentPanel& panel, GUI_ParentLayout& layout, unsigned char flag,
                          const std::string& label);
    /// Shows the dimension, moved into the range of the box. A panel without such a box is left alone.
    static void show(const GUI_ParentPanel& panel, unsigned char flag, unsigned long dimension);
    /// The number in the box, or `otherwise` if there is no such box.
    static unsigned long get(const GUI_ParentPanel& panel, unsigned char flag,
                             unsigned long otherwise);
};
