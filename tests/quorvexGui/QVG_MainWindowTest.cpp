#include "quorvexGui/QVG_MainWindow.h"

#include "common/COM_Color.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_NewProjectWindow.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvexGui/QVG_ClassFactory.h"
#include "quorvexGui/TestMainWindow.h"
#include "quorvexGui/TestTextWindow.h"
#include "support/ChildProcess.h"
#include "support/Description.h"
#include "support/DialogAnswers.h"
#include "support/TestObject.h"

#include <QRect>
#include <QScreen>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <iostream>
#include <set>
#include <unistd.h>

namespace {

constexpr const char* projectFile = R"(
<MM_PACKAGE mRootMetaClassId="14QVG_MainWindow@#">
	<MM_CLASS mId="14QVG_MainWindow@#" mName="14QVG_MainWindow">
		<MM_FIELD mName="mPlotterWindowsFileName">
			<MM_VALUE>savingPlotterWindows.txt</MM_VALUE>
		</MM_FIELD>
		<MM_FIELD mName="mSavingFile">
			<MM_VALUE>project.dpj</MM_VALUE>
		</MM_FIELD>
		<MM_FIELD mName="mSavingModelFile">
			<MM_VALUE>parameters.xml</MM_VALUE>
		</MM_FIELD>
	</MM_CLASS>
</MM_PACKAGE>)";

/// What saving prints when no window is open.
std::string savingLog(const std::string& path)
{
    return "save the model file " + path
           + "parameters.xml...\nsave the project file..\nsaving finished.\n";
}

/// What the solver prints when it reads a model.
std::string readingLog(const std::string& model)
{
    return printedBy([&model] {
        const COM_Scoped loader(QV_LoaderWriter::New());
        loader->load(model);
    });
}

/// A model file's objects, without the identities that also decide on their order.
std::multiset<std::string> objects(const std::string& text)
{
    const std::string model = TestMainWindow::withoutIdentities(text);
    std::multiset<std::string> classes;
    std::size_t start = 0;
    while (start != std::string::npos) {
        const std::size_t end = model.find("<MM_CLASS ", start + 1);
        classes.insert(model.substr(start, end == std::string::npos ? end : end - start));
        start = end;
    }
    EXPECT_GT(classes.size(), 5U) << text;
    return classes;
}

/// A shown plotter window with a curve.
GUI2D_PlotterWindow& addPlot(const TestMainWindow& main, const std::string& name,
                             const QRect& place)
{
    const COM_Scoped window(GUI2D_PlotterWindow::New(*main, "Plot", false));
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    window->addPlot(std::vector{1.0, 2.0}, std::vector{3.0, -1.0}, name, *color);
    window->setSize(place.width(), place.height());
    window->move(place.topLeft());
    window->show();
    return *window;
}

/// The file of a plotter window in the project.
std::string fileOf(const GUI2D_PlotterWindow& window)
{
    return "plotter_window_saving_" + std::to_string(GUI_ParentWindow::getId(window)) + ".xml";
}

/// A project file with these fields.
std::string projectWith(const std::string& fields,
                        const std::string& className = "14QVG_MainWindow")
{
    return "\n<MM_PACKAGE mRootMetaClassId=\"" + className + "@1\">\n\t<MM_CLASS mId=\"" + className
           + "@1\" mName=\"" + className + "\">\n" + fields + "\t</MM_CLASS>\n</MM_PACKAGE>\n";
}

std::string field(const std::string& name, const std::string& value)
{
    return "\t\t<MM_FIELD mName=\"" + name + "\">\n\t\t\t<MM_VALUE>" + value
           + "</MM_VALUE>\n\t\t</MM_FIELD>\n";
}

/// Saves again and again in another process, which is killed some microseconds after it has saved once. False: it
/// has never saved, or was not killed.
bool isKilledAfter(int delay, const std::function<void(int round)>& save)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        return false;
    }
    const pid_t child = startInChild([&save, &pipeEnds] {
        std::cout.setstate(std::ios::failbit); // its log would mingle with ours
        const char done = 0;
        for (int round = 0;; ++round) {
            save(round);
            if (round == 0 && ::write(pipeEnds[1], &done, 1) != 1) {
                return 1;
            }
        }
    });
    close(pipeEnds[1]);
    char done = 1;
    const bool hasSaved = ::read(pipeEnds[0], &done, 1) == 1;
    close(pipeEnds[0]);
    usleep(static_cast<useconds_t>(delay));
    kill(child, SIGKILL);
    return endOfChild(child) == -SIGKILL && hasSaved;
}

} // namespace

// ---------------------------------------------------------------- the window

