#pragma once
#include "common/COM_Object.h"

#include <QString>

#include <string>

class DICO_Dictionary;
class QWidget;

/// Base of the classes with windows: the shared dictionary, the shared font, and text on its way to Qt and
/// back.
///
/// Text is UTF-8 in `std::string`. An object that is a QObject too is not deleted while Qt is inside one of
/// its handlers: GUI_Grave keeps it to the end of the handler.
class GUI_Object : public virtual COM_Object
{
public:
    static void setLang(unsigned char lang);
    /// The language of the visible texts; English without dictionary.
    static unsigned char getLang();
    /// Keeps the path and loads the words of that file; words that cannot be loaded leave the present ones.
    static void setDictionaryFile(const std::string& file);
    static const std::string& getDictionaryFile() { return mDictionaryFile; }
    static DICO_Dictionary* getDictionary() { return mDictionary; }
    /// The text of `key` in the present language, or the key itself.
    static std::string translate(const std::string& key);
    static QString toQString(const std::string& text);
    static std::string toTString(const QString& text);
    /// A font as `QFont::toString` writes it; empty stands for Qt's own. Windows and widgets take it when
    /// they are made.
    static void setFontName(const std::string& name) { mFontName = name; }
    static const std::string& getFontName() { return mFontName; }

    static std::string mDictionaryFile;
    static std::string mFontName;

protected:
    GUI_Object();
    ~GUI_Object() override = default;
    /// Deletes the object, or leaves it to GUI_Grave when Qt knows it.
    void destroy() const override;

    /// Gives the widget the shared font, or that of `name`. An empty text, or one that is no font, leaves it
    /// its own.
    static void applyFont(QWidget& widget, const std::string& name = mFontName);

private:
    friend class GUI_Grave;

    /// The shared words, made before `main`, in French. Null before that.
    static DICO_Dictionary* mDictionary;
};
