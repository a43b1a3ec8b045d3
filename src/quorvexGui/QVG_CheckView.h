#pragma once
#include "quorvex/QV_ProblemCheck.h"

#include <QTextBrowser>

#include <vector>

/// The findings of a check as a text that can be read and copied: a heading for each grade, a line for each
/// finding, in the language of the dictionary.
class QVG_CheckView : public QTextBrowser
{
public:
    explicit QVG_CheckView(const std::vector<QV_ProblemCheck::Finding>& findings,
                           QWidget* parent = nullptr);
};
