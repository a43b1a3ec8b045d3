#include "quorvexPlot/PlotProgram.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_BaseDirectory.h"
#include "quorvexPlot/PlotError.h"
#include "quorvexPlot/PlotPicture.h"
#include "quorvexPlot/PlotResults.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

QtMessageHandler usualHandler = nullptr;

/// Servers have no such directory, and nothing is kept there.
void passOver(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set")) {
        usualHandler(type, context, text);
    }
}

} // namespace

int PlotProgram::main(int argc, char** argv)
{
    // A file that becomes larger than the user may write is a failed write, not the end of the process.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const PlotOptions options = PlotOptions::parse(argc, argv);
        if (options.mIsHelp) {
            std::cout << PlotOptions::helpText();
            return EXIT_SUCCESS;
        }
        if (options.mIsVersion) {
            std::cout << "quorvex-plot " << QUORVEX_VERSION << "\n";
            return EXIT_SUCCESS;
        }
        return PlotProgram(options).perform(argv[0]);
    } catch (const PlotError& error) {
        std::cerr << "quorvex-plot: " << error.what() << "\n";
        return BAD_INPUT;
    }
}

void PlotProgram::prepareApplication()
{
    // Qt draws in memory. A platform that the user has chosen is kept.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // The scale of a desktop would make more pixels of those asked for.
    for (const char* const scale : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS"}) {
        qunsetenv(scale);
    }
    usualHandler = qInstallMessageHandler(passOver);
    const bool isFrench = std::string_view(QUORVEX_LANG).find("fr") != std::string_view::npos;
    GUI_Object::setLang(isFrench ? DICO_Dictionary::LANG_FR : DICO_Dictionary::LANG_EN);
    GUI_Object::setDictionaryFile(GUI_BaseDirectory::find() + "/linguist/dictionary.xml");
}

int PlotProgram::perform(char* programName) const
{
    const PlotResults results(mOptions);
    for (const std::string& remark : results.remarks()) {
        std::cerr << "note: " << remark << "\n";
    }
    prepareApplication();
    // All words of the command line are ours.
    char* words[] = {programName, nullptr};
    const COM_Scoped application(GUI_Application::New(1, words));
    const QByteArray picture = PlotPicture::contents(results, mOptions);
    COM_FileWriter file(mOptions.mOutput);
    file.stream().write(picture.constData(), picture.size());
    if (picture.isEmpty() || !file.commit()) {
        std::cerr << "quorvex-plot: the picture " << mOptions.mOutput << " cannot be written\n";
        return FAILED;
    }
    return EXIT_SUCCESS;
}