TEST(QVG_MainWindow, ANewWindowHasAPathButNoProject)
{
    const TestMainWindow window;
    EXPECT_EQ(window->getName(), "Main");
    EXPECT_EQ(window->getSavingPath(), "./");
    EXPECT_EQ(window->getSavingFile(), "");
    EXPECT_EQ(window->getModelFileName(), "parameters.xml");
    EXPECT_EQ(window->getPlotterWindowsFileName(), "savingPlotterWindows.txt");
    EXPECT_EQ(window->getProblem(), nullptr);
    EXPECT_FALSE(window->isContainer());
    EXPECT_EQ(window->width(), 800);
    EXPECT_GE(window->height(), 50);
    EXPECT_GE(window->height(), window->minimumSizeHint().height())
        << "it need not grow when shown";
    EXPECT_EQ(window->pos(), QPoint(0, 0));
    EXPECT_EQ(window->getMenu()->getClassName(), "12QVG_MainMenu");
    EXPECT_EQ(window->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_ParentWindow",
                                        "GUI_RootWindow", "MM_Object", "QVG_MainWindow"}));
}

TEST(QVG_MainWindow, AModelThatIsNoProblemIsNone)
{
    const TestMainWindow window;
    const COM_Scoped model(TestObject::New());
    TestMainWindow::application().setModel(*model);
    EXPECT_EQ(window->getProblem(), nullptr);
    EXPECT_EQ(printedBy([&window] { window->saveModelFile("model.xml"); }), "");
    EXPECT_FALSE(std::filesystem::exists("model.xml"));
}

TEST(QVG_MainWindow, AWindowWithoutApplicationHasNoProblemAndLoadsNone)
{
    const TestMainWindow shared;
    const COM_Scoped window(QVG_MainWindow::New("alone", false));
    EXPECT_EQ(window->getProblem(), nullptr);
    EXPECT_FALSE(window->loadModelFile("missing.xml"));
    EXPECT_EQ(window->getProblem(), nullptr);
}

TEST(QVG_MainWindow, OnlyAnOpenProjectIsAskedAboutOnExit)
{
    const TestMainWindow window;
    window->show();
    DialogAnswers noDialogs;
    EXPECT_TRUE(window->close(false));
}

TEST(QVG_MainWindow, YesOnExitSavesTheProject)
{
    const TestMainWindow window;
    window.createProject();
    std::filesystem::remove(window.file("parameters.xml"));
    window->show();
    std::string title;
    DialogAnswers answers;
    answers.add<QDialog>([&title](QDialog& dialog) {
        title = dialog.windowTitle().toStdString();
        pressButton(dialog, "Yes");
    });
    EXPECT_TRUE(window->close(false));
    EXPECT_EQ(title, "Quit");
    EXPECT_TRUE(window.exists("parameters.xml"));
}

// ---------------------------------------------------------------- the project file

TEST(QVG_MainWindow, TheKeysOfTheProjectFileAreFrozen)
{
    const TestMainWindow window;
    window->setSavingFile("mine.dpj");
    const Description description(*window);
    EXPECT_EQ(description.text(), "{mPlotterWindowsFileName=[savingPlotterWindows.txt] "
                                  "mSavingFile=[mine.dpj] mSavingModelFile=[parameters.xml]}");
}

TEST(QVG_MainWindow, EachKeyOfTheProjectFileIsTakenOver)
{
    const TestMainWindow window;
    window.directory().write("a.dpj", projectWith(field("mSavingFile", "b.dpj")
                                                  + field("mSavingModelFile", "m.xml")
                                                  + field("mPlotterWindowsFileName", "w.txt")));
    const COM_Scoped factory(QVG_ClassFactory::New());
    factory->load(window.directory().file("a.dpj"), *window);
    EXPECT_EQ(window->getSavingFile(), "b.dpj");
    EXPECT_EQ(window->getModelFileName(), "m.xml");
    EXPECT_EQ(window->getPlotterWindowsFileName(), "w.txt");
    EXPECT_EQ(window->getSavingPath(), "./");
}

TEST(QVG_MainWindow, MissingKeysAreAnnouncedAndLeaveTheNames)
{
    const TestMainWindow window;
    window->setSavingFile("mine.dpj");
    window.directory().write("a.dpj", projectWith(""));
    const COM_Scoped factory(QVG_ClassFactory::New());
    const std::string log = printedBy(
        [&window, &factory] { factory->load(window.directory().file("a.dpj"), *window); });
    EXPECT_EQ(log, "no attribute mSavingFile stored in class 14QVG_MainWindow.\n"
                   "no attribute mSavingModelFile stored in class 14QVG_MainWindow.\n"
                   "no attribute mPlotterWindowsFileName stored in class 14QVG_MainWindow.\n");
    EXPECT_EQ(window->getSavingFile(), "mine.dpj");
    EXPECT_EQ(window->getModelFileName(), "parameters.xml");
    EXPECT_EQ(window->getPlotterWindowsFileName(), "savingPlotterWindows.txt");
}

