#include "gui/GUI_BaseDirectory.h"

#include <filesystem>

std::string GUI_BaseDirectory::find()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::string installed =
        (program.parent_path() / QUORVEX_DATA_RELATIVE).lexically_normal().string();
    for (const std::string& directory : {installed, std::string(QUORVEX_DATA_SOURCE)}) {
        if (std::filesystem::is_directory(directory, error)) {
            return directory;
        }
    }
    return installed;
}
