#include "gui/GUI_Application.h"
#include "support/TestRun.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

/// The application that all tests with windows share. Listing the tests makes none.
class SharedApplication : public testing::Environment
{
public:
    SharedApplication(int argc, char** argv)
        : mArgc(argc)
        , mArgv(argv)
    {}
    void SetUp() override { mApplication = GUI_Application::New(mArgc, mArgv); }
    void TearDown() override { mApplication->Delete(); }

private:
    int mArgc;
    char** mArgv;
    GUI_Application* mApplication = nullptr; ///< Counted.
};

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    TestRun tests(argc, argv);
    testing::AddGlobalTestEnvironment(new SharedApplication(argc, argv));
    return tests.run();
}
