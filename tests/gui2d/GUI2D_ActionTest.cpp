#include "gui2d/GUI2D_Action.h"

#include "gui2d/GUI2D_ActionAxe.h"
#include "gui2d/GUI2D_ActionCopyPicture.h"
#include "gui2d/GUI2D_ActionCopyValues.h"
#include "gui2d/GUI2D_ActionExport.h"
#include "gui2d/GUI2D_ActionGrid.h"
#include "gui2d/GUI2D_ActionLegend.h"
#include "gui2d/GUI2D_ActionLoadPlot.h"
#include "gui2d/GUI2D_ActionMoveEast.h"
#include "gui2d/GUI2D_ActionMoveNorth.h"
#include "gui2d/GUI2D_ActionMoveSouth.h"
#include "gui2d/GUI2D_ActionMoveWest.h"
#include "gui2d/GUI2D_ActionOptions.h"
#include "gui2d/GUI2D_ActionPrint.h"
#include "gui2d/GUI2D_ActionRedo.h"
#include "gui2d/GUI2D_ActionSaveAsImage.h"
#include "gui2d/GUI2D_ActionSavePlot.h"
#include "gui2d/GUI2D_ActionTools.h"
#include "gui2d/GUI2D_ActionUndo.h"
#include "gui2d/GUI2D_ActionZoomFit.h"
#include "gui2d/GUI2D_ActionZoomL.h"
#include "gui2d/GUI2D_ActionZoomP.h"
#include "gui2d/GUI2D_ActionZoomSelect.h"
#include "gui2d/TestPlot.h"
#include "support/DialogAnswers.h"
#include "support/Printed.h"

#include <QPrintDialog>

#include <gtest/gtest.h>

namespace {

using View = std::array<double, 4>;

void expectView(const TestPlot& plot, const View& expected)
{
    const View view = plot.view();
    for (std::size_t i = 0; i < view.size(); ++i) {
        EXPECT_NEAR(view.at(i), expected.at(i), 1e-12)
            << i; // one rounding or two of numbers below 10
    }
}

/// What an action says in a window that has no draw panel, and what it is expected to say.
template <typename Action>
void expectCastError(const std::string& speaker)
{
    const ProjectRoot root;
    auto& action = root.add<Action>();
    EXPECT_EQ(printedBy([&] { action.trigger(); }),
              speaker + "::toDo() Error when casting from  GUI_ParentWindow to GUI2D_Window");
    EXPECT_EQ(root.menuPanel().mUpdates, 0);
}

} // namespace

TEST(GUI2D_Action, AForeignWindowIsToldOnStandardOutput)
{
    expectCastError<GUI2D_ActionAxe>("GUI2D_ActionAxe");
    expectCastError<GUI2D_ActionGrid>("GUI2D_ActionGrid");
    expectCastError<GUI2D_ActionLegend>("GUI2D_ActionLegend");
    expectCastError<GUI2D_ActionOptions>("GUI2D_ActionOptions");
    expectCastError<GUI2D_ActionTools>("GUI2D_ActionTools");
    expectCastError<GUI2D_ActionPrint>("GUI2D_ActionPrint");
    expectCastError<GUI2D_ActionRedo>("GUI2D_ActionZoomFit");
    expectCastError<GUI2D_ActionUndo>("GUI2D_ActionZoomFit");
    expectCastError<GUI2D_ActionSaveAsImage>("GUI2D_ActionAxe");
    expectCastError<GUI2D_ActionZoomFit>("GUI2D_ActionZoomFit");
    expectCastError<GUI2D_ActionZoomP>("GUI2D_ActionZoomP");
    expectCastError<GUI2D_ActionZoomL>("GUI2D_ActionZoomL");
    expectCastError<GUI2D_ActionZoomSelect>("GUI2D_ActionZoomFit");
    expectCastError<GUI2D_ActionMoveEast>("GUI2D_ActionMoveEast");
    expectCastError<GUI2D_ActionMoveWest>("GUI2D_ActionMoveWest");
    expectCastError<GUI2D_ActionMoveNorth>("GUI2D_ActionMoveNorth");
    expectCastError<GUI2D_ActionMoveSouth>("GUI2D_ActionMoveSouth");
    expectCastError<GUI2D_ActionSavePlot>("GUI2D_ActionSavePlot");
    expectCastError<GUI2D_ActionLoadPlot>("GUI2D_ActionLoadPlot");
    expectCastError<GUI2D_ActionExport>("GUI2D_ActionExport");
    expectCastError<GUI2D_ActionCopyPicture>("GUI2D_ActionCopyPicture");
    expectCastError<GUI2D_ActionCopyValues>("GUI2D_ActionCopyValues");
}

TEST(GUI2D_Action, OutsideAMenuItDoesNothing)
{
    const COM_Scoped action(GUI2D_ActionAxe::New());
    EXPECT_EQ(printedBy([&] { action->trigger(); }), "");
}

TEST(GUI2D_Action, AxesAndGridAreShownAndHidden)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.clickTool("Show &Axes");
    EXPECT_FALSE(plot.plotter().isAxesPrinted());
    EXPECT_TRUE(plot.plotter().isGridPrinted());
    plot.clickTool("Show &Grid");
    EXPECT_FALSE(plot.plotter().isGridPrinted());
    plot.clickTool("Show &Axes");
    plot.clickTool("Show &Grid");
    EXPECT_TRUE(plot.plotter().isAxesPrinted());
    EXPECT_TRUE(plot.plotter().isGridPrinted());
}

