// How long a user waits for a window. The platform is the one without windows unless QT_QPA_PLATFORM says otherwise.
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_BaseDirectory.h"
#include "gui/GUI_Component.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvexGui/QVG_Application.h"
#include "quorvexGui/QVG_MainWindow.h"

#include <QEventLoop>
#include <QTimer>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr const char* startOnly = "--start-only";

/// As the program's entry does it, in French.
QVG_Application* start(int argc, char** argv)
{
    const std::string data = GUI_BaseDirectory::find();
    GUI_Application::TRANSLATOR_PATH = data + "/linguist/";
    GUI_Action::ICONS_PATH = data + "/icons/";
    GUI_Component::ICONS_PATH = GUI_Action::ICONS_PATH;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    GUI_Object::setDictionaryFile(data + "/linguist/dictionary.xml");
    return QVG_Application::New(argc, argv);
}

/// Lets the event loop run until what is shown has been painted.
void waitUntilPainted()
{
    QEventLoop loop;
    // Timers without delay come when no other event waits.
    QTimer::singleShot(0, &loop, [&loop] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
    loop.exec();
}

/// From the start of a process to the main window on the screen, and the way out again.
void startToMainWindow(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        const pid_t process = fork();
        if (process == 0) {
            execl("/proc/self/exe", "quorvex", startOnly, static_cast<char*>(nullptr));
            std::_Exit(EXIT_FAILURE);
        }
        int status = 0;
        waitpid(process, &status, 0);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(time.count());
        if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS) {
            state.SkipWithError("the process failed");
            return;
        }
    }
}
BENCHMARK(startToMainWindow)->UseManualTime()->Unit(benchmark::kMillisecond);

/// A project is loaded, which opens its forms: four levels, and so many systems.
void loadOpensForms(benchmark::State& state)
{
    auto& application = dynamic_cast<GUI_Application&>(*qApp);
    auto& window = dynamic_cast<QVG_MainWindow&>(*application.getMainWindow());
    const std::string path = std::filesystem::temp_directory_path() / "quorvex-bench";
    std::filesystem::create_directories(path);
    std::cout.setstate(std::ios::failbit); // the steps of the project are logged there
    window.createFile(path + "/", "project.dpj");
    QV_Bloch::setLevelsNumber(4);
    for (long i = 1; i < state.range(0); ++i) {
        const COM_Scoped system(QV_Bloch::New());
        window.getProblem()->addToBlochEquations(*system);
    }
    window.save();
    for ([[maybe_unused]] auto _ : state) {
        window.load(path + "/", "project.dpj");
        waitUntilPainted();
    }
    window.closeChildrenWindow();
    std::cout.clear();
    std::filesystem::remove_all(path);
}
BENCHMARK(loadOpensForms)->Arg(1)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    if (argc > 1 && std::strcmp(argv[1], startOnly) == 0) {
        const COM_Scoped application(start(1, argv));
        application->getMainWindow()->show();
        waitUntilPainted();
        return application->getMainWindow()->isVisible() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    benchmark::Initialize(&argc, argv);
    const COM_Scoped application(start(1, argv));
    application->getMainWindow()->show();
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
