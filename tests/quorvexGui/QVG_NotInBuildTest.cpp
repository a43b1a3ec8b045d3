#include "quorvexGui/QVG_NotInBuild.h"

#include "gui/GUI_Action.h"
#include "quorvexGui/TestMainWindow.h"
#include "support/DialogAnswers.h"

#include <QMessageBox>

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Place
{
    QVG_MainMenu::Menu mMenu;
    int mIndex;
    const char* mName;
};

void PrintTo(const Place& place, std::ostream* out)
{
    *out << place.mName;
}

class QVG_NotInBuildActionTest : public testing::TestWithParam<Place>
{};

} // namespace

TEST_P(QVG_NotInBuildActionTest, TheActionSaysThatItsWindowIsNotInThisBuild)
{
    const TestMainWindow window;
    window.createProject();
    window.write("tps.res", "");
    window->getMenu()->updateStateMenus();
    std::string title;
    std::string text;
    DialogAnswers answers;
    answers.add<QMessageBox>([&title, &text](QMessageBox& dialog) {
        title = dialog.windowTitle().toStdString();
        text = dialog.text().toStdString();
        std::filesystem::remove("project/tps.res");
    });
    window.action(GetParam().mMenu, GetParam().mIndex).trigger();
    EXPECT_EQ(title, "Information");
    EXPECT_EQ(text, "This window is not in this build.");
    EXPECT_TRUE(window.children().empty());
    EXPECT_FALSE(window.action(QVG_MainMenu::VISUALIZE, 0).isEnabled()) << "menus are up to date";
}

INSTANTIATE_TEST_SUITE_P(Actions, QVG_NotInBuildActionTest,
                         testing::Values(Place{QVG_MainMenu::HELP, 0, "Manual"}),
                         [](const auto& row) { return row.param.mName; });
