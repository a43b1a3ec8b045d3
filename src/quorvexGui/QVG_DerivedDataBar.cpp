#include "quorvexGui/QVG_DerivedDataBar.h"

#include "gui/GUI_Object.h"
#include "quorvex/QV_DerivedData.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

QString word(const char* key)
{
    return GUI_Object::toQString(GUI_Object::translate(key));
}

QString number(double value, int digits = 3)
{
    return QString::number(value, 'g', digits);
}

/// The number with its unit, or the words for one that there is not.
QString quantity(double value, const QString& unit, int digits = 3)
{
    return std::isfinite(value) ? number(value, digits) + unit : word("not finite");
}

QString entry(const char* key, const QString& value)
{
    return word(key) + " = " + value;
}

/// A whole number, also a large one, in full as long as that is shorter.
QString count(double value)
{
    return quantity(value, {}, 7);
}

QString withNote(const QString& value, double noteValue, const QString& note)
{
    return std::isfinite(noteValue) ? value + " (" + note + ")" : value;
}

QString bytes(double value)
{
    const char* const units[] = {" B", " kB", " MB", " GB", " TB"};
    unsigned unit = 0;
    while (std::fabs(value) >= 1000.0 && unit + 1 < std::size(units)) {
        value /= 1000.0;
        ++unit;
    }
    return std::isfinite(value) ? number(value) + units[unit] : word("not finite");
}

/// A time that somebody has to wait, in a unit that tells him something. It is a rough number.
QString wait(double seconds)
{
    constexpr double minute = 60.0;
    constexpr double hour = 3600.0;
    constexpr double day = 86400.0;
    if (!std::isfinite(seconds)) {
        return word("not finite");
    }
    if (seconds < minute) {
        return number(seconds, 2) + " s";
    }
    if (seconds < hour) {
        return number(seconds / minute, 2) + " min";
    }
    return seconds < day ? number(seconds / hour, 2) + " h"
                         : number(std::round(seconds / day * 10.0) / 10.0, 7) + " d";
}

} // namespace

QVG_DerivedDataBar::QVG_DerivedDataBar()
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(MARGIN, 0, MARGIN, 0);
    layout->setSpacing(0);
    for (QLabel*& label : mLabels) {
        label = new QLabel;
        label->setTextFormat(Qt::PlainText);
        // A line may become narrower than its text; it is cut then.
        label->setMinimumWidth(1);
        layout->addWidget(label);
    }
}

void QVG_DerivedDataBar::setData(const QV_DerivedData& derived)
{
    const QString gap = "   ";
    const QStringList first = {
        entry("Rabi frequency", quantity(derived.getRabiFrequency(), " 1/s")),
        entry("Pulse area", quantity(derived.getPulseArea(), QString::fromUtf8(" \xcf\x80"), 4)),
        entry("Time step",
              withNote(quantity(derived.getTimeStep(), " s"), derived.getTimeStepPeriods(),
                       number(derived.getTimeStepPeriods()) + " " + word("carrier periods")))};
    const QStringList second = {
        entry("Nodes", withNote(count(derived.getNodes()), derived.getActiveNodes(),
                                count(derived.getActiveNodes()) + " " + word("active"))),
        entry("Run", quantity(derived.getDuration(), " s")),
        entry("Transit", quantity(derived.getTransitTime(), " s")),
        entry("Memory", bytes(derived.getMemory())),
        entry("Estimated time", wait(derived.getRunTime()))};
    mTexts = {first.join(gap), second.join(gap)};
    setToolTip((first + second).join("\n"));
    fit();
}

int QVG_DerivedDataBar::wholeWidth() const
{
    int width = 0;
    for (const QString& text : mTexts) {
        width = std::max(width, fontMetrics().horizontalAdvance(text));
    }
    return width + 1 + 2 * MARGIN; // the advance is rounded, the cut is not
}

void QVG_DerivedDataBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fit();
}

void QVG_DerivedDataBar::fit()
{
    for (int i = 0; i < LINES && i < mTexts.size(); ++i) {
        mLabels[i]->setText(
            mLabels[i]->fontMetrics().elidedText(mTexts[i], Qt::ElideRight, width() - 2 * MARGIN));
    }
}
