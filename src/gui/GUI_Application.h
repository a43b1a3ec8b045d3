#pragma once
#include "gui/GUI_Object.h"
#include "metaModel/MM_Object.h"

#include <QApplication>

#include <string>

class GUI_RootWindow;
class QTranslator;

/// The application: main window, model, translator of Qt's own texts, and the paths that all windows share.
/// As a persistent object it is the preferences file.
///
/// Numbers keep the decimal point of the "C" locale whatever the desktop's language is.
class GUI_Application : public QApplication, public virtual GUI_Object, public virtual MM_Object
{
    COM_CLASS(GUI_Application)
public:
    using GUI_Object::translate; // not Qt's

    // Paths end in a slash. They are set before the first window is made.
    static std::string TRANSLATOR_FILE; ///< Beginning of the name of the file with Qt's own texts.
    static std::string TRANSLATOR_PATH;
    static std::string DICTIONARY_FILE; ///< A path, or a name in `TRANSLATOR_PATH`.
    static std::string DOC_FILE;
    static std::string DOC_ABOUT;
    static std::string DOC_PATH;
    static std::string WORKING_PATH;

protected:
    ~GUI_Application() override;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

public:
    // Two-way link with GUI_RootWindow::setApplication.
    virtual void setMainWindow(GUI_RootWindow& window);
    /// Null is `resetMainWindow`.
    virtual void setMainWindow(GUI_RootWindow* window);
    /// Shows the main window, runs the event loop, and gives up the caller's reference to the application.
    virtual void run();
    /// Takes over the preferences. A dictionary that cannot be read leaves the words as they are.
    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;

    void resetMainWindow();
    GUI_RootWindow* getMainWindow() const { return mMainWindow; }

    void setModel(COM_Object& model) { setModel(&model); }
    /// Null is `resetModel`.
    void setModel(COM_Object* model) { associate(mModel, model); }
    void resetModel() { dissociate(mModel); }
    COM_Object* getModel() const { return mModel; }

    /// Reads the preferences and remembers the file, also one that is yet to be written.
    void loadPreferences(const std::string& file);
    void savePreferences() const { savePreferences(mPreferencesFile); }
    /// Does not write over a file whose root object is of another class.
    void savePreferences(const std::string& file) const;
    const std::string& getPreferencesFile() const { return mPreferencesFile; }

    /// Loads the words of a dictionary: a path, or a name in `TRANSLATOR_PATH`.
    static void chooseDictionary(const std::string& file);

    /// Installs Qt's own texts in the language of the dictionary.
    void updateTranslator();
    /// Shows the text about the program. Without its file the box is empty.
    void about();

protected:
    GUI_Application(int argc, char** argv);
    /// At once: nothing outlives the application.
    void destroy() const override;

private:
    QTranslator* mTranslator = nullptr;    ///< Owned.
    std::string mPreferencesFile;          ///< Empty until preferences were asked for.
    GUI_RootWindow* mMainWindow = nullptr; ///< Counted.
    COM_Object* mModel = nullptr;          ///< Counted.
};
