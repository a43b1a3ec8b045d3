#pragma once
#include "gui/GUI_TablePanel.h"
#include "linearAlgebra/LA_Vector.h"

#include <complex>
#include <string>

/// A form for a vector of double or complex double: a table of one column and, above it, a box for the
/// dimension.
///
/// Cells show seven digits, the vector has all of them: a value is written only when its text has been
/// changed. Every change ends with `updateValues`.
template <typename T>
class GUI_VectorPanel : public GUI_TablePanel
{
    COM_CLASS(GUI_VectorPanel)
public:
    static constexpr unsigned char COMPO_SB_DIM = 1;

    void setVector(LA_Vector<T>& vector) { setVector(&vector); }
    /// Edits this vector from now on. Null is `resetVector`.
    void setVector(LA_Vector<T>* vector);
    /// Leaves an empty table.
    void resetVector();
    LA_Vector<T>* getVector() const { return mVector; }

    void updateTable() override;
    /// Shows the dimension.
    void updateLine();

    /// Without a dimension box there is no label to change.
    void setDimensionLabel(const std::string& label);
    /// The title of the column.
    void setValuesLabel(const std::string& label);

protected:
    explicit GUI_VectorPanel(GUI_ParentPanel* parent, bool showDim = true);
    explicit GUI_VectorPanel(GUI_ParentPanel& parent, bool showDim = true);
    GUI_VectorPanel(GUI_ParentPanel* parent, LA_Vector<T>* vector, bool showDim);
    GUI_VectorPanel(GUI_ParentPanel& parent, LA_Vector<T>& vector, bool showDim);
    ~GUI_VectorPanel() override;

private:
    void showDimensions() override { updateLine(); }
    void edit(GUI_Table& table) override;
    void resize() override;

    LA_Vector<T>* mVector = nullptr; ///< Counted; null: none to edit.
};

extern template class GUI_VectorPanel<double>;
extern template class GUI_VectorPanel<std::complex<double>>;
