#include "gui/GUI_NewProjectPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_File.h"
#include "gui/GUI_GridLayout.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_NewProjectWindow.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_UnknownAction.h"

#include <QDir>
#include <QShortcut>

GUI_NewProjectPanel::GUI_NewProjectPanel(GUI_NewProjectWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI_NewProjectPanel);
    initComponents();
    GUI_NewProjectPanel::updateValues();
}

void GUI_NewProjectPanel::initComponents()
{
    const COM_Scoped layout(
        GUI_RootGridLayout::New(*this, 3, 1, GUI_ParentLayout::MARGIN, GUI_ParentLayout::SPACING));
    const COM_Scoped fields(GUI_GridLayout::New(2, 3));
    const COM_Scoped buttons(GUI_HBoxLayout::New());
    layout->addToChildren(*fields, 0, 0);
    layout->addToChildren(*buttons, 2, 0);
    layout->setRowStretch(1, 1);

    const COM_Scoped ok(GUI_Button::New(*this, COMPO_OK));
    const auto addField = [this, &fields, &ok](int row, const std::string& text,
                                               unsigned char flag) {
        const COM_Scoped field(GUI_LineEdit::New(*this, flag));
        fields->addLabel(*this, row, text, *field);
        field->setValue("");
        field->setTooltipText(text);
        fields->addToComponents(*field, row, 1);
        connect(field.get(), &QLineEdit::returnPressed, ok.get(), &QPushButton::click);
        return field.get();
    };
    mName = addField(0, translate("Project Name"), COMPO_NAME);
    mDirectory = addField(1, translate("Project Directory"), COMPO_DIRECTORY);

    const COM_Scoped browse(GUI_Button::New(*this, COMPO_BROWSE));
    browse->setLabel(translate("Browse"));
    fields->addToComponents(*browse, 1, 2);

    const COM_Scoped cancel(GUI_Button::New(*this, COMPO_CANCEL));
    ok->setLabel(translate("OK"));
    ok->setDefault(true);
    cancel->setLabel(translate("Cancel"));
    buttons->addSpacer(0);
    buttons->addToComponents(*ok);
    buttons->addToComponents(*cancel);
    new QShortcut(QKeySequence(Qt::Key_Escape), this, [this] {
        const GUI_EventScope scope;
        this->cancel();
    });

    setTabOrder(browse.get(), ok.get());
    getWindow()->setFocusProxy(mName);
}

GUI_NewProjectWindow* GUI_NewProjectPanel::form() const
{
    return dynamic_cast<GUI_NewProjectWindow*>(getWindow());
}

void GUI_NewProjectPanel::updateValues()
{
    const GUI_Display display(*this);
    GUI_NewProjectWindow* const window = form();
    GUI_ParentWindow* const parent = window == nullptr ? nullptr : window->getParent();
    if (parent != nullptr && mDirectory != nullptr) {
        mDirectory->setValue(parent->getSavingPath());
    }
    GUI_RootPanel::updateValues();
}

void GUI_NewProjectPanel::componentClicked(GUI_ActionComponent& component)
{
    switch (component.getFlagId()) {
    case COMPO_NAME:
    case COMPO_DIRECTORY:
        // Read when "OK" is clicked.
        break;
    case COMPO_BROWSE:
        browse();
        break;
    case COMPO_OK:
        accept();
        break;
    case COMPO_CANCEL:
        cancel();
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void GUI_NewProjectPanel::browse()
{
    if (mDirectory == nullptr) {
        return;
    }
    const std::string path = GUI_File::selectPath(getWindow(), mDirectory->getValue(),
                                                  translate("Choose the Project Directory"),
                                                  translate("Project Directory"));
    if (!path.empty() && mDirectory != nullptr) {
        mDirectory->setValue(path);
    }
}

void GUI_NewProjectPanel::accept()
{
    GUI_NewProjectWindow* const window = form();
    GUI_RootWindow* const root = window == nullptr ? nullptr : window->getRoot();
    if (root == nullptr || mName == nullptr || mDirectory == nullptr) {
        return;
    }
    const std::string parent = mDirectory->getValue();
    const std::string separator(1, QDir::separator().toLatin1());
    const std::string directory =
        (parent.empty() ? "./" : parent) + separator + mName->getValue() + separator;
    if (!QDir().mkdir(toQString(directory))) {
        GUI_Message::printInformation(translate("Warning"),
                                      translate("The Project already exists") + "!\n"
                                          + translate("Choose another project name"));
        return;
    }
    // Making a project closes the windows of the former one.
    const COM_Guard guard(*window);
    if (window->isSavingAs()) {
        root->saveAs(directory, "project.dpj");
    } else {
        root->createFile(directory, "project.dpj");
    }
    window->close(false);
}

void GUI_NewProjectPanel::cancel()
{
    if (GUI_ParentWindow* const window = getWindow()) {
        window->close(false);
    }
}
