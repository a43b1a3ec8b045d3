#pragma once
#include <filesystem>
#include <string>

class QV_Problem;

/// A project on disk: a directory with a project file, which names the parameters file and the list of
/// plotter windows. The desktop program opens what is written here.
class RunProject
{
public:
    /// True when the directory holds a project file or a parameters file of the usual name.
    static bool isProject(const std::filesystem::path& directory);
    /// The parameters file of the project: the one that "project.dpj", or else the only *.dpj, names, or else
    /// "parameters.xml". Throws RunError when there is a choice, or nothing to choose.
    static std::filesystem::path parametersFile(const std::filesystem::path& directory);
    /// Writes a project with no plotter window, making the directory if need be. Throws RunError when that
    /// fails, or when the directory holds a project already.
    static void write(const std::filesystem::path& directory, QV_Problem& problem);
};
