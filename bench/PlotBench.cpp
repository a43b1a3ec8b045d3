// How long a plot takes to be drawn, beside another plotting widget drawing the same points. The platform is the one
// without windows unless QT_QPA_PLATFORM says otherwise; QT_SCALE_FACTOR=2 stands for a screen of high density.
#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui/GUI_RootPanel.h"
#include "gui2d/GUI2D_Plotter.h"

#include <qcustomplot.h>
#include <QTest>

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <map>
#include <tuple>
#include <vector>

namespace {

constexpr int width = 800;
constexpr int height = 500;
constexpr double hundredth = 0.01;
constexpr int drawings = 100; ///< Of which the mean is told.

/// What is drawn: a number of curves of a number of points, whole or a hundredth of it, as they are or as logarithms.
struct Case
{
    explicit Case(const benchmark::State& state)
        : mPoints(state.range(0))
        , mCurves(state.range(1))
        , mIsZoomed(state.range(2) != 0)
        , mIsLogarithmic(state.range(3) != 0)
    {}
    std::vector<double> times() const
    {
        std::vector<double> times(mPoints);
        for (long i = 0; i < mPoints; ++i) {
            times[i] = 1e-15 * static_cast<double>(i);
        }
        return times;
    }
    /// The points of a curve. They are made once in this process: that takes longer than drawing them.
    const std::vector<double>& values(long curve) const
    {
        static std::map<std::tuple<long, long, bool>, std::vector<double>> known;
        std::vector<double>& values = known[{mPoints, curve, mIsLogarithmic}];
        if (values.empty()) {
            values.resize(mPoints);
            for (long i = 0; i < mPoints; ++i) {
                values[i] = value(curve, i);
            }
        }
        return values;
    }
    /// A pulse with its carrier, and a little of what a computer adds to it.
    double value(long curve, long point) const
    {
        const double t = static_cast<double>(point) / static_cast<double>(mPoints);
        const double envelope = std::exp(-100.0 * std::pow(t - 0.3 - 0.04 * curve, 2));
        const double field = envelope * std::sin(3000.0 * t) + 1e-3 * std::sin(1e5 * t + curve);
        return mIsLogarithmic ? std::log10(std::fabs(field) + 1e-12) : field;
    }

    long mPoints;
    long mCurves;
    bool mIsZoomed;
    bool mIsLogarithmic;
};

void waitUntilShown(QWidget& widget)
{
    widget.resize(width, height);
    widget.show();
    if (!QTest::qWaitForWindowExposed(&widget)) {
        std::abort();
    }
}

/// Our plotter in a window of its own.
class OurPlot
{
public:
    explicit OurPlot(const Case& what)
    {
        const COM_Scoped layout(GUI_RootHBoxLayout::New(*mPanel));
        const COM_Scoped plotter(GUI2D_Plotter::New(*mPanel));
        layout->addPanel(*plotter);
        mPlotter = plotter.get();
        mPlotter->showLegends(false);
        const std::vector<double> x = what.times();
        for (long curve = 0; curve < what.mCurves; ++curve) {
            const COM_Scoped color(COM_Color::New(255 - 20 * static_cast<int>(curve), 0, 80));
            mPlotter->addPlot(x, what.values(curve), "Ex", *color);
        }
        waitUntilShown(*mPanel);
        if (what.mIsZoomed) {
            mPlotter->zoom(hundredth);
        }
    }
    void draw() { mPlotter->repaint(); }
    /// Moves the view by a step and back by turns.
    void move()
    {
        mPlotter->pan(mIsMoved ? GUI2D_Plotter::WEST_DIRECTION : GUI2D_Plotter::EAST_DIRECTION);
        mIsMoved = !mIsMoved;
    }

private:
    COM_Scoped<GUI_RootPanel> mPanel{GUI_RootPanel::New()};
    GUI2D_Plotter* mPlotter = nullptr; ///< Counted by the panel.
    bool mIsMoved = false;
};

/// The other widget, with the same points, labels and grid.
class OtherPlot
{
public:
    explicit OtherPlot(const Case& what)
    {
        mPlot.setNotAntialiasedElements(QCP::aeAll);
        mPlot.xAxis->setLabel("Times");
        mPlot.yAxis->setLabel("E Fields");
        const std::vector<double> times = what.times();
        const QVector<double> x(times.begin(), times.end());
        for (long curve = 0; curve < what.mCurves; ++curve) {
            const std::vector<double>& values = what.values(curve);
            const QVector<double> y(values.begin(), values.end());
            QCPGraph* const graph = mPlot.addGraph();
            graph->setPen(QPen(QColor(255 - 20 * static_cast<int>(curve), 0, 80), 0));
            graph->setData(x, y, true);
        }
        mPlot.rescaleAxes();
        if (what.mIsZoomed) {
            mPlot.xAxis->scaleRange(hundredth);
            mPlot.yAxis->scaleRange(hundredth);
        }
        mStep = mPlot.xAxis->range().size() / 80.0;
        waitUntilShown(mPlot);
    }
    void draw() { mPlot.replot(QCustomPlot::rpImmediateRefresh); }
    void move()
    {
        mPlot.xAxis->moveRange(mIsMoved ? -mStep : mStep);
        mIsMoved = !mIsMoved;
    }

private:
    QCustomPlot mPlot;
    double mStep = 0.0;
    bool mIsMoved = false;
};

/// The same view again, as when a rectangle is dragged over it.
template <typename Plot>
void drawAgain(benchmark::State& state)
{
    Plot plot((Case(state)));
    plot.draw();
    for ([[maybe_unused]] auto _ : state) {
        plot.draw();
    }
}

/// Another view each time.
template <typename Plot>
void drawElsewhere(benchmark::State& state)
{
    Plot plot((Case(state)));
    plot.draw();
    for ([[maybe_unused]] auto _ : state) {
        plot.move();
        plot.draw();
    }
}

void cases(benchmark::internal::Benchmark* benchmark)
{
    // A plot takes far longer to be made than to be drawn: each is made once.
    benchmark->ArgNames({"points", "curves", "zoomed", "log"})
        ->Unit(benchmark::kMillisecond)
        ->Iterations(drawings);
    for (const auto& [points, curves] : {std::pair{100000, 1}, {1000000, 1}, {1000000, 10}}) {
        for (const int zoomed : {0, 1}) {
            for (const int logarithmic : {0, 1}) {
                benchmark->Args({points, curves, zoomed, logarithmic});
            }
        }
    }
}
BENCHMARK(drawAgain<OurPlot>)->Apply(cases);
BENCHMARK(drawAgain<OtherPlot>)->Apply(cases);
BENCHMARK(drawElsewhere<OurPlot>)->Apply(cases);
BENCHMARK(drawElsewhere<OtherPlot>)->Apply(cases);

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    const COM_Scoped application(GUI_Application::New(argc, argv));
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
