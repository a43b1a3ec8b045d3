#pragma once
#include "gui/GUI_FramePanel.h"

#include <functional>
#include <optional>
#include <span>
#include <string>

class GUI_ActionComponent;
class GUI_ChildWindow;
class GUI_GridLayout;
class GUI_HBoxLayout;
class GUI_ParentWindow;
class QV_1DMaxwell;
class QV_1DMilieu;
class QV_1DProblem;
class QV_IncidentFields;

/// A form of the data window: a title and rows of label, field and unit, built from a table.
///
/// A field writes into the problem as soon as it changes, and the form then reads all its values again, so
/// that it always shows what was accepted. It keeps no value of its own. While a link on the way to the
/// problem is missing, it does nothing.
class QVG_FormPanel : public GUI_FramePanel
{
public:
    /// Shows the problem's values, and lets the data window bring its derived quantities up to date.
    void updateValues() override;
    /// Writes the component's value and shows the problem again.
    void componentClicked(GUI_ActionComponent& component) override;

    /// Width in pixels of the widest label; 0 for a form without rows.
    int getLabelsWidth() const;
    /// Lets the fields of several forms stand in one column.
    void setLabelsWidth(int width);

    /// As wide as the fields of all forms: for a number with sign and three digits of exponent.
    static int fieldWidth(const QWidget& widget);
    // Text that shows what is stored was not typed. Written back, its seven digits would replace those of
    // the problem, so there is nothing then.
    static std::optional<double> typed(const GUI_ActionComponent& component, double stored);
    static std::optional<long> typed(const GUI_ActionComponent& component, long stored);
    /// Hands what was typed to `store`.
    template <typename Stored, typename Store>
    static void take(const GUI_ActionComponent& component, Stored stored, Store store)
    {
        if (const auto value = typed(component, stored)) {
            store(*value);
        }
    }

protected:
    enum Kind { LINE_EDIT, SPIN_BOX, COMBO_BOX, BUTTON };

    /// A row of a form. All texts but the unit are keys of the dictionary.
    struct Row
    {
        Kind mKind;
        unsigned char mFlag;
        const char* mLabel;
        const char* mUnit = ""; ///< Shown behind the field as it stands.
        const char* mBefore = "";
        const char* mAfter = ""; ///< Before and behind the translated label, as they stand.
        int mMinimum = 0;
        int mMaximum = 0;                         ///< Of a spin box.
        std::span<const char* const> mItems = {}; ///< Of a combo box, in the order of their values.
    };

    /// The parts of the problem that the forms edit. True when all of them are there.
    struct Model
    {
        QV_1DProblem* mProblem = nullptr;
        QV_1DMilieu* mMilieu = nullptr;
        QV_1DMaxwell* mMaxwell = nullptr;
        QV_IncidentFields* mFields = nullptr;
        explicit operator bool() const { return mFields != nullptr && mMilieu != nullptr; }
    };

    explicit QVG_FormPanel(GUI_ParentPanel& parent);
    ~QVG_FormPanel() override = default;

    /// Titles the form and builds its rows. `addAbove`, if there is one, fills the row above them.
    void build(const std::string& title, std::span<const Row> rows,
               const std::function<void(GUI_HBoxLayout&)>& addAbove = {});
    /// Shows each value, and which fields can be used.
    virtual void showModel(const Model& model) = 0;
    /// Writes the value of a component, or does what a button stands for.
    virtual void editModel(GUI_ActionComponent& component, const Model& model) = 0;

    void show(unsigned char flag, double value);
    void show(unsigned char flag, long value);

    /// Lets the whole window show the problem again.
    void updateWindow();
    /// `GUI_ParentWindow::openForm` of the form's window.
    void showDetail(unsigned long& id,
                    const std::function<GUI_ChildWindow*(GUI_ParentWindow&)>& make);

private:
    void addRow(GUI_GridLayout& grid, int number, const Row& row);
    GUI_ActionComponent* newField(const Row& row);
    Model findModel();

    /// Of the rows; borrowed from the main layout, null before `build`.
    GUI_GridLayout* mGrid = nullptr;
};
