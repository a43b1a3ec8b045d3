#include "support/TestRun.h"

int main(int argc, char** argv)
{
    TestRun tests(argc, argv);
    return tests.run();
}
