#include "quorvexGui/QVG_FormPage.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootGridLayout.h"
#include "quorvexGui/QVG_FormPanel.h"

#include <algorithm>

void QVG_FormPage::arrange(GUI_ParentPanel& page, const std::array<QVG_FormPanel*, 3>& forms)
{
    constexpr int rows = 3;
    const COM_Scoped layout(GUI_RootGridLayout::New(page, rows, 1, GUI_ParentLayout::MARGIN,
                                                    GUI_ParentLayout::SPACING));
    int width = 0;
    for (const QVG_FormPanel* const form : forms) {
        width = std::max(width, form->getLabelsWidth());
    }
    int row = 0;
    for (QVG_FormPanel* const form : forms) {
        form->setLabelsWidth(width);
        layout->addPanel(*form, row++, 0);
        layout->setAlignment(form, Qt::AlignTop);
    }
    // Space that is left over goes below the last form.
    layout->setRowStretch(rows - 1, 1);
}
