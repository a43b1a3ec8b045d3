#include "quorvexGui/QVG_ActionRun.h"

#include "linearAlgebra/LA_RealMatrix.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_ProblemCheck.h"
#include "quorvexGui/QVG_CheckWindow.h"
#include "quorvexGui/TestMainWindow.h"
#include "support/DialogAnswers.h"
#include "support/ResultFiles.h"

#include <QMessageBox>
#include <QProgressBar>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <map>
#include <unistd.h>

namespace {

/// A box that was seen: "title|text".
std::string boxText(const QWidget& dialog)
{
    const auto* const box = dynamic_cast<const QMessageBox*>(&dialog);
    return (dialog.windowTitle() + "|" + (box == nullptr ? "no box" : box->text())).toStdString();
}

/// Runs the action, expects one message box and gives its title and text.
std::string report(const TestMainWindow& window)
{
    std::string text;
    DialogAnswers answers;
    answers.add<QDialog>([&text](QDialog& dialog) { text = boxText(dialog); });
    printedBy([&window] { window.action(QVG_MainMenu::RUN, 0).trigger(); });
    return text;
}

/// Runs the action, gives that answer to the question of the check, and gives title and text of the report, which
/// follows a "Yes" alone.
std::string reportAfterCheck(const TestMainWindow& window, const std::string& answer)
{
    std::string text;
    DialogAnswers answers;
    answers.add<QDialog>([answer](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Check of the Problem");
        pressButton(dialog, QString::fromStdString(answer));
    });
    if (answer == "Yes") {
        answers.add<QDialog>([&text](QDialog& dialog) { text = boxText(dialog); });
    }
    printedBy([&window] { window.action(QVG_MainMenu::RUN, 0).trigger(); });
    return text;
}

/// For a process that ends in the midst of the toolkit: what its libraries hold by then is no leak of ours.
void leaveAtOnce(int status, void* /*unused*/)
{
    _exit(status);
}

/// A problem whose run ends as a test wants.
class FailingProblem : public QV_1DProblem
{
    COM_CLASS(FailingProblem)
public:
    using QV_1DProblem::run;

    int run(COM_Out& /*out*/) override
    {
        mDirectory = getSavingPath();
        for (const QWidget* const widget : QApplication::topLevelWidgets()) {
            if (const auto* const bar = widget->findChild<QProgressBar*>()) {
                mMaximum = bar->maximum();
            }
        }
        return mResult;
    }

    int mResult = 0;
    // What the run found.
    std::string mDirectory;
    int mMaximum = -1; ///< Of the bar.

protected:
    FailingProblem() { COM_TYPE(FailingProblem); }
    ~FailingProblem() override = default;
};

} // namespace

TEST(QVG_ActionRun, WithoutAProblemNothingHappens)
{
    const TestMainWindow window;
    window.createProject();
    TestMainWindow::application().resetModel();
    window.write("tps.res", "old");
    DialogAnswers noDialogs;
    EXPECT_EQ(printedBy([&window] { window.action(QVG_MainMenu::RUN, 0).trigger(); }), "");
    EXPECT_EQ(window.read("tps.res"), "old");
    EXPECT_FALSE(window.exists("parameters.xml~"));
    EXPECT_TRUE(window.action(QVG_MainMenu::VISUALIZE, 0).isEnabled()) << "menus are up to date";
}

TEST(QVG_ActionRun, OutsideAMenuItDoesNothing)
{
    const TestMainWindow window;
    window.createSmallProject();
    const COM_Scoped action(QVG_ActionRun::New());
    EXPECT_EQ(action->getLabel(), "&Run");
    EXPECT_EQ(printedBy([&action] { action->toDo(); }), "");
    EXPECT_FALSE(window.exists("parameters.xml~"));
}

TEST(QVG_ActionRun, ARunLeavesResultsAndItsParametersInTheProject)
{
    const TestMainWindow window;
    window.createSmallProject();
    const std::string saved = window.read("parameters.xml");
    window->saveModelFile(window.file("expected.xml"));
    window.write("parameters.xml~", "of an earlier run");
    window.write("field_12.res", "of an earlier run");
    EXPECT_EQ(report(window), "Information!|Execution succeeds.");
    EXPECT_EQ(window.read("parameters.xml~"), window.read("expected.xml"));
    EXPECT_EQ(window.read("parameters.xml"), saved) << "saving is the user's";
    EXPECT_EQ(window.problem().getSavingPath(), window.path());
    EXPECT_FALSE(window.exists("field_12.res"));
    EXPECT_TRUE(window.exists("tps.res"));
    EXPECT_TRUE(window.exists("captors.res"));
    EXPECT_TRUE(window.action(QVG_MainMenu::VISUALIZE, 0).isEnabled());
    EXPECT_EQ(window.problem().getReferenceCount(), 3) << "application, field and atoms";
}

