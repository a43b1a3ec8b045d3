#include "quorvexRun/RunProgram.h"

int main(int argc, char** argv)
{
    return RunProgram::main(argc, argv);
}
