#include "quorvexPlot/PlotProgram.h"

int main(int argc, char** argv)
{
    return PlotProgram::main(argc, argv);
}