TEST(QVG_ActionRun, TheBarShowsTheRunAndGoesWithIt)
{
    const TestMainWindow window;
    window.createSmallProject();
    window->show();
    int maximum = 0;
    std::vector<int> values;
    std::string caption;
    const auto bar = [] {
        QProgressBar* shown = nullptr;
        for (const QWidget* const widget : QApplication::topLevelWidgets()) {
            if (auto* const found = widget->findChild<QProgressBar*>()) {
                shown = found;
            }
        }
        return shown;
    };
    window.problem().setWatcher([&] {
        const QProgressBar* const shown = bar();
        ASSERT_NE(shown, nullptr);
        maximum = shown->maximum();
        caption = shown->window()->windowTitle().toStdString();
        if (values.empty() || values.back() != shown->value()) {
            values.push_back(shown->value());
        }
    });
    std::string text;
    DialogAnswers answers;
    answers.add<QDialog>([&text, &bar](QDialog& dialog) {
        text = boxText(dialog);
        EXPECT_EQ(bar(), nullptr);
    });
    printedBy([&window] { window.action(QVG_MainMenu::RUN, 0).trigger(); });
    window.problem().setWatcher({});
    EXPECT_EQ(text, "Information!|Execution succeeds.");
    EXPECT_EQ(maximum, 40);
    EXPECT_EQ(caption, "Quorvex Solving...");
    EXPECT_EQ(values, (std::vector<int>{-1, 4, 8, 12, 16, 20, 24, 28, 32, 36, 40}));
}

TEST(QVG_ActionRun, AZeroDipoleLeavesNoResultsAndSaysWhy)
{
    const TestMainWindow window;
    window.createSmallProject();
    const COM_Scoped dipole(LA_RealMatrix::New(2, 2));
    QV_Bloch::setPolarization(*dipole, 0);
    ASSERT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
    window.write("tps.res", "old");
    EXPECT_EQ(report(window), "Execution Failure!|Rabi Frequency is null \n (The maximum value of "
                              "the polarization is null).");
    EXPECT_FALSE(window.exists("tps.res"));
    EXPECT_TRUE(window.exists("parameters.xml~"));
    EXPECT_FALSE(window.action(QVG_MainMenu::VISUALIZE, 0).isEnabled());
}

TEST(QVG_ActionRun, EachResultOfTheRunHasItsMessage)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped problem(FailingProblem::New());
    problem->setMaxTimeStepsNumber(5000);
    TestMainWindow::application().setModel(*problem);
    const std::map<int, std::string> reports{
        {0, "Information!|Execution succeeds."},
        {7, "Information!|Execution succeeds."},
        {-1, "Execution Failure!|Rabi Frequency is null \n (The maximum value of the polarization "
             "is null)."},
        {-2, "Execution Failure!|Unknown Reason."},
        {-99, "Execution Failure!|Unknown Reason."}};
    for (const auto& [result, text] : reports) {
        problem->mResult = result;
        EXPECT_EQ(report(window), text) << result;
    }
}

TEST(QVG_ActionRun, TheBarHoldsMoreStepsThanItCanCount)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped problem(FailingProblem::New());
    problem->setMaxTimeStepsNumber(5000000000UL);
    TestMainWindow::application().setModel(*problem);
    EXPECT_EQ(report(window), "Information!|Execution succeeds.");
    EXPECT_EQ(problem->mMaximum, std::numeric_limits<int>::max());
    EXPECT_EQ(problem->mDirectory, window.path());
}

TEST(QVG_ActionRun, AFieldWithoutBoundsIsNoFailure)
{
    const TestMainWindow window;
    window.createSmallProject();
    window.wave().setFieldMaxValue(std::numeric_limits<double>::infinity());
    EXPECT_EQ(reportAfterCheck(window, "Yes"), "Information!|Execution succeeds.");
    EXPECT_NE(window.read("E_at_1.res").find("nan"), std::string::npos);
}

TEST(QVG_ActionRun, MessagesAreTranslated)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped problem(FailingProblem::New());
    problem->setMaxTimeStepsNumber(5000);
    problem->mResult = -5;
    TestMainWindow::application().setModel(*problem);
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    EXPECT_EQ(report(window), "\303\211chec de l'ex\303\251cution!|Raison inconnue.");
    problem->mResult = 0;
    EXPECT_EQ(report(window), "Information!|L'ex\303\251cution a r\303\251ussi.");
}

// ---------------------------------------------------------------- the check before