TEST(QVG_MainWindow, EmptyNamesInTheProjectFileAreIgnored)
{
    const TestMainWindow window;
    window->setSavingFile("mine.dpj");
    window.directory().write("a.dpj",
                             projectWith(field("mSavingFile", "") + field("mSavingModelFile", "")
                                         + field("mPlotterWindowsFileName", "")));
    const COM_Scoped factory(QVG_ClassFactory::New());
    EXPECT_EQ(printedBy([&window, &factory] {
                  factory->load(window.directory().file("a.dpj"), *window);
              }),
              "");
    EXPECT_EQ(window->getSavingFile(), "mine.dpj");
    EXPECT_EQ(window->getModelFileName(), "parameters.xml");
    EXPECT_EQ(window->getPlotterWindowsFileName(), "savingPlotterWindows.txt");
}

// ---------------------------------------------------------------- a new project

TEST(QVG_MainWindow, ANewProjectIsADefaultProblemThatIsSavedAtOnce)
{
    const TestMainWindow window;
    EXPECT_EQ(window.createProject(), savingLog(window.path()));
    EXPECT_EQ(window->getSavingPath(), window.path());
    EXPECT_EQ(window->getSavingFile(), "project.dpj");
    ASSERT_NE(window->getProblem(), nullptr);
    EXPECT_EQ(window->getProblem()->getClassName(), "12QV_1DProblem");
    EXPECT_EQ(window->getProblem()->getReferenceCount(), 3) << "application, field and atoms";
    EXPECT_EQ(TestMainWindow::withoutIdentities(window.read("project.dpj")), projectFile);
    EXPECT_EQ(window.read("savingPlotterWindows.txt"), "");
    EXPECT_EQ(namesIn(window.path()), (std::vector<std::string>{"parameters.xml", "project.dpj",
                                                                "savingPlotterWindows.txt"}));
}

TEST(QVG_MainWindow, TheModelFileIsTheProblemAsTheSolverWritesIt)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped writer(QV_LoaderWriter::New());
    const std::string file = window.directory().file("same.xml");
    ASSERT_TRUE(writer->save(file, window.problem()));
    EXPECT_EQ(window.read("parameters.xml"), window.directory().read("same.xml"));
}

TEST(QVG_MainWindow, ANewProjectKeepsNothingOfTheFormerAtoms)
{
    const TestMainWindow window;
    window.createProject();
    const std::string first = window.read("parameters.xml");
    QV_Bloch::setTemperature(7.0);
    QV_Bloch::setLevelsNumber(4);
    window.wave().setWavePackageDuration(1.0);
    window.createProject();
    EXPECT_EQ(QV_Bloch::getTemperature(), 300.0);
    EXPECT_EQ(objects(window.read("parameters.xml")), objects(first));
}

TEST(QVG_MainWindow, ANewProjectClosesTheWindowsOfTheFormerButNotTheDialogThatAsksForIt)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped text(TestTextWindow::New(*window));
    const COM_Scoped below(TestTextWindow::New(*text));
    GUI_NewProjectWindow::open(*window, false);
    EXPECT_EQ(window.children(), (std::vector<std::string>{"Text", "Create a New Project"}));
    EXPECT_EQ(window.createProject(),
              "save the model file " + window.path()
                  + "parameters.xml...\n20GUI_NewProjectWindow\nTypes[0]=COM_Object\n"
                    "Types[1]=GUI_Object\nTypes[2]=GUI_ParentWindow\nTypes[3]=GUI_ChildWindow\n"
                    "Types[4]=GUI_NewProjectWindow\nsave the project file..\nsaving finished.\n");
    EXPECT_EQ(window.children(), (std::vector<std::string>{"Create a New Project"}));
    EXPECT_EQ(text->getParent(), nullptr);
    EXPECT_EQ(below->getParent(), nullptr);
    EXPECT_TRUE(text->mSaved.empty());
}

// ---------------------------------------------------------------- saving

TEST(QVG_MainWindow, WithoutAProjectNothingIsSaved)
{
    const TestMainWindow window;
    const COM_Scoped problem(QV_1DProblem::New());
    TestMainWindow::application().setModel(*problem);
    window->setSavingPath(window.directory().slashed());
    window.directory().write("plotter_window_saving_1.xml", "");
    EXPECT_EQ(printedBy([&window] { window->save(); }), "");
    EXPECT_TRUE(std::filesystem::exists(window.directory().file("plotter_window_saving_1.xml")));
    EXPECT_FALSE(std::filesystem::exists(window.directory().file("parameters.xml")));
}

