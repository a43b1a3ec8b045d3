#pragma once
#include <QWidget>

#include <algorithm>
#include <vector>

/// Those of the widgets that the keyboard reaches, in the order in which Tab goes from `first` on. Inside a table
/// Tab goes from cell to cell.
inline std::vector<const QWidget*> focusOrder(QWidget& first,
                                              const std::vector<const QWidget*>& widgets)
{
    std::vector<const QWidget*> order;
    QWidget* widget = &first;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0
            && std::find(widgets.begin(), widgets.end(), widget) != widgets.end()) {
            order.push_back(widget);
        }
        widget = widget->nextInFocusChain();
    } while (widget != &first);
    return order;
}
