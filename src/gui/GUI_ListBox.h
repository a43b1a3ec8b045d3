#pragma once
#include "gui/GUI_Widget.h"

#include <QListWidget>

#include <string>

/// A list of texts, of which one may be current. One click of the user is reported several times; adding,
/// removing and sorting are not reported.
class GUI_ListBox : public GUI_Widget<QListWidget>
{
    Q_OBJECT
    COM_CLASS(GUI_ListBox)
public:
    void addToItems(const std::string& text);
    /// Before the item of that index; beyond the end or below 0 at the end.
    void addToItems(const std::string& text, int index);
    /// Outside the list: nothing.
    void removeFromItems(int index);
    /// Empty outside the list.
    std::string getItemText(int index) const;
    /// -1 when no item is current.
    int getCurrentIndex() const { return currentRow(); }
    /// In ascending order.
    void sort();

    /// Makes the item of that index current: beyond the end the last one, below 0 none.
    void setValue(const std::string& value) override;
    /// The index of the current item.
    std::string getValue() const override;

    /// The form beside a list needs the room of its window more: a list is as wide as a short text,
    /// and wider only for names that are longer.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_ListBox(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_ListBox(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_ListBox() override = default;
};
