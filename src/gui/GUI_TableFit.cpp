#include "gui/GUI_TableFit.h"

#include "gui/GUI_ParentWindow.h"
#include "gui/GUI_Table.h"

#include <QFontMetricsF>
#include <QHeaderView>
#include <QLayout>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <cmath>

void GUI_TableFit::fitColumn(GUI_Table& table, int column, const std::string& longest)
{
    // Among texts of one length, plus signs are the widest of the characters that vary.
    const QString text = GUI_Table::toQString(longest).replace('-', '+');
    const int margin =
        table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1;
    const int grid = 1;
    // A text that lacks a fraction of a pixel is cut by a whole character.
    const int advance =
        static_cast<int>(std::ceil(QFontMetricsF(table.font()).horizontalAdvance(text))) + 1;
    const int width =
        std::max(advance + 2 * margin + grid, table.horizontalHeader()->sectionSizeHint(column));
    if (table.columnWidth(column) < width) {
        table.setColumnWidth(column, width);
    }
}

QSize GUI_TableFit::wholeSize(const GUI_Table& table, int rows, int columns)
{
    const int frame = 2 * table.frameWidth();
    const int scrollBar = table.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &table);
    int width = frame + table.verticalHeader()->sizeHint().width();
    for (int column = 0; column < std::min(columns, table.columnCount()); ++column) {
        width += table.columnWidth(column);
    }
    int height = frame + table.horizontalHeader()->sizeHint().height();
    for (int row = 0; row < std::min(rows, table.rowCount()); ++row) {
        height += table.rowHeight(row);
    }
    return {width + (table.rowCount() > rows ? scrollBar : 0),
            height + (table.columnCount() > columns ? scrollBar : 0)};
}

void GUI_TableFit::fitWindow(GUI_ParentWindow& window, const GUI_Table& table, int rows,
                             int columns)
{
    QMargins around;
    for (const QWidget* whole = table.parentWidget(); whole != nullptr;
         whole = whole->parentWidget()) {
        around += whole->contentsMargins();
        if (!whole->isWindow() && whole->layout() != nullptr) {
            around += whole->layout()->contentsMargins();
        }
    }
    const int above = window.sizeHint().height() - table.sizeHint().height();
    const QSize inside = wholeSize(table, rows, columns);
    setSize(window, {inside.width() + around.left() + around.right(), inside.height() + above});
}

void GUI_TableFit::setSize(GUI_ParentWindow& window, const QSize& size)
{
    constexpr int narrowest = 320; // room for a caption beside the buttons of the frame
    const QSize fitting = size.expandedTo(window.minimumSizeHint())
                              .expandedTo({narrowest, 0})
                              .boundedTo(window.screen()->availableSize());
    window.setSize(fitting.width(), fitting.height());
}
