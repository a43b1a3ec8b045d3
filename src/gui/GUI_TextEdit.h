#pragma once
#include "gui/GUI_Widget.h"

#include <QTextEdit>

#include <string>

class QTextCharFormat;

/// A field for a text of many lines, plain or with formats. Every change reports, and the Return key once more.
class GUI_TextEdit : public GUI_Widget<QTextEdit>
{
    Q_OBJECT
    COM_CLASS(GUI_TextEdit)
public:
    /// Shows a text, as HTML if it looks like that, without what could be undone. It counts as unmodified.
    void setValue(const std::string& value) override;
    /// What a file of the text holds. Unchanged since `setValue`, what was given there, to the byte. Else plain
    /// text with the line ends that were given, or HTML where plain text would lose a format or be taken
    /// for HTML.
    std::string getValue() const override;

    /// Changed since it was set, or last told that it is not.
    bool isModified() const;
    void setModified(bool flag);
    /// The format of the first selected character, or of the next one to be typed.
    QTextCharFormat getShownFormat() const;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_TextEdit(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_TextEdit(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_TextEdit() override = default;

    void keyPressEvent(QKeyEvent* event) override;

private:
    void initComponents();

    std::string mValue;      ///< As it was set last.
    bool mIsChanged = false; ///< The text is no longer `mValue`. Saving it leaves this as it is.
};
