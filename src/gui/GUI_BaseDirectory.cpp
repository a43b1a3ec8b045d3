#include "gui/GUI_BaseDirectory.h"

#include <filesystem>

std::string GUI_BaseDirectory::find()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path installed = program.parent_path() / QUORVEX_DATA_RELATIVE;
    const std::filesystem::path sources = QUORVEX_DATA_SOURCE;
    const bool isBuilt = !std::filesystem::is_directory(installed, error)
                         && std::filesystem::is_directory(sources, error);
    return ((isBuilt ? sources : installed) / "").lexically_normal().string();
}
