#include "gui/GUI_ListBox.h"

#include "common/COM_Integer.h"

#include <QSignalBlocker>

#include <algorithm>

GUI_ListBox::GUI_ListBox(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_ListBox);
    connect(this, &QListWidget::itemActivated, this, &GUI_ListBox::toDo);
    connect(this, &QListWidget::itemSelectionChanged, this, &GUI_ListBox::toDo);
    connect(this, &QListWidget::currentItemChanged, this, &GUI_ListBox::toDo);
    connect(this, &QListWidget::itemClicked, this, &GUI_ListBox::toDo);
    connect(this, &QListWidget::itemDoubleClicked, this, &GUI_ListBox::toDo);
    connect(this, &QListWidget::itemPressed, this, &GUI_ListBox::toDo);
}

GUI_ListBox::GUI_ListBox(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_ListBox(&panel, flag)
{}

void GUI_ListBox::addToItems(const std::string& text)
{
    addToItems(text, -1);
}

void GUI_ListBox::addToItems(const std::string& text, int index)
{
    const QSignalBlocker blocker(this);
    insertItem(index < 0 ? count() : index, toQString(text));
    updateGeometry();
}

void GUI_ListBox::removeFromItems(int index)
{
    const QSignalBlocker blocker(this);
    delete takeItem(index);
    updateGeometry();
}

std::string GUI_ListBox::getItemText(int index) const
{
    const QListWidgetItem* const text = item(index);
    return text != nullptr ? toTString(text->text()) : std::string();
}

void GUI_ListBox::sort()
{
    const QSignalBlocker blocker(this);
    sortItems(Qt::AscendingOrder);
}

void GUI_ListBox::setValue(const std::string& value)
{
    const long index = std::min<long>(COM_Integer::parseInt(value), count() - 1);
    setCurrentRow(static_cast<int>(std::max(index, -1L)));
}

std::string GUI_ListBox::getValue() const
{
    return COM_Integer::toString(currentRow());
}

QSize GUI_ListBox::sizeHint() const
{
    constexpr int characters = 24;
    constexpr int mostCharacters = 40;
    constexpr int sample = 8; // of a long list: its names are numbered, hence alike
    const int unit = fontMetrics().averageCharWidth();
    int width = characters * unit;
    for (int row = 0; row < std::min(count(), sample); ++row) {
        const int text = sizeHintForIndex(indexFromItem(item(row))).width();
        width = std::max(width, text + 2 * frameWidth());
    }
    return {std::min(width, mostCharacters * unit), QListWidget::sizeHint().height()};
}

QSize GUI_ListBox::minimumSizeHint() const
{
    constexpr int characters = 16;
    return {characters * fontMetrics().averageCharWidth(), QListWidget::minimumSizeHint().height()};
}