TEST(QVG_ActionRun, ANoLeavesTheFormerRunAsItWas)
{
    const TestMainWindow window;
    window.createSmallProject();
    window.problem().setMaxTimeStepsNumber(9);
    window.write("tps.res", "old");
    window.write("parameters.xml~", "old");
    EXPECT_EQ(reportAfterCheck(window, "No"), "");
    EXPECT_EQ(window.read("tps.res"), "old");
    EXPECT_EQ(window.read("parameters.xml~"), "old");
    EXPECT_TRUE(window.children().empty());
    EXPECT_EQ(window.problem().getReferenceCount(), 3);
}

TEST(QVG_ActionRun, WhatStopsIsNotRun)
{
    const TestMainWindow window;
    window.createSmallProject();
    dynamic_cast<QV_1DMilieu&>(*window.problem().getMilieu()).setLength(0.0);
    window.write("tps.res", "old");
    EXPECT_EQ(reportAfterCheck(window, "Close"), "");
    EXPECT_EQ(window.read("tps.res"), "old");
    EXPECT_FALSE(window.exists("parameters.xml~"));
}

TEST(QVG_ActionRun, AYesRunsAndTheFindingsStayInView)
{
    const TestMainWindow window;
    window.createSmallProject();
    dynamic_cast<QV_1DMilieu&>(*window.problem().getMilieu()).setEndingPosition(5.0);
    EXPECT_EQ(reportAfterCheck(window, "Yes"), "Information!|Execution succeeds.");
    EXPECT_TRUE(window.exists("tps.res"));
    EXPECT_EQ(window.children(), std::vector<std::string>{"Check of the Problem"});
}

TEST(QVG_ActionRun, NotesAloneAreShownWithoutAQuestionUntilARunHasNone)
{
    const TestMainWindow window;
    window.createSmallProject();
    window.problem().setMethod(QV_Problem::CN_Z_METHOD);
    EXPECT_EQ(report(window), "Information!|Execution succeeds.");
    ASSERT_EQ(window.children(), std::vector<std::string>{"Check of the Problem"});
    {
        const auto* const notes = window->findForm<QVG_CheckWindow>();
        const QString text = notes->findChild<QTextBrowser*>()->toPlainText();
        EXPECT_TRUE(text.startsWith("notes\n")) << text.toStdString();
        EXPECT_TRUE(text.contains("Numerical Method = CN_Z: ")) << text.toStdString();
    }
    window.createSmallProject();
    EXPECT_TRUE(QV_ProblemCheck::check(window.problem(), window.path()).empty());
    QVG_CheckWindow::tell(*window, {{QV_ProblemCheck::NOTE, "C.F.L.", "1", "former.", {}}});
    EXPECT_EQ(report(window), "Information!|Execution succeeds.");
    EXPECT_TRUE(window.children().empty());
}

TEST(QVG_ActionRun, TooFewStepsEndTheProcessByTheArithmeticTrap)
{
    const TestMainWindow window;
    window.createSmallProject();
    window.problem().setMaxTimeStepsNumber(9);
    EXPECT_EXIT(reportAfterCheck(window, "Yes"), testing::KilledBySignal(SIGFPE), "");
}

TEST(QVG_ActionRun, ADirectoryThatTakesNoResultsEndsTheProcess)
{
    const TestMainWindow window;
    window.createSmallProject();
    EXPECT_EXIT(
        {
            on_exit(leaveAtOnce, nullptr);
            std::filesystem::remove_all(window.path());
            reportAfterCheck(window, "Yes");
        },
        testing::ExitedWithCode(0), "");
}

// ---------------------------------------------------------------- the same results as the batch program

TEST(QVG_ActionRun, ResultsEqualThoseOfTheBatchProgramOnTheSavedProject)
{
    const TestMainWindow window;
    window.createSmallProject();
    window.wave().setFieldMaxValue(3e8);
    QV_Bloch::setTemperature(77.0);
    window->save();
    window.createOtherProject();
    window->load(window.file("project.dpj"));
    window.problem().setMaxTimeStepsNumber(40);
    EXPECT_EQ(report(window), "Information!|Execution succeeds.");

    const std::string batch = std::string("'") + QUORVEX_RUN_PROGRAM + "' -q -n 40 -o '"
                              + window.directory().file("batch") + "' '"
                              + window.file("parameters.xml") + "' > '"
                              + window.directory().file("batch.log") + "' 2>&1";
    ASSERT_EQ(std::system(batch.c_str()), 0) << window.directory().read("batch.log");
    const auto ours = resultFilesIn(window.directory().file("project"));
    const auto theirs = resultFilesIn(window.directory().file("batch"));
    EXPECT_GE(ours.size(), 5U);
    EXPECT_EQ(ours, theirs);
}
