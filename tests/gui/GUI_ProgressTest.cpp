#include "gui/GUI_Progress.h"

#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "support/Printed.h"
#include "support/ProjectRoot.h"

#include <QApplication>
#include <QProgressBar>
#include <QScreen>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

/// The windows on the screen that hold a bar.
std::vector<QWidget*> progressWindows()
{
    std::vector<QWidget*> windows;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->findChild<QProgressBar*>() != nullptr) {
            windows.push_back(widget);
        }
    }
    return windows;
}

} // namespace

TEST(GUI_Progress, ShowsAWindowOfItsSizeAndCaption)
{
    const ProjectRoot root;
    const COM_Scoped progress(GUI_Progress::New(*root, 20));
    ASSERT_EQ(progressWindows().size(), 1U);
    const QWidget& window = *progressWindows()[0];
    EXPECT_EQ(window.windowTitle(), "Progress Bar");
    EXPECT_EQ(window.size(), QSize(400, 30));
    EXPECT_EQ(window.parent(), nullptr);
    const auto* const bar = window.findChild<QProgressBar*>();
    EXPECT_EQ(bar->minimum(), 0);
    EXPECT_EQ(bar->maximum(), 20);
}

TEST(GUI_Progress, StandsUnderTheMiddleOfItsParent)
{
    const ProjectRoot root;
    root->setGeometry(100, 150, 600, 300);
    const COM_Scoped progress(GUI_Progress::New(*root, 20));
    ASSERT_EQ(progressWindows().size(), 1U);
    const QPoint middle = root->mapToGlobal(root->rect().center());
    const QWidget& window = *progressWindows()[0];
    EXPECT_EQ(window.pos() + window.rect().center(), middle + QPoint(0, 20));
}

TEST(GUI_Progress, StandsUnderTheMiddleOfTheScreenWithoutAParent)
{
    const COM_Scoped progress(GUI_Progress::New(20));
    ASSERT_EQ(progressWindows().size(), 1U);
    const QWidget& window = *progressWindows()[0];
    EXPECT_EQ(window.pos() + window.rect().center(),
              window.screen()->availableGeometry().center() + QPoint(0, 20));
}

TEST(GUI_Progress, ItsCaptionIsTranslated)
{
    const ProjectRoot root;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped progress(GUI_Progress::New(*root, 20));
    EXPECT_EQ(progressWindows().at(0)->windowTitle(), "Barre de progression");
}

TEST(GUI_Progress, IsOnTheScreenWhenItIsMade)
{
    const COM_Scoped progress(GUI_Progress::New(20));
    ASSERT_EQ(progressWindows().size(), 1U);
    const QWidget& window = *progressWindows()[0];
    ASSERT_NE(window.windowHandle(), nullptr);
    EXPECT_TRUE(window.windowHandle()->isExposed());
}

TEST(GUI_Progress, PrintIntMovesTheBarAndPrintsNothing)
{
    const ProjectRoot root;
    const COM_Scoped progress(GUI_Progress::New(*root, 20));
    const auto* const bar = progressWindows().at(0)->findChild<QProgressBar*>();
    EXPECT_EQ(printedBy([&progress] { progress->printInt(7); }), "");
    EXPECT_EQ(bar->value(), 7);
    progress->print(12L);
    EXPECT_EQ(bar->value(), 12);
    progress->printInt(21);
    EXPECT_EQ(bar->value(), 12);
    progress->printInt(20);
    EXPECT_EQ(bar->value(), 20);
    EXPECT_EQ(printedBy([&progress] { progress->printString("text\n"); }), "text\n");
}

TEST(GUI_Progress, BarsWithoutStepsAreBusy)
{
    for (const int steps : {0, -5}) {
        const COM_Scoped progress(GUI_Progress::New(steps));
        EXPECT_EQ(progressWindows().at(0)->findChild<QProgressBar*>()->maximum(), 0);
    }
    const COM_Scoped progress(GUI_Progress::New());
    EXPECT_EQ(progressWindows().at(0)->findChild<QProgressBar*>()->maximum(), 100);
}

TEST(GUI_Progress, SetNameSetsTheCaption)
{
    const COM_Scoped progress(GUI_Progress::New(20));
    progress->setName("R\xc3\xa9solution...");
    EXPECT_EQ(progressWindows().at(0)->windowTitle().toStdString(), "R\xc3\xa9solution...");
}

TEST(GUI_Progress, GoesWithItsWindow)
{
    GUI_Progress* const progress = GUI_Progress::New(20);
    EXPECT_EQ(progress->getReferenceCount(), 1);
    EXPECT_TRUE(progress->instanceOf("COM_Out"));
    EXPECT_EQ(progress->getTypes().back(), "GUI_Progress");
    EXPECT_EQ(progressWindows().size(), 1U);
    progress->Delete();
    EXPECT_EQ(progressWindows().size(), 0U);
}

TEST(GUI_Progress, TheEndOfAComputationIsNotTheEndOfTheProgram)
{
    bool isQuit = false;
    const auto connection =
        QObject::connect(qApp, &QGuiApplication::lastWindowClosed, [&isQuit] { isQuit = true; });
    GUI_Progress::New(20)->Delete();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isQuit);
    QObject::disconnect(connection);
}
