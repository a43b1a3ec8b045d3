#include "gui/GUI_UnknownAction.h"

#include "gui/GUI_ActionComponent.h"

#include <iostream>

void GUI_UnknownAction::print(const GUI_ActionComponent& component)
{
    std::cout << "action unknown !" << static_cast<unsigned>(component.getFlagId()) << "\n";
}
