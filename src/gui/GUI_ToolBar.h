#pragma once
#include "common/COM_Map.h"
#include "gui/GUI_Object.h"

#include <QToolBar>

#include <map>
#include <string>

class GUI_Action;
class GUI_ActionComponent;
class GUI_Component;
class GUI_MenuPanel;
class GUI_ParentWindow;

/// A bar of tools at the top of a window. It counts its components, which count it in turn.
class GUI_ToolBar : public QToolBar, public GUI_Object
{
    COM_CLASS(GUI_ToolBar)
public:
    /// Shows a button for the action. The bar does not count it; the button goes with the action.
    void addTool(GUI_Action& action);

    // Two-way link with GUI_Component::setTool. Of two components with one flag the first stays.
    void addToComponents(GUI_Component& component);
    void removeFromComponents(GUI_Component& component);
    void resetComponents();
    /// The component that had that flag when it was added, or null.
    GUI_Component* getComponent(unsigned char flag) const;

    // Two-way link with GUI_MenuPanel::addToToolBars.
    void setMenu(GUI_MenuPanel& menu);
    void resetMenu();
    GUI_MenuPanel* getMenu() const { return mMenu; }

    /// The label.
    std::string getName() const;
    /// Tells the menu panel.
    void componentClicked(GUI_ActionComponent& component);

protected:
    /// A null window leaves the bar undocked until its menu panel has one.
    GUI_ToolBar(GUI_ParentWindow* window, const std::string& name);
    GUI_ToolBar(GUI_ParentWindow& window, const std::string& name);
    ~GUI_ToolBar() override;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;
    bool close(bool flag);

private:
    COM_Map<unsigned char, GUI_Component>* mComponents; ///< By flag. Counted, never null.
    GUI_MenuPanel* mMenu = nullptr;                     ///< Counted back reference.
    std::map<const GUI_Component*, QAction*> mPlaces;   ///< Where each widget stands. Owned by Qt.
};
