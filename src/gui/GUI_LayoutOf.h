#pragma once
#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_ChildLayout.h"
#include "gui/GUI_Component.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_ParentPanel.h"

#include <QGridLayout>
#include <QSpacerItem>
#include <QWidget>

#include <algorithm>
#include <string>
#include <type_traits>

/// What all concrete layouts share: `QtLayout` (a box or a grid) arranges what `Layout`, the root or the
/// child layout of the framework, owns.
///
/// In a grid each form with `row` and `column` puts its item into that cell; the forms without put it
/// beyond the bottom right corner, so that a run of them goes down a diagonal.
template <typename QtLayout, typename Layout>
class GUI_LayoutOf : public QtLayout, public Layout
{
    static constexpr bool IS_GRID = std::is_base_of_v<QGridLayout, QtLayout>;

public:
    using Layout::addPanel;
    using Layout::addToComponents;
    using Layout::removeFromComponents;

    bool addToComponents(GUI_Component& component) override
    {
        return Layout::addToComponents(component) && arrange(component.qtWidget());
    }
    bool addToComponents(GUI_Component& component, int row, int column) requires IS_GRID
    {
        return Layout::addToComponents(component) && arrange(component.qtWidget(), row, column);
    }
    void removeFromComponents(GUI_Component& component) override
    {
        const COM_Guard guard(component);
        Layout::removeFromComponents(component);
        if (QWidget* const widget = component.qtWidget()) {
            QtLayout::removeWidget(widget);
        }
    }

    bool addPanel(GUI_ParentPanel& panel) override { return arrange(panel.qtWidget()); }
    bool addPanel(GUI_ParentPanel& panel, int row, int column) requires IS_GRID
    {
        return arrange(panel.qtWidget(), row, column);
    }

    bool addToChildren(GUI_ChildLayout& child) override
    {
        return Layout::addToChildren(child) && arrange(child.qtLayout());
    }
    bool addToChildren(GUI_ChildLayout& child, int row, int column) requires IS_GRID
    {
        return Layout::addToChildren(child) && arrange(child.qtLayout(), row, column);
    }
    void removeFromChildren(GUI_ChildLayout& child) override
    {
        const COM_Guard guard(child);
        Layout::removeFromChildren(child);
        QLayout* const layout = child.qtLayout();
        if (layout != nullptr && layout->parent() == this) {
            QtLayout::removeItem(layout);
            layout->QObject::setParent(nullptr);
        }
    }

    /// Puts a label of the panel into the first column of a row. The letter that it marks goes to `buddy`.
    void addLabel(GUI_ParentPanel& panel, int row, const std::string& text,
                  QWidget& buddy) requires IS_GRID
    {
        const COM_Scoped label(GUI_Label::New(panel, GUI_Label::NO_FIELD));
        label->setLabel(text);
        label->setBuddy(&buddy);
        addToComponents(*label, row, 0);
    }

    /// Space that grows sideways, `size` pixels high.
    void addSpacer(int size) requires(!IS_GRID) { QtLayout::addItem(newSpacer(0, size)); }
    /// Space that grows sideways, at least `width` by `height` pixels.
    void addSpacer(int width, int height, int row, int column) requires IS_GRID
    {
        QtLayout::addItem(newSpacer(width, height), row, column);
    }

protected:
    GUI_LayoutOf() = default;
    /// A layout of `rows` by `columns` empty cells; numbers below 1 count as 1.
    GUI_LayoutOf(int rows, int columns) requires IS_GRID
    {
        // A grid has no size of its own: naming the last cell makes it grow that far.
        QtLayout::setRowStretch(std::max(rows, 1) - 1, 0);
        QtLayout::setColumnStretch(std::max(columns, 1) - 1, 0);
    }
    ~GUI_LayoutOf() override { GUI_Grave::emptyLayout(*this); }

    /// Installs this layout on the panel's widget, if it has one, with the same margin on all sides, and as
    /// the panel's main layout.
    void install(GUI_ParentPanel& panel, int margin)
    {
        if (QWidget* const widget = panel.qtWidget()) {
            widget->setLayout(this);
        }
        QtLayout::setContentsMargins(margin, margin, margin, margin);
        Layout::setPanel(panel);
    }

private:
    static QSpacerItem* newSpacer(int width, int height)
    {
        return new QSpacerItem(width, height, QSizePolicy::Expanding, QSizePolicy::Minimum);
    }

    /// Puts a widget or a layout, which may be null, at the end or into a cell. Always true.
    template <typename Item, typename... Cell>
    bool arrange(Item* item, Cell... cell)
    {
        if (item == nullptr) {
            return true;
        }
        if constexpr (IS_GRID && sizeof...(Cell) == 0) {
            return arrange(item, QtLayout::rowCount(), QtLayout::columnCount());
        } else if constexpr (std::is_base_of_v<QLayout, Item>) {
            QtLayout::addLayout(item, cell...);
        } else {
            QtLayout::addWidget(item, cell...);
        }
        return true;
    }
};
