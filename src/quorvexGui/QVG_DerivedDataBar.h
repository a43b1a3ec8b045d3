#pragma once
#include <QStringList>
#include <QWidget>

class QLabel;
class QV_DerivedData;

/// Two lines of derived quantities with their units. A line that is too long for the window is cut with
/// three dots; the tool tip always has all of it, a quantity a line.
class QVG_DerivedDataBar : public QWidget
{
    Q_OBJECT
public:
    QVG_DerivedDataBar();

    /// Width in pixels at which no line is cut.
    int wholeWidth() const;
    void setData(const QV_DerivedData& derived);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Cuts the lines to the present width.
    void fit();

    static constexpr int LINES = 2;
    static constexpr int MARGIN = 4; ///< Pixels to the left and to the right.
    QLabel* mLabels[LINES] = {};     ///< Owned by Qt.
    QStringList mTexts;              ///< The whole lines.
};
