#include "gui2d/GUI2D_ActionCopyPicture.h"

#include "gui2d/GUI2D_DrawPanel.h"
#include "gui2d/GUI2D_Picture.h"

#include <QClipboard>
#include <QGuiApplication>

GUI2D_ActionCopyPicture::GUI2D_ActionCopyPicture(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Copy the Picture"), "GUI2D_ActionCopyPicture")
{
    COM_TYPE(GUI2D_ActionCopyPicture);
}

void GUI2D_ActionCopyPicture::act(GUI2D_DrawPanel& panel)
{
    QGuiApplication::clipboard()->setImage(GUI2D_Picture::image(panel));
}
