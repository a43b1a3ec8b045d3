#include "quorvexRun/RunProject.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Scoped.h"
#include "metaModel/MM_ClassFactory.h"
#include "metaModel/MM_Parser.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_Problem.h"
#include "quorvexRun/RunError.h"

#include <algorithm>
#include <vector>

namespace {

constexpr const char* projectFile = "project.dpj";
constexpr const char* usualParametersFile = "parameters.xml";
constexpr const char* plotterWindowsFile = "savingPlotterWindows.txt";
constexpr const char* windowClass =
    "14QVG_MainWindow"; ///< The run-time name of the desktop's main window.

std::vector<std::filesystem::path> projectFiles(const std::filesystem::path& directory)
{
    std::vector<std::filesystem::path> files;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(directory, ignored)) {
        if (entry.path().extension() == ".dpj") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

bool RunProject::isProject(const std::filesystem::path& directory)
{
    std::error_code ignored;
    return std::filesystem::exists(directory / usualParametersFile, ignored)
           || !projectFiles(directory).empty();
}

std::filesystem::path RunProject::parametersFile(const std::filesystem::path& directory)
{
    const std::vector<std::filesystem::path> files = projectFiles(directory);
    if (files.empty()) {
        return directory / usualParametersFile;
    }
    const bool hasUsual =
        std::find(files.begin(), files.end(), directory / projectFile) != files.end();
    if (!hasUsual && files.size() > 1) {
        throw RunError(directory.string()
                       + " holds several project files and none is project.dpj; give the "
                         "parameters file itself");
    }
    const std::filesystem::path file = hasUsual ? directory / projectFile : files.front();
    std::string name = usualParametersFile;
    const COM_Scoped factory(MM_ClassFactory::New());
    MM_Parser::parseXMLMetaModelFile(file.string(), *factory);
    const MM_Class* const window = factory->getRootMetaClass();
    const MM_Field* const field =
        window != nullptr ? window->getFromMetaFields("mSavingModelFile") : nullptr;
    if (field == nullptr) {
        throw RunError(file.string() + " is no project file: it does not name the parameters file");
    }
    field->getFromMetaValue(name);
    return directory / name;
}

void RunProject::write(const std::filesystem::path& directory, QV_Problem& problem)
{
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error) {
        throw RunError("the directory " + directory.string()
                       + " cannot be made: " + error.message());
    }
    if (isProject(directory)) {
        throw RunError(directory.string() + " holds a project already; give a new directory");
    }
    const COM_Scoped package(MM_ClassFactory::New());
    const COM_Scoped window(MM_Class::New());
    window->setName(windowClass);
    window->setId(std::string(windowClass) + "@1");
    window->addAttributeToMetaFields("mSavingFile", std::string(projectFile));
    window->addAttributeToMetaFields("mSavingModelFile", std::string(usualParametersFile));
    window->addAttributeToMetaFields("mPlotterWindowsFileName", std::string(plotterWindowsFile));
    package->setRootMetaClass(*window);

    problem.setSavingPath("./");
    const COM_Scoped writer(QV_LoaderWriter::New());
    const bool isSaved = writer->save((directory / usualParametersFile).string(), problem);
    COM_FileWriter windows((directory / plotterWindowsFile).string());
    const bool isWritten =
        isSaved && windows.isOpen() && windows.commit()
        && MM_Parser::generateXMLMetaModelFile((directory / projectFile).string(), *package) == 0;
    if (!isWritten) {
        // What has been written of it is not a project.
        std::filesystem::remove(directory / usualParametersFile, error);
        std::filesystem::remove(directory / projectFile, error);
        throw RunError("the project in " + directory.string() + " could not be written");
    }
}
