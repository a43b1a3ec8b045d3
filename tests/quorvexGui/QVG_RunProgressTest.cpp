#include "quorvexGui/QVG_RunProgress.h"

#include "quorvexGui/TestMainWindow.h"

#include <QProgressBar>

#include <gtest/gtest.h>

namespace {

QProgressBar* shownBar()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (auto* const bar = widget->findChild<QProgressBar*>()) {
            return bar;
        }
    }
    return nullptr;
}

} // namespace

TEST(QVG_RunProgress, TheBarIsNamedForTheSolverAndCountsTheSteps)
{
    const TestMainWindow window;
    window->show();
    {
        const COM_Scoped progress(QVG_RunProgress::New(*window, 50));
        EXPECT_EQ(progress->getTypes().back(), "QVG_RunProgress");
        QProgressBar* const bar = shownBar();
        ASSERT_NE(bar, nullptr);
        EXPECT_TRUE(bar->window()->isVisible());
        EXPECT_EQ(bar->window()->windowTitle(), "Quorvex Solving...");
        EXPECT_EQ(bar->maximum(), 50);
        progress->printInt(20);
        EXPECT_EQ(bar->value(), 20);
    }
    EXPECT_EQ(shownBar(), nullptr);
}

TEST(QVG_RunProgress, TheNameIsTranslated)
{
    const TestMainWindow window;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped progress(QVG_RunProgress::New(*window, 50));
    EXPECT_EQ(shownBar()->window()->windowTitle().toStdString(), "R\303\251solution Quorvex...");
}