TEST(QVG_MainWindow, SavingAnUnchangedProjectChangesNoByte)
{
    const TestMainWindow window;
    window.createProject();
    const std::string project = window.read("project.dpj");
    const std::string parameters = window.read("parameters.xml");
    EXPECT_EQ(printedBy([&window] { window->save(); }), savingLog(window.path()));
    EXPECT_EQ(window.read("project.dpj"), project);
    EXPECT_EQ(window.read("parameters.xml"), parameters);
}

TEST(QVG_MainWindow, SavingRemovesTheFilesOfFormerPlotterWindowsAndNoOther)
{
    const TestMainWindow window;
    window.createProject();
    window.write("plotter_window_saving_1.xml", "");
    window.write("plotter_window_saving_2345.xml", "");
    window.write("plotter_window_saving_1.xml~", "");
    window.write("my_plotter_window_saving_1.xml", "");
    window.write("savingPlotterWindows.txt", "plotter_window_saving_1.xml 1 2 3 4\n");
    window->save();
    EXPECT_FALSE(window.exists("plotter_window_saving_1.xml"));
    EXPECT_FALSE(window.exists("plotter_window_saving_2345.xml"));
    EXPECT_TRUE(window.exists("plotter_window_saving_1.xml~"));
    EXPECT_TRUE(window.exists("my_plotter_window_saving_1.xml"));
    EXPECT_EQ(window.read("savingPlotterWindows.txt"), "");
}

TEST(QVG_MainWindow, SavingListsTheWindowsBelowAndSavesTheTextsAmongThem)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped child(GUI_ChildWindow::New(*window));
    const COM_Scoped text(TestTextWindow::New(*child));
    text->setSavingPath("elsewhere/");
    text->setSavingFile("notes.txt");
    EXPECT_EQ(printedBy([&window] { window->save(); }),
              "save the model file " + window.path()
                  + "parameters.xml...\n"
                    "15GUI_ChildWindow\n"
                    "Types[0]=COM_Object\nTypes[1]=GUI_Object\nTypes[2]=GUI_ParentWindow\n"
                    "Types[3]=GUI_ChildWindow\n"
                    "14TestTextWindow\n"
                    "Types[0]=COM_Object\nTypes[1]=GUI_Object\nTypes[2]=GUI_ParentWindow\n"
                    "Types[3]=GUI_ChildWindow\nTypes[4]=GUI_TextWindow\nTypes[5]=TestTextWindow\n"
                    "save the project file..\nsaving finished.\n");
    EXPECT_EQ(text->mSaved, std::vector<std::string>{"elsewhere/notes.txt"});
    EXPECT_EQ(window.read("savingPlotterWindows.txt"), "");
}

TEST(QVG_MainWindow, AListThatCannotBeWrittenEndsTheSavingAfterTheModel)
{
    const TestMainWindow window;
    window.createProject();
    std::filesystem::remove(window.file("project.dpj"));
    std::filesystem::remove(window.file("savingPlotterWindows.txt"));
    std::filesystem::create_directory(window.file("savingPlotterWindows.txt"));
    window.write("plotter_window_saving_1.xml", "");
    const COM_Scoped text(TestTextWindow::New(*window));
    EXPECT_EQ(printedBy([&window] { window->save(); }),
              "save the model file " + window.path() + "parameters.xml...\n");
    EXPECT_FALSE(window.exists("project.dpj"));
    EXPECT_FALSE(window.exists("plotter_window_saving_1.xml"));
    EXPECT_TRUE(text->mSaved.empty());
}

TEST(QVG_MainWindow, SavingIntoAMissingDirectorySaysOnlyThatTheModelCannotBeMade)
{
    const TestMainWindow window;
    window.createProject();
    window->setSavingPath(window.directory().slashed() + "gone/");
    const std::string model = window->getSavingPath() + "parameters.xml";
    EXPECT_EQ(printedBy([&window] { window->save(); }),
              "save the model file " + model + "...\nERROR:" + model + " can not be created !! \n");
}

TEST(QVG_MainWindow, AProjectWithoutAModelHasNoModelFile)
{
    const TestMainWindow window;
    window.createProject();
    std::filesystem::remove(window.file("parameters.xml"));
    TestMainWindow::application().resetModel();
    EXPECT_EQ(printedBy([&window] { window->save(); }), savingLog(window.path()));
    EXPECT_FALSE(window.exists("parameters.xml"));
    EXPECT_TRUE(window.exists("project.dpj"));
}

