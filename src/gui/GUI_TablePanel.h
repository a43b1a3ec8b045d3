#pragma once
#include "gui/GUI_FramePanel.h"

#include <string>
#include <vector>

class GUI_Label;
class GUI_Table;

/// What the forms for vectors and matrices share: a table of values and, above it, boxes for the dimensions.
///
/// Every change ends with `updateValues`.
class GUI_TablePanel : public GUI_FramePanel
{
public:
    static constexpr unsigned char COMPO_TABLE = 0; ///< The boxes have the flags after it.

    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

    /// Shows the values.
    virtual void updateTable() = 0;

    /// Whether the user can change the widths of the columns; not at first.
    void setColumnsResizabled(bool flag);

    GUI_Table* getTable() const;

protected:
    GUI_TablePanel(GUI_ParentPanel* parent, bool showDim);
    ~GUI_TablePanel() override;

    /// Makes the table and, if dimensions are shown, a box with each of these labels.
    void initTable(const std::vector<std::string>& dimensions);
    /// Leaves an empty table.
    void resetTable();
    /// Without boxes there is no label to change.
    void setDimensionLabel(unsigned char flag, const std::string& label);

    /// Shows the dimensions.
    virtual void showDimensions() = 0;
    /// Takes over the cell that the user has left.
    virtual void edit(GUI_Table& table) = 0;
    /// Takes over the dimensions in the boxes.
    virtual void resize() = 0;

private:
    bool mShowDim;
    unsigned long mDimensions = 0;   ///< How many flags after the table's mean a dimension.
    std::vector<GUI_Label*> mLabels; ///< Counted; of the boxes, none if there are none.
};
