#pragma once
#include "gui/GUI_TablePanel.h"
#include "linearAlgebra/LA_Matrix.h"

#include <complex>
#include <string>
#include <vector>

/// A form for a matrix of double, complex double or unsigned long: a table and, above it, a box for each of
/// its dimensions.
///
/// Cells show seven digits, the matrix has all of them: a value is written only when its text has been
/// changed. Heirs override `updateValues`, which ends every change, to bring up to date what depends on the
/// matrix.
template <typename T>
class GUI_MatrixPanel : public GUI_TablePanel
{
    COM_CLASS(GUI_MatrixPanel)
public:
    static constexpr unsigned char COMPO_SB_XDIM = 1;
    static constexpr unsigned char COMPO_SB_YDIM = 2;

    /// Sizes with more elements are refused: filling a table of so many cells would hold up the program.
    static constexpr unsigned long MAX_ELEMENTS = 4000000;

    void setMatrix(LA_Matrix<T>& matrix) { setMatrix(&matrix); }
    /// Edits this matrix from now on. Null is `resetMatrix`.
    void setMatrix(LA_Matrix<T>* matrix);
    /// Leaves an empty table.
    void resetMatrix();
    LA_Matrix<T>* getMatrix() const { return mMatrix; }

    void updateTable() override;
    /// Shows the dimensions.
    void updateLines();

    // Each of these makes an edit of a cell change its mirror cell, or the cell itself, in this order.
    /// The mirror cell gets the same value.
    void setSymetric(bool flag) { mIsSymetric = flag; }
    /// The mirror cell gets the negative value.
    void setAntiSymetric(bool flag) { mIsAntiSymetric = flag; }
    /// Off the diagonal the cell becomes 0.
    void setDiagonal(bool flag) { mIsDiagonal = flag; }
    /// The mirror cell gets the conjugate value.
    void setConjugate(bool flag) { mIsConjugate = flag; }

    /// Without dimension boxes there are no labels to change.
    void setXDimensionLabel(const std::string& label);
    void setYDimensionLabel(const std::string& label);
    /// Cells become check boxes: checked for any value but 0, which the user sets to 1 or 0.
    void setCheckedMatrix(bool flag);
    void setCheckedMatrix(bool flag, const std::string& title);
    /// Cells become choices, the value being the index of an entry. An entry's text is the value it gives.
    void setComboBoxMatrix(bool flag);
    void setComboBoxMatrix(bool flag, const std::vector<std::string>& entries);

protected:
    explicit GUI_MatrixPanel(GUI_ParentPanel* parent, bool showDim = true);
    explicit GUI_MatrixPanel(GUI_ParentPanel& parent, bool showDim = true);
    GUI_MatrixPanel(GUI_ParentPanel* parent, LA_Matrix<T>* matrix, bool showDim);
    GUI_MatrixPanel(GUI_ParentPanel& parent, LA_Matrix<T>& matrix, bool showDim);
    ~GUI_MatrixPanel() override;

private:
    void showDimensions() override { updateLines(); }
    void edit(GUI_Table& table) override;
    void setValue(unsigned long row, unsigned long column, const std::string& text);
    void resize() override;

    bool mIsSymetric = false;
    bool mIsConjugate = false;
    bool mIsDiagonal = false;
    bool mIsAntiSymetric = false;
    LA_Matrix<T>* mMatrix = nullptr; ///< Counted; null: none to edit.
};

extern template class GUI_MatrixPanel<double>;
extern template class GUI_MatrixPanel<std::complex<double>>;
extern template class GUI_MatrixPanel<unsigned long>;