// Whenever the power fails, each file is the former or the new one, and the project opens.
TEST(QVG_MainWindow, AProjectWhoseSavingIsKilledIsWholeAndOpens)
{
    constexpr int kills = 40;
    constexpr int step = 137; // us
    static constexpr double durations[] = {3e-15, 5e-15};
    const TestMainWindow window;
    window.createProject();
    std::set<std::string> models;
    for (const double duration : durations) {
        window.wave().setWavePackageDuration(duration);
        window->save();
        models.insert(window.read("parameters.xml"));
    }
    ASSERT_EQ(models.size(), 2U);
    const std::string project = window.read("project.dpj");

    for (int i = 0; i < kills; ++i) {
        ASSERT_TRUE(isKilledAfter(i * step,
                                  [&window](int round) {
                                      window.wave().setWavePackageDuration(durations[round % 2]);
                                      window->save();
                                  }))
            << "kill " << i;
        ASSERT_EQ(models.count(window.read("parameters.xml")), 1U) << "kill " << i;
        ASSERT_EQ(window.read("project.dpj"), project) << "kill " << i;
        ASSERT_EQ(window.read("savingPlotterWindows.txt"), "") << "kill " << i;
    }

    window->load(window.file("project.dpj"));
    ASSERT_NE(window->getProblem(), nullptr);
    const double duration = window.wave().getWavePackageDuration();
    EXPECT_TRUE(duration == durations[0] || duration == durations[1]) << duration;
}

// ---------------------------------------------------------------- saving as

TEST(QVG_MainWindow, SavingAsGoesOnInTheNewDirectoryWithResultsAndDescription)
{
    const TestMainWindow window;
    window.createProject();
    const std::string parameters = window.read("parameters.xml");
    window.write("tps.res", "1\n");
    window.write("captors.res", "2\n");
    window.write("projectDescription.txt", "mine");
    window.write("notes.txt", "not copied");
    const std::string path = window.directory().slashed() + "other/";
    std::filesystem::create_directory(path);
    window.wave().setWavePackageDuration(1.0);
    EXPECT_EQ(printedBy([&window, &path] { window->saveAs(path, "other.dpj"); }),
              "copy the files \nsaving the other files \n" + savingLog(path));
    EXPECT_EQ(window->getSavingPath(), path);
    EXPECT_EQ(window->getSavingFile(), "other.dpj");
    EXPECT_EQ(window.directory().read("other/tps.res"), "1\n");
    EXPECT_EQ(window.directory().read("other/captors.res"), "2\n");
    EXPECT_EQ(window.directory().read("other/projectDescription.txt"), "mine");
    EXPECT_FALSE(std::filesystem::exists(path + "notes.txt"));
    EXPECT_TRUE(std::filesystem::exists(path + "other.dpj"));
    EXPECT_NE(window.directory().read("other/parameters.xml"), parameters);
    EXPECT_EQ(window.read("parameters.xml"), parameters) << "the old directory stays as it was";
    EXPECT_EQ(window.read("tps.res"), "1\n");
    EXPECT_EQ(window.read("projectDescription.txt"), "mine");
}

TEST(QVG_MainWindow, SavingAsInTheSameDirectoryKeepsTheResults)
{
    const TestMainWindow window;
    window.createProject();
    window.write("tps.res", "1\n");
    window.write("projectDescription.txt", "mine");
    window->saveAs(window.path(), "again.dpj");
    EXPECT_EQ(window.read("tps.res"), "1\n");
    EXPECT_EQ(window.read("projectDescription.txt"), "mine");
    EXPECT_TRUE(window.exists("again.dpj"));
}

TEST(QVG_MainWindow, SavingAsTakesTheTextsOfTheProjectAlongAndNoOther)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped ours(TestTextWindow::New(*window));
    ours->setSavingPath(window.path());
    ours->setSavingFile("projectDescription.txt");
    const COM_Scoped theirs(TestTextWindow::New(*window));
    theirs->setSavingPath("/elsewhere/");
    theirs->setSavingFile("a.txt");
    const std::string path = window.directory().slashed() + "other/";
    std::filesystem::create_directory(path);
    window->saveAs(path, "project.dpj");
    EXPECT_EQ(ours->mSaved, std::vector<std::string>{path + "projectDescription.txt"});
    EXPECT_EQ(theirs->mSaved, std::vector<std::string>{"/elsewhere/a.txt"});
}

// ---------------------------------------------------------------- loading

TEST(QVG_MainWindow, AProjectIsReadWhereItLiesNow)
{
    const TestMainWindow window;
    window.createProject();
    window.wave().setWavePackageDuration(3e-15);
    window->save();
    const std::string moved = window.directory().slashed() + "moved/";
    std::filesystem::rename(window.path(), moved);
    window.wave().setWavePackageDuration(1.0);
    const COM_Scoped former(TestTextWindow::New(*window));
    EXPECT_EQ(printedBy([&window, &moved] { window->load(moved + "project.dpj"); }),
              "close all opening child windows...\n loading project file name " + moved
                  + "project.dpj\nload the model file:" + moved + "parameters.xml\n"
                  + readingLog(moved + "parameters.xml") + "loading finished.\n");
    EXPECT_EQ(window->getSavingPath(), moved);
    EXPECT_EQ(window->getSavingFile(), "project.dpj");
    EXPECT_EQ(window.wave().getWavePackageDuration(), 3e-15);
    EXPECT_EQ(former->getParent(), nullptr);
    EXPECT_EQ(window.children(), std::vector<std::string>{"Options Window"});
}

