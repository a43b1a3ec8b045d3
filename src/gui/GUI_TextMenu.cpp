#include "gui/GUI_TextMenu.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ActionExit.h"
#include "gui/GUI_ActionTextBold.h"
#include "gui/GUI_ActionTextCenterAlign.h"
#include "gui/GUI_ActionTextCopy.h"
#include "gui/GUI_ActionTextCut.h"
#include "gui/GUI_ActionTextItalic.h"
#include "gui/GUI_ActionTextLeftAlign.h"
#include "gui/GUI_ActionTextLoad.h"
#include "gui/GUI_ActionTextNew.h"
#include "gui/GUI_ActionTextPaste.h"
#include "gui/GUI_ActionTextPrint.h"
#include "gui/GUI_ActionTextRedo.h"
#include "gui/GUI_ActionTextRightAlign.h"
#include "gui/GUI_ActionTextSave.h"
#include "gui/GUI_ActionTextSaveAs.h"
#include "gui/GUI_ActionTextUnderline.h"
#include "gui/GUI_ActionTextUndo.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_TextEdit.h"
#include "gui/GUI_TextWindow.h"

#include <QSignalBlocker>

namespace {

constexpr GUI_TextMenu::Format alignments[] = {GUI_TextMenu::LEFT_ALIGN, GUI_TextMenu::RIGHT_ALIGN,
                                               GUI_TextMenu::CENTER_ALIGN};

} // namespace

GUI_TextMenu::GUI_TextMenu(GUI_ParentWindow& window, bool isLoadFileShown)
    : GUI_MenuPanel(window)
{
    COM_TYPE(GUI_TextMenu);
    createFileMenu(isLoadFileShown);
    createEditMenu();
    createFormatMenu();
    resolveAccelerators();
    GUI_TextMenu::updateStateMenus();
}

GUI_TextMenu::GUI_TextMenu(GUI_ParentWindow* window, bool isLoadFileShown)
    : GUI_TextMenu(*window, isLoadFileShown)
{}

void GUI_TextMenu::createFileMenu(bool isLoadFileShown)
{
    mFileName = translate("&File");
    const COM_Scoped menu(GUI_RootMenu::New(*this, mFileName));
    if (isLoadFileShown && isEditable()) {
        addTool(*menu, GUI_ActionTextNew::New(getWindow()));
        addTool(*menu, GUI_ActionTextLoad::New(getWindow()));
    }
    addTool(*menu, GUI_ActionTextSave::New(getWindow()));
    if (isLoadFileShown) {
        add(*menu, GUI_ActionTextSaveAs::New(getWindow()));
    }
    addTool(*menu, GUI_ActionTextPrint::New(getWindow()));
    if (isEditable()) {
        add(*menu, GUI_ActionExit::New(getWindow()));
    }
}

void GUI_TextMenu::createEditMenu()
{
    const COM_Scoped menu(GUI_RootMenu::New(*this, translate("&Edit")));
    addTool(*menu, GUI_ActionTextUndo::New(getWindow()));
    addTool(*menu, GUI_ActionTextRedo::New(getWindow()));
    addTool(*menu, GUI_ActionTextCopy::New(getWindow()));
    addTool(*menu, GUI_ActionTextCut::New(getWindow()));
    addTool(*menu, GUI_ActionTextPaste::New(getWindow()));
}

void GUI_TextMenu::createFormatMenu()
{
    mFormatName = translate("&Format");
    const COM_Scoped menu(GUI_RootMenu::New(*this, mFormatName));
    addTool(*menu, GUI_ActionTextUnderline::New(getWindow()));
    addTool(*menu, GUI_ActionTextItalic::New(getWindow()));
    addTool(*menu, GUI_ActionTextBold::New(getWindow()));
    addTool(*menu, GUI_ActionTextLeftAlign::New(getWindow()));
    addTool(*menu, GUI_ActionTextRightAlign::New(getWindow()));
    addTool(*menu, GUI_ActionTextCenterAlign::New(getWindow()));
}

bool GUI_TextMenu::isEditable() const
{
    const auto* const window = dynamic_cast<const GUI_TextWindow*>(getWindow());
    return window != nullptr && window->isEditable();
}

void GUI_TextMenu::updateStateMenus()
{
    if (!isEditable()) {
        return;
    }
    if (const GUI_RootMenu* const file = getMenu(mFileName)) {
        for (const int index : {2, 3, 4}) {
            if (GUI_Action* const action = file->getAction(index)) {
                action->setEnabled(true);
            }
        }
    }
    for (const Format format : alignments) {
        if (!isOn(format)) {
            continue;
        }
        for (const Format other : alignments) {
            mark(other, other == format);
        }
    }
}

bool GUI_TextMenu::isOn(Format format) const
{
    const GUI_Action* const action = getFormatAction(format);
    return action != nullptr && action->isChecked();
}

void GUI_TextMenu::showFormats(const GUI_TextEdit& text) const
{
    const QTextCharFormat format = text.getShownFormat();
    mark(UNDERLINE, format.fontUnderline());
    mark(ITALIC, format.fontItalic());
    mark(BOLD, format.fontWeight() > QFont::Medium);
    const Qt::Alignment alignment = text.alignment();
    mark(LEFT_ALIGN, alignment.testFlag(Qt::AlignLeft));
    mark(RIGHT_ALIGN, alignment.testFlag(Qt::AlignRight));
    mark(CENTER_ALIGN, alignment.testFlag(Qt::AlignHCenter));
}

GUI_Action* GUI_TextMenu::getFormatAction(Format format) const
{
    const GUI_RootMenu* const menu = getMenu(mFormatName);
    return menu == nullptr ? nullptr : menu->getAction(format);
}

void GUI_TextMenu::mark(Format format, bool isChecked) const
{
    if (GUI_Action* const action = getFormatAction(format)) {
        const QSignalBlocker blocker(*action);
        action->setChecked(isChecked);
    }
}
