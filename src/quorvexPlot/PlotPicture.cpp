#include "quorvexPlot/PlotPicture.h"

#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_CaptorCurves.h"
#include "gui2d/GUI2D_Image.h"
#include "gui2d/GUI2D_Picture.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_Transform.h"
#include "quorvexPlot/PlotError.h"
#include "quorvexPlot/PlotOptions.h"
#include "quorvexPlot/PlotResults.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace {

using Values = PlotResults::Values;

} // namespace

QByteArray PlotPicture::contents(const PlotResults& results, const PlotOptions& options)
{
    const COM_Scoped plotter(GUI2D_Plotter::New());
    draw(results, options, *plotter);
    plotter->resize(options.mWidth, options.mHeight);
    const std::string& format = options.mFormat;
    if (format == "pdf" || format == "svg" || format == "png") {
        return GUI2D_Picture::file(*plotter, QString::fromStdString(format));
    }
    return GUI2D_Image::contents(GUI2D_Picture::image(*plotter),
                                 GUI2D_Image::formatOf("." + format));
}

void PlotPicture::draw(const PlotResults& results, const PlotOptions& options,
                       GUI2D_Plotter& plotter)
{
    if (options.isTransformed()) {
        GUI2D_Transform transformation{.mIsLogX = options.mIsLogX, .mIsLogY = options.mIsLogY};
        unsigned long valuesNumber = 0;
        if (options.mIsFourier) {
            const std::vector<double>& seconds = results.seconds();
            if (seconds.size() < 2) {
                throw PlotError("--fourier needs two steps at least, and the run has one");
            }
            valuesNumber = std::bit_ceil(seconds.size());
            transformation.mIsFFTY = true;
            transformation.mPower = std::countr_zero(valuesNumber);
            transformation.mPeriodX =
                (seconds.back() - seconds.front()) / static_cast<double>(seconds.size() - 1);
        }
        const COM_Scoped source(GUI2D_Plotter::New());
        addCurves(results, options.mIsNormalized, valuesNumber, *source);
        transformation.draw(*source, plotter);
    } else {
        addCurves(results, options.mIsNormalized, 0, plotter);
    }
    if (options.mIsFourier) {
        plotter.setXLabel(GUI_Object::translate("Frequencies") + " (rad/s)");
    }
    if (options.mTitle) {
        plotter.setTitle(*options.mTitle);
    }
}

void PlotPicture::addCurves(const PlotResults& results, bool isNormalized,
                            unsigned long valuesNumber, GUI2D_Plotter& plotter)
{
    const auto filledUp = [valuesNumber](Values values) {
        values.resize(std::max(values.size(), valuesNumber));
        return values;
    };
    GUI2D_CaptorCurves curves(plotter, results.captorsNumber());
    for (const PlotResults::Captor& captor : results.captors()) {
        std::vector<GUI2D_CaptorCurves::Component> components;
        for (const unsigned long field : captor.mFields) {
            components.push_back({PlotOptions::COMPONENTS[field], field});
        }
        if (!components.empty()) {
            std::vector<Values> columns;
            std::transform(captor.mColumns.begin(), captor.mColumns.end(),
                           std::back_inserter(columns), filledUp);
            curves.addFields(captor.mPlace, results.seconds(), columns, components);
        }
        for (const PlotResults::Density& density : captor.mDensities) {
            const auto& [i, j, system] = density.mElement;
            curves.addDensity(
                captor.mPlace,
                {system, captor.mFiles.mBlochEquationsNumber, i, j, captor.mFiles.mRhoSize},
                results.seconds(), filledUp(density.mValues));
        }
    }
    if (isNormalized) {
        curves.normalize();
    }
}