TEST(QVG_MainWindow, LoadingSavesNoText)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped text(TestTextWindow::New(*window));
    window->load(window.file("project.dpj"));
    EXPECT_TRUE(text->mSaved.empty());
}

TEST(QVG_MainWindow, AProjectFileRenamedByHandIsSavedUnderItsOldName)
{
    const TestMainWindow window;
    window.createProject();
    std::filesystem::rename(window.file("project.dpj"), window.file("renamed.dpj"));
    window->load(window.file("renamed.dpj"));
    EXPECT_EQ(window->getSavingFile(), "project.dpj");
}

TEST(QVG_MainWindow, AMissingProjectFileLeavesTheNamesAndTheModelIsReadAllTheSame)
{
    const TestMainWindow window;
    window.createProject();
    window.wave().setWavePackageDuration(3e-15);
    window->save();
    window.wave().setWavePackageDuration(1.0);
    const std::string file = window.file("none.dpj");
    EXPECT_EQ(printedBy([&window, &file] { window->load(file); }),
              "close all opening child windows...\n loading project file name " + file
                  + "\nERROR:" + file
                  + " can not be opened !! \nload the model file:" + window.file("parameters.xml")
                  + "\n" + readingLog(window.file("parameters.xml")) + "loading finished.\n");
    EXPECT_EQ(window->getSavingFile(), "none.dpj");
    EXPECT_EQ(window.wave().getWavePackageDuration(), 3e-15);
}

TEST(QVG_MainWindow, AFileOfAnotherClassLeavesTheNames)
{
    const TestMainWindow window;
    window.createProject();
    window.write("foreign.dpj", projectWith(field("mSavingFile", "b.dpj"), "14GUI_RootWindow"));
    window->load(window.file("foreign.dpj"));
    EXPECT_EQ(window->getSavingFile(), "foreign.dpj");
}

TEST(QVG_MainWindow, TheModelIsReadFromTheFileThatTheProjectNames)
{
    const TestMainWindow window;
    window.createProject();
    window.wave().setWavePackageDuration(3e-15);
    window->saveModelFile(window.file("mine.xml"));
    window.write("mine.dpj", projectWith(field("mSavingFile", "mine.dpj")
                                         + field("mSavingModelFile", "mine.xml")
                                         + field("mPlotterWindowsFileName", "mine.txt")));
    window->load(window.file("mine.dpj"));
    EXPECT_EQ(window.wave().getWavePackageDuration(), 3e-15);
    window->save();
    EXPECT_TRUE(window.exists("mine.txt"));
}

// ---------------------------------------------------------------- plots

TEST(QVG_MainWindow, PlotsAreSavedUnderTheirNumbersWithPlaceAndSize)
{
    const TestMainWindow window;
    window.createProject();
    const GUI2D_PlotterWindow& first = addPlot(window, "first", QRect(10, 20, 400, 300));
    const COM_Scoped other(GUI_ChildWindow::New(*window));
    const GUI2D_PlotterWindow& second = addPlot(window, "second", QRect(-5, 40, 640, 480));
    const std::string firstName = fileOf(first);
    const std::string secondName = fileOf(second);
    const std::string log = printedBy([&window] { window->save(); });
    EXPECT_NE(log.find("\nsave the plotter window in " + firstName + "...\n"), std::string::npos);
    EXPECT_NE(log.find("\nsave the plotter window in " + secondName + "...\n"), std::string::npos);
    EXPECT_LT(log.find(secondName), log.find("save the project file..\n"));
    EXPECT_EQ(window.read("savingPlotterWindows.txt"),
              firstName + " 10 20 400 300\n" + secondName + " -5 40 640 480\n");
    EXPECT_GT(GUI_ParentWindow::getId(second), GUI_ParentWindow::getId(first) + 1);
    EXPECT_EQ(first.getSavingPath(), window.path());
    EXPECT_EQ(first.getSavingFile(), firstName);
    EXPECT_TRUE(window.exists(firstName));
    EXPECT_TRUE(window.exists(secondName));
}

