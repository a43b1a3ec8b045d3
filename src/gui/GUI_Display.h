#pragma once
#include "common/COM_Guard.h"

class GUI_ParentPanel;

/// Stands at the head of every function in which a panel shows the model: while it lives, the panel's
/// `componentClicked` is not called.
///
/// Spin boxes and lists send the user's signals when code sets them. Without this, showing a matrix of 3 x 3
/// in a form whose boxes stand at 1 and 1 would cut the matrix as soon as the first box is set.
class GUI_Display
{
public:
    explicit GUI_Display(GUI_ParentPanel& panel);
    ~GUI_Display();
    GUI_Display(const GUI_Display&) = delete;
    GUI_Display& operator=(const GUI_Display&) = delete;

private:
    COM_Guard mGuard;
    GUI_ParentPanel& mPanel;
};
