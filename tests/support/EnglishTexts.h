#pragma once
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Object.h"

/// Texts are in English, until a test sets another language. At the end of the scope the former one is back.
class EnglishTexts
{
public:
    EnglishTexts() { GUI_Object::setLang(DICO_Dictionary::LANG_EN); }
    ~EnglishTexts() { GUI_Object::setLang(mFormer); }
    EnglishTexts(const EnglishTexts&) = delete;
    EnglishTexts& operator=(const EnglishTexts&) = delete;

private:
    unsigned char mFormer = GUI_Object::getLang();
};