TEST(GUI2D_Action, HidingTheAxesChangesThePicture)
{
    const TestPlot plot;
    plot.add({-4.0, 4.0}, {-2.0, 2.0});
    plot->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&*plot));
    settle();
    const QImage before = plot.plotter().grab().toImage();
    plot.clickTool("Show &Axes");
    settle();
    EXPECT_NE(plot.plotter().grab().toImage(), before);
    plot.clickTool("Show &Axes");
    settle();
    EXPECT_EQ(plot.plotter().grab().toImage(), before);
}

TEST(GUI2D_Action, EachActionOnTheViewRepaints)
{
    const TestPlot plot;
    plot.addAndShow();
    Repaints repaints(plot.plotter());
    EXPECT_EQ(repaints.take(), 0);
    for (const char* const label :
         {"Show &Axes", "Show &Grid", "Zoom +", "Zoom -", "Zoom Select", "Zoom Fit", "&Undo",
          "&Redo", "Move North", "Move South", "Move West", "Move East"}) {
        plot.trigger(label);
        EXPECT_GT(repaints.take(), 0) << label;
    }
}

TEST(GUI2D_Action, ZoomPlusAndMinusUseTheZoomFactor)
{
    const TestPlot plot;
    plot.addAndShow();
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.clickTool("Zoom +");
    expectView(plot, {4.0 - 4.0 / 1.2, 4.0 + 4.0 / 1.2, 2.0 - 2.0 / 1.2, 2.0 + 2.0 / 1.2});
    plot.clickTool("Zoom -");
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.clickTool("Zoom -");
    expectView(plot, {4.0 - 4.8, 4.0 + 4.8, 2.0 - 2.4, 2.0 + 2.4});
}

TEST(GUI2D_Action, UndoRedoAndFitStepThroughTheViews)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.plotter().setZoomFactor(2.0);
    plot.clickTool("Zoom +");
    expectView(plot, {2.0, 6.0, 1.0, 3.0});
    plot.clickTool("&Undo");
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.clickTool("&Redo");
    expectView(plot, {2.0, 6.0, 1.0, 3.0});
    plot.clickTool("Zoom Fit");
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    EXPECT_EQ(plot.plotter().getDrawingBoxes().size(), 3U);
}

TEST(GUI2D_Action, MovesPanByTheSteps)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.plotter().setPanX(20);
    plot.plotter().setPanY(30);
    const double x = 20.0 / plot.plotter().getScaleX();
    const double y = 30.0 / plot.plotter().getScaleY();
    plot.clickTool("Move East");
    expectView(plot, {x, 8.0 + x, 0.0, 4.0});
    plot.clickTool("Move North");
    expectView(plot, {x, 8.0 + x, y, 4.0 + y});
    plot.clickTool("Move West");
    plot.clickTool("Move South");
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
}

TEST(GUI2D_Action, KeysZoomPanAndStep)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.plotter().setZoomFactor(2.0);
    const double x = 10.0 / plot.plotter().getScaleX();
    const double y = 10.0 / plot.plotter().getScaleY();
    plot.press(Qt::Key_Right);
    expectView(plot, {x, 8.0 + x, 0.0, 4.0});
    plot.press(Qt::Key_Up);
    expectView(plot, {x, 8.0 + x, y, 4.0 + y});
    plot.press(Qt::Key_Left);
    plot.press(Qt::Key_Down);
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.press(Qt::Key_Plus);
    expectView(plot, {2.0, 6.0, 1.0, 3.0});
    plot.press(Qt::Key_Backspace);
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.press(Qt::Key_Right, Qt::AltModifier);
    expectView(plot, {2.0, 6.0, 1.0, 3.0});
    plot.press(Qt::Key_Left, Qt::AltModifier);
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.press(Qt::Key_Minus);
    expectView(plot, {-4.0, 12.0, -2.0, 6.0});
    plot.press(Qt::Key_Home);
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
    plot.press(Qt::Key_Minus);
    plot.press(Qt::Key_0, Qt::ControlModifier);
    expectView(plot, {0.0, 8.0, 0.0, 4.0});
}

TEST(GUI2D_Action, ZoomSelectLetsTheMouseZoomAgain)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.plotter().setZoomSelection(false);
    plot.clickTool("Zoom Select");
    EXPECT_TRUE(plot.plotter().getZoomSelection());
    plot.clickTool("Zoom Select");
    EXPECT_TRUE(plot.plotter().getZoomSelection());
}

TEST(GUI2D_Action, PrintAsksForThePrinter)
{
    const TestPlot plot;
    plot.addAndShow();
    DialogAnswers answers;
    answers.add<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    plot.clickTool("&Print");
    settle();
    Repaints repaints(plot.plotter());
    answers.add<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    plot.trigger("&Print");
    EXPECT_GT(repaints.take(), 0);
}

TEST(GUI2D_Action, WithoutAViewNothingHappens)
{
    const TestPlot plot;
    for (const char* const label :
         {"Zoom +", "Zoom -", "Move East", "Move West", "Move North", "Move South"}) {
        plot.trigger(label);
    }
    EXPECT_EQ(plot.plotter().getCurrentIndexBox(), -1);
}
