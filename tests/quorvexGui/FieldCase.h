#pragma once
#include "TestForms.h"

#include <QComboBox>
#include <QLabel>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

/// What a user types into a field, what the form answers, and what the problem holds then.
struct FieldCase
{
    unsigned char mFlag;
    const char* mTyped;
    const char* mShown;
    double mStored;
    double (*mGet)(const TestForms&);
};

/// Types each of them in turn.
template <typename Form>
void expectFields(const TestForms& forms, const std::vector<FieldCase>& cases)
{
    for (const FieldCase& c : cases) {
        const std::string name = std::to_string(c.mFlag) + ": " + c.mTyped;
        forms.type<Form>(c.mFlag, c.mTyped);
        EXPECT_EQ(forms.shown<Form>(c.mFlag), c.mShown) << name;
        const double stored = c.mGet(forms);
        EXPECT_TRUE(stored == c.mStored || (std::isnan(stored) && std::isnan(c.mStored)))
            << name << " gave " << stored;
    }
}

/// The texts that a form shows beside its fields, in the order in which they were made.
template <typename Form>
std::vector<std::string> labelsOf(const TestForms& forms)
{
    std::vector<std::string> texts;
    for (const QLabel* const label : forms.form<Form>().template findChildren<QLabel*>()) {
        texts.push_back(label->text().toStdString());
    }
    return texts;
}

/// The texts of a list's items.
inline std::vector<std::string> itemsOf(const QWidget& list)
{
    const auto& box = dynamic_cast<const QComboBox&>(list);
    std::vector<std::string> texts;
    for (int i = 0; i < box.count(); ++i) {
        texts.push_back(box.itemText(i).toStdString());
    }
    return texts;
}
