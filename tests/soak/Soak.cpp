// quorvex_soak ACTS [SEED]
//
// Random acts on all windows of the desktop program, in as many processes as it takes: each plays until its share
// of acts is done or until the program ends, which the exit entry, a closed main window, the arithmetic trap and
// a run that cannot write its files do by design. Any other end, a hang, what a sanitizer finds, and an
// object that the counts refuse to delete make the soak fail; it names the seed.
#include "common/COM_Scoped.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_RootWindow.h"
#include "quorvex/QV_Problem.h"
#include "quorvexGui/QVG_Application.h"
#include "quorvexGui/QVG_VisualizationRootPanel.h"
#include "quorvexGui/QVG_VisualizationWindow.h"
#include "RandomUser.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <new>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int actsOfAProcess = 400;
constexpr unsigned patience = 120; ///< Seconds that one act may take.

void runShortly(QV_Problem& problem)
{
    problem.setMaxTimeStepsNumber(150);
    problem.setSavingPath("./");
    problem.run();
}

void visualize(GUI_RootWindow& main)
{
    const COM_Scoped window(QVG_VisualizationWindow::New(main));
    window->show();
    if (auto* const panel = dynamic_cast<QVG_VisualizationRootPanel*>(window->getPanel())) {
        panel->visualize();
    }
}

/// Plays in this process. What the program's entry returns.
int play(unsigned seed, int acts, int& actsDone)
{
    alarm(patience);
    std::string name = "quorvex";
    char* arguments[] = {name.data(), nullptr};
    QVG_Application* const application = QVG_Application::New(1, arguments);
    if (seed % 4 != 0) { // else the user has to make a project himself
        application->getMainWindow()->createFile("./", "soak.dpj");
    }
    if (seed % 2 == 1) { // else there are no results before the user has run something
        runShortly(dynamic_cast<QV_Problem&>(*application->getModel()));
        application->getMainWindow()->getMenu()->updateStateMenus();
        visualize(*application->getMainWindow());
    }
    RandomUser user(seed, acts, [&actsDone] {
        ++actsDone;
        alarm(patience);
    });
    application->run();
    return EXIT_SUCCESS;
}

/// How a process ended, empty where it may end so.
std::string fault(int status, const std::string& printed, const std::string& errors)
{
    if (printed.find("Trying to delete object") != std::string::npos) {
        return "an object was deleted that is in use";
    }
    // The trap prints what it is before it ends the process.
    if (WIFSIGNALED(status) && WTERMSIG(status) != SIGFPE) {
        return std::string("signal ") + strsignal(WTERMSIG(status));
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) != EXIT_SUCCESS) {
        return "status " + std::to_string(WEXITSTATUS(status));
    }
    if (errors.find("Sanitizer") != std::string::npos
        || errors.find("runtime error") != std::string::npos) {
        return "what a sanitizer found";
    }
    return "";
}

/// The text of a file without what the windowless platform says at each resizing.
std::string read(const char* name)
{
    std::string text;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);) {
        if (line.find("propagateSizeHints") == std::string::npos) {
            text += line + "\n";
        }
    }
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << "usage: " << argv[0] << " ACTS [SEED]\n";
        return 2;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const int acts = std::atoi(argv[1]);
    unsigned seed = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;
    void* const shared =
        mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        std::perror("mmap");
        return EXIT_FAILURE;
    }
    int& actsDone = *new (shared) int(0);
    int processes = 0;
    int idle = 0;
    for (int all = 0; all < acts; ++seed, ++processes) {
        const TestDirectory directory;
        const WorkingDirectory working(directory.path());
        std::filesystem::create_directory("sub");
        actsDone = 0;
        const pid_t player = fork();
        if (player == 0) {
            if (std::freopen("printed.log", "w", stdout) == nullptr
                || std::freopen("errors.log", "w", stderr) == nullptr) {
                std::_Exit(EXIT_FAILURE);
            }
            std::exit(play(seed, std::min(acts - all, actsOfAProcess), actsDone));
        }
        int status = 0;
        waitpid(player, &status, 0);
        const std::string errors = read("errors.log");
        const std::string found = fault(status, read("printed.log"), errors);
        all += actsDone;
        std::cout << "seed " << seed << ": " << actsDone << " acts, " << all << " in all"
                  << std::endl;
        if (!found.empty()) {
            std::cout << errors << "\nFAILED with seed " << seed << " after " << actsDone
                      << " acts: " << found << std::endl;
            return EXIT_FAILURE;
        }
        idle = actsDone == 0 ? idle + 1 : 0;
        if (idle > 3) {
            std::cout << "FAILED: nothing happens any more\n";
            return EXIT_FAILURE;
        }
    }
    std::cout << acts << " acts in " << processes << " processes" << std::endl;
    return EXIT_SUCCESS;
}
