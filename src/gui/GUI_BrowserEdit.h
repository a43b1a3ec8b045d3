#pragma once
#include "gui/GUI_Widget.h"

#include <QTextBrowser>

#include <string>

/// The page of a browser window: HTML, Markdown or plain text, with its links.
///
/// Pages are files. A page that cannot be read leaves the present one, and the status bar of the window names it.
/// Links to anything else open in the programs of the user's desktop. Each change of the page is reported when it
/// is complete, and so is the Return key.
class GUI_BrowserEdit : public GUI_Widget<QTextBrowser>
{
    Q_OBJECT
    COM_CLASS(GUI_BrowserEdit)
public:
    /// Where images and style sheets are looked for that do not lie beside their page.
    void setPath(const std::string& path);
    /// Shows a page, also at one of its anchors ("page.html#units"). A relative name is looked for beside the
    /// present page; one with a "/" that is not there is taken from the working directory. False: the page stays.
    bool setFileName(const std::string& fileName) { return setFile(fileName); }
    bool setFile(const std::string& fileName);
    /// The path of the page, without its anchor; empty before the first one.
    std::string getContext() const;
    void setTooltip(const std::string& text) { setTooltipText(text); }
    void setEnabled(bool flag) override { GUI_Widget::setEnabled(flag); }

    /// Shows a text, HTML or plain, that belongs to no page.
    void setValue(const std::string& value) override;
    /// What is there to read, without its formats.
    std::string getValue() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }
    // Enable the window's action that goes there.
    void setBackwardAvailable(bool flag);
    void setForwardAvailable(bool flag);

protected:
    explicit GUI_BrowserEdit(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_BrowserEdit(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_BrowserEdit() override = default;

    void keyPressEvent(QKeyEvent* event) override;
    QVariant loadResource(int type, const QUrl& name) override;

private:
    void initComponents();
    /// Shows the page of a link, or hands the link to the desktop.
    bool follow(const QUrl& link);
    /// The address that a typed or chosen name stands for.
    QUrl addressOf(const QString& name) const;
    /// Where a page of that name is, or would be.
    QString pathOf(const QString& name) const;
    /// Shows the text in the status bar of the window; empty clears it.
    void tell(const std::string& text) const;
    GUI_ParentWindow* findWindow() const;
};
