#include "gui2d/GUI2D_Plotter.h"

#include "gui2d/GUI2D_Transform.h"

void GUI2D_Plotter::transform(bool isLogXTransform, bool isLogYTransform, bool isFFTXTransform,
                              bool isFFTYTransform, int n, double periodXFFTValue,
                              double periodYFFTValue)
{
    const GUI2D_Transform transformation{
        isLogXTransform, isLogYTransform, isFFTXTransform, isFFTYTransform, n,
        periodXFFTValue, periodYFFTValue};
    transformation.show(*this);
}