TEST(QVG_MainWindow, PlotsComeBackWithTheProjectWhereverItLies)
{
    const TestMainWindow window;
    window.createProject();
    addPlot(window, "first", QRect(10, 20, 400, 300));
    addPlot(window, "second", QRect(30, 40, 640, 480));
    window->save();
    window.createOtherProject();
    EXPECT_TRUE(window.children().empty());
    const std::string moved = window.directory().slashed() + "moved/";
    std::filesystem::rename(window.path(), moved);
    const std::string list = window.directory().read("moved/savingPlotterWindows.txt");
    const std::string log = printedBy([&] { window->load(moved + "project.dpj"); });
    EXPECT_EQ(log.substr(log.find("loading finished.\n")),
              "loading finished.\ncreate the plotter window corresponding to file "
                  + list.substr(0, list.find(' '))
                  + "...\ncreate the plotter window corresponding to file "
                  + list.substr(list.find('\n') + 1, list.find(' ')) + "...\n");
    ASSERT_EQ(window.children(),
              (std::vector<std::string>{"Options Window", "Quorvex Visualization",
                                        "Quorvex Visualization"}));
    const GUI2D_PlotterWindow& second = *childrenOf<GUI2D_PlotterWindow>(*window)[1];
    EXPECT_TRUE(second.isVisible());
    EXPECT_FALSE(second.isContainer());
    EXPECT_EQ(second.pos(), QPoint(30, 40));
    EXPECT_EQ(second.size(), QSize(640, 480));
    ASSERT_EQ(second.getPlotsNumber(), 1UL);
    const GUI2D_Curve& curve = second.getPlotter()->getCurves()[0];
    EXPECT_EQ(curve.getName(), "second");
    EXPECT_EQ(curve.getYValues()->toString(), "(3.000000e+00,-1.000000e+00)");
}

TEST(QVG_MainWindow, PlotsThatCameBackAreSavedUnderTheirNewNumbers)
{
    const TestMainWindow window;
    window.createProject();
    const std::string former = fileOf(addPlot(window, "first", QRect(10, 20, 400, 300)));
    window->save();
    window->load(window.file("project.dpj"));
    EXPECT_TRUE(window.exists(former));
    const std::string present = fileOf(*window->findForm<GUI2D_PlotterWindow>());
    ASSERT_NE(present, former);
    window->save();
    EXPECT_EQ(window.read("savingPlotterWindows.txt"), present + " 10 20 400 300\n");
    EXPECT_TRUE(window.exists(present));
    EXPECT_FALSE(window.exists(former));
}

TEST(QVG_MainWindow, PlotsThatAreClosedLeaveTheProjectWithTheNextSaving)
{
    const TestMainWindow window;
    window.createProject();
    GUI2D_PlotterWindow& plot = addPlot(window, "first", QRect(10, 20, 400, 300));
    window->save();
    const std::string name = fileOf(plot);
    plot.close(false);
    window->save();
    EXPECT_FALSE(window.exists(name));
    EXPECT_EQ(window.read("savingPlotterWindows.txt"), "");
}

TEST(QVG_MainWindow, SavingAsTakesThePlotsAlongAndLeavesTheFormerOnes)
{
    const TestMainWindow window;
    window.createProject();
    const GUI2D_PlotterWindow& plot = addPlot(window, "first", QRect(10, 20, 400, 300));
    window->save();
    const std::string other = window.directory().slashed() + "elsewhere/";
    std::filesystem::create_directory(other);
    window->saveAs(other, "project.dpj");
    EXPECT_TRUE(window.exists(fileOf(plot)));
    EXPECT_TRUE(std::filesystem::exists(other + fileOf(plot)));
    EXPECT_EQ(window.directory().read("elsewhere/savingPlotterWindows.txt"),
              window.read("savingPlotterWindows.txt"));
}

TEST(QVG_MainWindow, PlotsWhoseFilesAreMissingOrForeignStayClosed)
{
    const TestMainWindow window;
    window.createProject();
    window.write("plotter_window_saving_7.xml", "");
    window.write("savingPlotterWindows.txt", "plotter_window_saving_7.xml 10 20 300 200\n"
                                             "plotter_window_saving_8.xml 10 20 300 200\n"
                                             "parameters.xml 10 20 300 200\n");
    const std::string parameters = window.read("parameters.xml");
    const std::string log = printedBy([&] { window->load(window.file("project.dpj")); });
    EXPECT_NE(log.find("create the plotter window corresponding to file parameters.xml...\n"),
              std::string::npos);
    EXPECT_EQ(window.children(), std::vector<std::string>{"Options Window"});
    EXPECT_TRUE(window.exists("plotter_window_saving_7.xml"));
    EXPECT_EQ(window.read("parameters.xml"), parameters);
}

