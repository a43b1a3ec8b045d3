#include "gui/GUI_Object.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_BaseDirectory.h"
#include "gui/GUI_Grave.h"

#include <QFont>
#include <QWidget>

// The order counts: the dictionary is loaded from the path above it. Whoever asks for a text before that gets
// the key, since a pointer is null before anything is initialised.
std::string GUI_Object::mDictionaryFile = GUI_BaseDirectory::find() + "/linguist/dictionary.xml";
std::string GUI_Object::mFontName;
DICO_Dictionary* GUI_Object::mDictionary =
    DICO_Dictionary::New(GUI_Object::mDictionaryFile, DICO_Dictionary::LANG_FR);

GUI_Object::GUI_Object()
{
    COM_TYPE(GUI_Object);
}

void GUI_Object::setLang(unsigned char lang)
{
    if (mDictionary != nullptr) {
        mDictionary->setLang(lang);
    }
}

unsigned char GUI_Object::getLang()
{
    return mDictionary == nullptr ? DICO_Dictionary::LANG_EN : mDictionary->getLang();
}

void GUI_Object::setDictionaryFile(const std::string& file)
{
    mDictionaryFile = file;
    if (mDictionary != nullptr) {
        mDictionary->load(mDictionaryFile);
    }
}

std::string GUI_Object::translate(const std::string& key)
{
    return mDictionary == nullptr ? key : mDictionary->translate(key);
}

QString GUI_Object::toQString(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string GUI_Object::toTString(const QString& text)
{
    return text.toUtf8().toStdString();
}

void GUI_Object::destroy() const
{
    if (auto* const qtSide = dynamic_cast<QObject*>(const_cast<GUI_Object*>(this))) {
        GUI_Grave::bury(*this, *qtSide);
    } else {
        delete this;
    }
}

void GUI_Object::applyFont(QWidget& widget, const std::string& name)
{
    QFont font;
    if (!name.empty() && font.fromString(toQString(name))) {
        widget.setFont(font);
    }
}
