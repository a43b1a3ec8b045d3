#include "gui2d/GUI2D_Transform.h"

#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_RootWindow.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_RealVector.h"
#include "mathUtil/MATH_FFT.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double twoPi = 6.283185307179586;

/// What happens to one axis of a curve.
struct Axis
{
    bool mIsLog;
    bool mIsFFT;
    bool mIsOtherFFT;
    double mOtherPeriod;
};

std::string wrapped(const std::string& text, bool isLog, bool isFFT)
{
    const std::string inner = isFFT ? "FFT(" + text + ")" : text;
    return isLog ? "LOG(" + inner + ")" : inner;
}

/// The angular frequencies of a spectrum of 2^`power` samples, ascending from the most negative one.
void setFrequencies(LA_RealVector& axis, unsigned long n, int power, double period)
{
    axis.setDimension(n);
    const double step = twoPi / (std::ldexp(1.0, power) * period);
    double frequency = -std::ldexp(1.0, power - 1) * step;
    for (unsigned long i = 0; i < n; ++i) {
        axis[i] = frequency;
        frequency += step;
    }
}

void transform(LA_RealVector& values, LA_RealVector& others, int power, const Axis& axis)
{
    const bool isFFT = axis.mIsFFT && values.getDimension() > 0;
    if (isFFT) {
        const COM_Scoped spectrum(LA_ComplexVector::New(0UL));
        MATH_FFT::FastFourierTransform(values, static_cast<unsigned long>(power), *spectrum);
        spectrum->vabs(values);
    }
    if (axis.mIsLog) {
        values.log10Transform();
    }
    if (isFFT && !axis.mIsOtherFFT) {
        values.shift();
        setFrequencies(others, values.getDimension(), power, axis.mOtherPeriod);
    }
}

LA_RealVector* newCopy(const LA_RealVector* values)
{
    return values == nullptr ? LA_RealVector::New(0UL) : LA_RealVector::New(*values);
}

} // namespace

void GUI2D_Transform::apply(LA_RealVector& x, LA_RealVector& y) const
{
    const int power = std::max(mPower, 0);
    transform(x, y, power, {mIsLogX, mIsFFTX, mIsFFTY, mPeriodY});
    transform(y, x, power, {mIsLogY, mIsFFTY, mIsFFTX, mPeriodX});
}

std::string GUI2D_Transform::getDescription() const
{
    const bool isX = mIsLogX || mIsFFTX;
    const bool isY = mIsLogY || mIsFFTY;
    return (isX ? wrapped("X", mIsLogX, mIsFFTX) : "") + (isX && isY ? " - " : "")
           + (isY ? wrapped("Y", mIsLogY, mIsFFTY) : "");
}

void GUI2D_Transform::show(const GUI2D_Plotter& source) const
{
    GUI_ParentPanel* const parent = source.getParent();
    GUI_ParentWindow* const window = parent == nullptr ? nullptr : parent->findWindow();
    GUI_RootWindow* const root = window == nullptr ? nullptr : window->getRoot();
    if (root == nullptr) {
        return;
    }
    const COM_Scoped result(
        GUI2D_PlotterWindow::New(*root, GUI_Object::translate("Quorvex Tools") + suffix()));
    draw(source, *result->getPlotter());
    result->setSize(window->width(), window->height());
    // Moved before it is shown: a shown window whose frame is not there yet would lie higher by its title.
    result->move(window->pos());
    result->show();
}

void GUI2D_Transform::draw(const GUI2D_Plotter& source, GUI2D_Plotter& target) const
{
    target.setXLabel(wrapped(source.getXLabel(), mIsLogX, mIsFFTX));
    target.setYLabel(wrapped(source.getYLabel(), mIsLogY, mIsFFTY));
    target.setTitle(source.getTitle() + suffix());
    const COM_Scoped black(COM_Color::New());
    const COM_Array<GUI2D_Curve>& curves = source.getCurves();
    for (unsigned long i = 0; i < curves.size(); ++i) {
        const GUI2D_Curve& curve = curves[i];
        const COM_Scoped x(newCopy(curve.getXValues()));
        const COM_Scoped y(newCopy(curve.getYValues()));
        apply(*x, *y);
        COM_Color* const color = curve.getColor();
        target.addPlot(*x, *y, curve.getName(), curve.isShown(),
                       color == nullptr ? *black : *color);
    }
}

std::string GUI2D_Transform::suffix() const
{
    const std::string description = getDescription();
    return description.empty() ? "" : " - " + description;
}