TEST(QVG_MainWindow, TheListIsReadUpToItsFirstDamagedLine)
{
    const TestMainWindow window;
    window.createProject();
    const std::string name = fileOf(addPlot(window, "first", QRect(10, 20, 400, 300)));
    window->save();
    window.write("savingPlotterWindows.txt",
                 name + " 10 20 2000000000 -7\n" + name + " 1 2 x 4\n" + name + " 10 20 300 200\n");
    window->load(window.file("project.dpj"));
    ASSERT_EQ(window.children(),
              (std::vector<std::string>{"Options Window", "Quorvex Visualization"}));
    const auto* const plot = window->findForm<GUI2D_PlotterWindow>();
    EXPECT_LE(plot->width(), plot->screen()->virtualSize().width());
    EXPECT_GT(plot->height(), 0);
}

// Whenever the power fails, a plot is missing or whole, and the list is the former or the new one.
TEST(QVG_MainWindow, APlotWhoseSavingIsKilledIsMissingOrWhole)
{
    constexpr int kills = 20;
    constexpr int step = 171; // us
    const TestMainWindow window;
    window.createProject();
    const GUI2D_PlotterWindow& plot = addPlot(window, "first", QRect(10, 20, 400, 300));
    window->save();
    const std::string name = fileOf(plot);
    const std::string whole = window.read(name);
    for (int i = 0; i < kills; ++i) {
        ASSERT_TRUE(isKilledAfter(i * step, [&window](int /*round*/) { window->save(); }))
            << "kill " << i;
        ASSERT_EQ(window.read("savingPlotterWindows.txt"), name + " 10 20 400 300\n")
            << "kill " << i;
        if (window.exists(name)) {
            ASSERT_EQ(window.read(name), whole) << "kill " << i;
        }
    }
}

TEST(QVG_MainWindow, AProjectWithoutListOpens)
{
    const TestMainWindow window;
    window.createProject();
    std::filesystem::remove(window.file("savingPlotterWindows.txt"));
    window->load(window.file("project.dpj"));
    EXPECT_EQ(window.children(), std::vector<std::string>{"Options Window"});
}

TEST(QVG_MainWindow, LoadingOpensTheParametersAfterAChangeOfTheLanguageToo)
{
    const TestMainWindow window;
    window.createProject();
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    window->load(window.file("project.dpj"));
    EXPECT_EQ(window.children(), std::vector<std::string>{"Param\303\250tres"});
}

TEST(QVG_MainWindow, AModelFileReplacesTheModel)
{
    const TestMainWindow window;
    window.createProject();
    const unsigned long former = window.problem().getIdentityNumber();
    window.wave().setWavePackageDuration(3e-15);
    window->saveModelFile(window.file("mine.xml"));
    EXPECT_TRUE(window->loadModelFile(window.file("mine.xml")));
    EXPECT_NE(window.problem().getIdentityNumber(), former);
    EXPECT_EQ(window.wave().getWavePackageDuration(), 3e-15);
}

TEST(QVG_MainWindow, AMissingModelFileGivesADefaultProblemThatKeepsNothing)
{
    const TestMainWindow window;
    window.createProject();
    const std::string first = window.read("parameters.xml");
    QV_Bloch::setTemperature(7.0);
    window.wave().setWavePackageDuration(1.0);
    EXPECT_FALSE(window->loadModelFile(window.file("none.xml")));
    window->saveModelFile(window.file("again.xml"));
    EXPECT_EQ(objects(window.read("again.xml")), objects(first));
}

TEST(QVG_MainWindow, AModelFileThatHoldsNoProblemGivesADefaultOne)
{
    const TestMainWindow window;
    window.createProject();
    window.wave().setWavePackageDuration(1.0);
    EXPECT_FALSE(window->loadModelFile(window.file("project.dpj")));
    EXPECT_NE(window.wave().getWavePackageDuration(), 1.0);
}

TEST(QVG_MainWindow, ADamagedModelFileGivesAProblemInAnyCase)
{
    const TestMainWindow window;
    window.createProject();
    const std::string whole = window.read("parameters.xml");
    for (std::size_t size = 0; size < whole.size(); size += whole.size() / 23) {
        window.write("parameters.xml", whole.substr(0, size));
        window->load(window.file("project.dpj"));
        EXPECT_NE(window->getProblem(), nullptr) << size;
    }
}

TEST(QVG_MainWindow, AProjectIsTheSameAfterLoadingAndSaving)
{
    const TestMainWindow window;
    window.createSmallProject();
    QV_Bloch::setTemperature(77.0);
    window->save();
    const std::string parameters = window.read("parameters.xml");
    const std::string project = window.read("project.dpj");
    window.createOtherProject();
    window->load(window.file("project.dpj"));
    EXPECT_EQ(QV_Bloch::getTemperature(), 77.0);
    EXPECT_EQ(window.problem().getMaxTimeStepsNumber(), 2000UL) << "not part of a project";
    window->save();
    EXPECT_EQ(objects(window.read("parameters.xml")), objects(parameters));
    EXPECT_EQ(window.read("project.dpj"), project);
}
