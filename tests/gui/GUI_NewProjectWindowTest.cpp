#include "gui/GUI_NewProjectWindow.h"

#include "gui/GUI_NewProjectPanel.h"
#include "support/ProjectRoot.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

std::vector<GUI_NewProjectWindow*> formsOf(const ProjectRoot& root)
{
    return root.children<GUI_NewProjectWindow>();
}

} // namespace

TEST(GUI_NewProjectWindow, ItsCaptionTellsThePurpose)
{
    const ProjectRoot root;
    GUI_NewProjectWindow::open(*root, false);
    ASSERT_EQ(formsOf(root).size(), 1U);
    EXPECT_EQ(formsOf(root)[0]->getName(), "Create a New Project");
    EXPECT_FALSE(formsOf(root)[0]->isSavingAs());
    root->closeChildrenWindow();

    GUI_NewProjectWindow::open(*root, true);
    ASSERT_EQ(formsOf(root).size(), 1U);
    EXPECT_EQ(formsOf(root)[0]->getName(), "Save As Project");
    EXPECT_TRUE(formsOf(root)[0]->isSavingAs());
}

TEST(GUI_NewProjectWindow, ItsCaptionIsTranslated)
{
    const ProjectRoot root;
    GUI_Object::setLang(1);
    GUI_NewProjectWindow::open(*root, false);
    GUI_NewProjectWindow::open(*root, true);
    ASSERT_EQ(formsOf(root).size(), 2U);
    const std::string create = GUI_Object::translate("Create a New Project");
    const std::string saveAs = GUI_Object::translate("Save As Project");
    EXPECT_NE(create, "Create a New Project");
    EXPECT_NE(saveAs, "Save As Project");
    EXPECT_EQ(formsOf(root)[0]->getName(), create);
    EXPECT_EQ(formsOf(root)[1]->getName(), saveAs);
}

TEST(GUI_NewProjectWindow, ItsParentAloneHoldsIt)
{
    const ProjectRoot root;
    const long count = root->getReferenceCount();
    GUI_NewProjectWindow::open(*root, false);
    GUI_NewProjectWindow& form = *formsOf(root).at(0);
    EXPECT_EQ(form.getReferenceCount(), 2); // the map of its parent, and its panel
    EXPECT_NE(dynamic_cast<GUI_NewProjectPanel*>(form.getPanel()), nullptr);
    EXPECT_EQ(root->getReferenceCount(), count + 1);
    EXPECT_TRUE(form.isVisible());
    form.close(false);
    EXPECT_EQ(root->getReferenceCount(), count);
}

TEST(GUI_NewProjectWindow, AnOpenFormOfTheSamePurposeComesToTheFront)
{
    const ProjectRoot root;
    GUI_NewProjectWindow::open(*root, false);
    GUI_NewProjectWindow* const first = formsOf(root).at(0);
    first->showMinimized();
    GUI_NewProjectWindow::open(*root, false);
    EXPECT_EQ(formsOf(root), std::vector<GUI_NewProjectWindow*>{first});
    EXPECT_FALSE(first->isMinimized());
    EXPECT_TRUE(first->isVisible());
    GUI_NewProjectWindow::open(*root, true);
    EXPECT_EQ(formsOf(root).size(), 2U);
}

TEST(GUI_NewProjectWindow, ShowsItsFieldsWhole)
{
    const ProjectRoot root;
    GUI_NewProjectWindow::open(*root, false);
    const GUI_NewProjectWindow& form = *formsOf(root).at(0);
    EXPECT_GE(form.width(), 520);
    EXPECT_GE(form.height(), form.minimumSizeHint().height());
}
