#include "gui/GUI_RichTextPrinter.h"

#include "common/COM_Guard.h"
#include "gui/GUI_Dialog.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_ParentWindow.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

void GUI_RichTextPrinter::print(const QTextDocument& text, GUI_ParentWindow& parent)
{
    // The window may close while the dialog waits.
    const GUI_EventScope scope;
    const COM_Guard guard(parent);
    QPrinter printer(QPrinter::ScreenResolution);
    QPrintDialog dialog(&printer, &parent);
    if (GUI_Dialog::run(dialog) == QDialog::Accepted) {
        print(text, printer);
    }
}

void GUI_RichTextPrinter::print(const QTextDocument& text, QPagedPaintDevice& printer)
{
    // The margins are the text's own: with those of the paper as well they would be twice as wide.
    QPageLayout layout = printer.pageLayout();
    layout.setMode(QPageLayout::FullPageMode);
    printer.setPageLayout(layout);
    text.print(&printer);
}
