#include "gui/GUI_Component.h"

#include "common/COM_Guard.h"
#include "gui/GUI_ParentLayout.h"
#include "gui/GUI_ToolBar.h"

#include <QWidget>

std::string GUI_Component::ICONS_PATH = "icons/";

GUI_Component::GUI_Component(const unsigned char& flag)
    : mFlagId(flag)
{
    COM_TYPE(GUI_Component);
}

void GUI_Component::setLayout(GUI_ParentLayout& layout)
{
    if (mLayout == &layout) {
        return;
    }
    const COM_Guard guard(*this);
    resetLayout();
    associate(mLayout, &layout);
    layout.addToComponents(*this);
}

void GUI_Component::setLayout(GUI_ParentLayout* layout)
{
    if (layout != nullptr) {
        setLayout(*layout);
    } else {
        resetLayout();
    }
}

void GUI_Component::resetLayout()
{
    if (mLayout == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentLayout* const layout = mLayout;
    mLayout = nullptr;
    layout->removeFromComponents(*this);
    layout->subReference(this);
}

void GUI_Component::setTool(GUI_ToolBar& tool)
{
    if (mTool == &tool) {
        return;
    }
    const COM_Guard guard(*this);
    resetTool();
    associate(mTool, &tool);
    tool.addToComponents(*this);
    if (tool.getComponent(mFlagId) != this) {
        dissociate(mTool);
    }
}

void GUI_Component::setTool(GUI_ToolBar* tool)
{
    if (tool != nullptr) {
        setTool(*tool);
    } else {
        resetTool();
    }
}

void GUI_Component::resetTool()
{
    if (mTool == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ToolBar* const tool = mTool;
    mTool = nullptr;
    tool->removeFromComponents(*this);
    tool->subReference(this);
}

QWidget* GUI_Component::qtWidget()
{
    return dynamic_cast<QWidget*>(this);
}
