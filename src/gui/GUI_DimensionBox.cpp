#include "gui/GUI_DimensionBox.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_ParentLayout.h"
#include "gui/GUI_RootLayout.h"
#include "gui/GUI_SpinBox.h"

#include <algorithm>

namespace {

/// Null if the panel's own layout has no such box.
GUI_SpinBox* findBox(const GUI_ParentPanel& panel, unsigned char flag)
{
    const GUI_ParentLayout* const layout = panel.getMainLayout();
    return layout != nullptr ? dynamic_cast<GUI_SpinBox*>(layout->getComponent(flag)) : nullptr;
}

} // namespace

GUI_Label* GUI_DimensionBox::add(GUI_ParentPanel& panel, GUI_ParentLayout& layout,
                                 unsigned char flag, const std::string& label)
{
    const COM_Scoped title(GUI_Label::New(panel));
    title->setLabel(label);
    layout.addToComponents(*title);
    const COM_Scoped box(GUI_SpinBox::New(panel, flag));
    box->setRange(1, 100000);
    layout.addToComponents(*box);
    return title.get();
}

void GUI_DimensionBox::show(const GUI_ParentPanel& panel, unsigned char flag,
                            unsigned long dimension)
{
    GUI_SpinBox* const box = findBox(panel, flag);
    if (box == nullptr) {
        return;
    }
    const auto number = static_cast<int>(std::min<unsigned long>(dimension, box->maximum()));
    // Set to the number it has, the box would still drop what is being typed into it.
    if (std::max(number, box->minimum()) != box->value()) {
        box->QSpinBox::setValue(number);
    }
}

unsigned long GUI_DimensionBox::get(const GUI_ParentPanel& panel, unsigned char flag,
                                    unsigned long otherwise)
{
    const GUI_SpinBox* const box = findBox(panel, flag);
    return box != nullptr ? static_cast<unsigned long>(box->value()) : otherwise;
}
