#pragma once
#include <QSize>

#include <string>

class GUI_ParentWindow;
class GUI_Table;

/// Sizes of a table of numbers: no number is cut off, and a window opens with the whole of a small table.
class GUI_TableFit
{
public:
    /// Makes a column wide enough for its title and for every number with as many characters as `longest`
    /// or fewer. A wider column stays as it is.
    static void fitColumn(GUI_Table& table, int column, const std::string& longest);

    /// The size at which the table shows its first `rows` rows and `columns` columns whole, with room for
    /// scroll bars if it has more.
    static QSize wholeSize(const GUI_Table& table, int rows, int columns);

    /// Gives a window that holds the table the size at which so much of the table is whole, by `setSize`.
    static void fitWindow(GUI_ParentWindow& window, const GUI_Table& table, int rows, int columns);

    /// Gives the window this size, or the larger one that its contents and its caption need; at most that of
    /// the screen.
    static void setSize(GUI_ParentWindow& window, const QSize& size);
};
