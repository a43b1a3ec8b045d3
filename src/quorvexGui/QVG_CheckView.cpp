#include "quorvexGui/QVG_CheckView.h"

#include "gui/GUI_Object.h"

namespace {

/// Keys of the headings, by grade.
constexpr const char* gradeKeys[] = {"stops", "harms", "notes"};

QString text(const QV_ProblemCheck::Finding& finding)
{
    QV_ProblemCheck::Finding translated = finding;
    translated.mLabel = GUI_Object::translate(finding.mLabel);
    translated.mSentence = GUI_Object::translate(finding.mSentence);
    return GUI_Object::toQString(translated.text()).toHtmlEscaped();
}

} // namespace

QVG_CheckView::QVG_CheckView(const std::vector<QV_ProblemCheck::Finding>& findings, QWidget* parent)
    : QTextBrowser(parent)
{
    QString html;
    for (const auto grade :
         {QV_ProblemCheck::STOPS, QV_ProblemCheck::HARMS, QV_ProblemCheck::NOTE}) {
        QString items;
        for (const QV_ProblemCheck::Finding& finding : findings) {
            if (finding.mGrade == grade) {
                items += "<li>" + text(finding) + "</li>";
            }
        }
        if (!items.isEmpty()) {
            const QString heading = GUI_Object::toQString(GUI_Object::translate(gradeKeys[grade]));
            html += "<p><b>" + heading.toHtmlEscaped() + "</b></p><ul>" + items + "</ul>";
        }
    }
    setHtml(html);
    setTabChangesFocus(true);
}
