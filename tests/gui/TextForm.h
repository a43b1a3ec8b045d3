#pragma once
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_TextEdit.h"
#include "gui/GUI_TextWindow.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <QTest>

#include <gtest/gtest.h>

#include <string>

/// A shown text window below a root window, in English, in a directory of its own that is the working
/// directory meanwhile.
class TextForm
{
public:
    explicit TextForm(bool isEditable = true, bool isLoadFileShown = true)
        : mWindow(GUI_TextWindow::New(*mRoot, isEditable, "Text Window", isLoadFileShown))
    {
        mWindow->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }
    TextForm(const TextForm&) = delete;
    TextForm& operator=(const TextForm&) = delete;

    GUI_TextWindow& operator*() const { return *mWindow; }
    GUI_TextWindow* operator->() const { return mWindow.get(); }
    ProjectRootWindow& root() const { return *mRoot; }
    GUI_TextEdit& text() const { return *mWindow->getTextEdit(); }
    const TestDirectory& directory() const { return mDirectory; }

    /// An entry of "&File" (0), "&Edit" (1) or "&Format" (2).
    GUI_Action& action(int menu, int index) const
    {
        return *mWindow->getMenu()->getMenu(menu)->getAction(index);
    }
    /// Chooses it.
    void choose(int menu, int index) const { action(menu, index).trigger(); }
    /// The places of the formats that are marked.
    std::vector<int> marks() const
    {
        std::vector<int> found;
        for (int i = 0; i < 6; ++i) {
            if (action(2, i).isChecked()) {
                found.push_back(i);
            }
        }
        return found;
    }
    void type(const char* letters) const { QTest::keyClicks(&text(), letters); }
    /// Selects the characters from `anchor` to `end`, at which the cursor stands.
    void select(int anchor, int end) const
    {
        QTextCursor cursor = text().textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        text().setTextCursor(cursor);
    }
    /// Loads a file with that text.
    void load(const std::string& bytes) const { mWindow->load(mDirectory.write("a.txt", bytes)); }
    /// What saving the window makes of its file.
    std::string saved() const
    {
        mWindow->save();
        return mDirectory.read(mWindow->getSavingFile());
    }

private:
    TestDirectory mDirectory;
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
    ProjectRoot mRoot;
    COM_Scoped<GUI_TextWindow> mWindow;
};
