#pragma once
#include "common/COM_Object.h"

#include <string>
#include <vector>

class GUI_ParentWindow;

/// Files of a directory, and the dialogs that ask for a file or a directory.
///
/// A filter holds one or more patterns with "*" and "?", separated by blanks or ";"; an empty one lets all
/// names pass. It stands for plain files, hidden ones excepted, and tells capitals from small letters. An
/// empty path stands for no directory at all.
class GUI_File : public COM_Object
{
    COM_CLASS(GUI_File)
public:
    /// Appends the names that match, in alphabetical order.
    static void getFiles(const std::string& path, const std::string& filter,
                         std::vector<std::string>& files);
    /// Files that cannot be removed stay, without a message.
    static void removeFiles(const std::string& path, const std::string& filter);
    /// Copies under the same names, over what is there. A file is never copied onto itself; one that cannot
    /// be copied is passed over, without a message.
    static void copyFiles(const std::string& srcPath, const std::string& filter,
                          const std::string& destPath);
    /// The class of the root object that a file describes. Empty, without a message, for a file that cannot
    /// be read or is none of ours.
    static std::string getRootClassName(const std::string& fileName);

    // The dialogs start at `oldPath`, a directory or a file; one that does not exist is passed over. `text`
    // is the label of the name's field, unless it is empty or "...". They give "" when the user cancels.

    /// A file that exists, or, unless `mustExist`, the name of one that may come to be.
    static std::string selectFile(GUI_ParentWindow* parent, const std::string& oldPath,
                                  const std::string& filter, const std::string& title,
                                  const std::string& text, bool mustExist = true);
    /// A file that is to be written. Asks before one that exists is taken.
    static std::string selectSavingFile(GUI_ParentWindow* parent, const std::string& oldPath,
                                        const std::string& filter, const std::string& title,
                                        const std::string& text);
    /// True where there is no such file, or the user allows to replace it.
    static bool isReplacementAllowed(GUI_ParentWindow* parent, const std::string& fileName);
    /// A directory, with a slash at its end.
    static std::string selectPath(GUI_ParentWindow* parent, const std::string& oldPath,
                                  const std::string& title, const std::string& text);

protected:
    GUI_File();
    ~GUI_File() override = default;
};
