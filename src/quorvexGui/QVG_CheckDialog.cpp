#include "quorvexGui/QVG_CheckDialog.h"

#include "gui/GUI_Dialog.h"
#include "gui/GUI_ParentWindow.h"
#include "quorvexGui/QVG_CheckView.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int width = 620;
constexpr int height = 320;

QString textOf(const char* key)
{
    return GUI_Object::toQString(GUI_Object::translate(key));
}

} // namespace

bool QVG_CheckDialog::ask(GUI_ParentWindow& parent,
                          const std::vector<QV_ProblemCheck::Finding>& findings)
{
    QDialog dialog(GUI_Dialog::parent(&parent));
    dialog.setWindowTitle(textOf("Check of the Problem"));
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QVG_CheckView(findings, &dialog));
    auto* const buttons = new QDialogButtonBox(&dialog);
    QPushButton* refusal = nullptr;
    if (QV_ProblemCheck::has(findings, QV_ProblemCheck::STOPS)) {
        refusal = buttons->addButton(QDialogButtonBox::Close);
        refusal->setText(textOf("Close"));
    } else {
        layout->addWidget(new QLabel(textOf("Run all the same ?"), &dialog));
        buttons->addButton(QDialogButtonBox::Yes)->setText(textOf("Yes"));
        refusal = buttons->addButton(QDialogButtonBox::No);
        refusal->setText(textOf("No"));
    }
    refusal->setDefault(true);
    refusal->setFocus();
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    dialog.resize(width, height);
    return GUI_Dialog::run(dialog) == QDialog::Accepted;
}
