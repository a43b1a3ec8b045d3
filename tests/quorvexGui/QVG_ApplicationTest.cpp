#include "quorvexGui/QVG_Application.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootMenu.h"
#include "quorvexGui/QVG_MainMenu.h"
#include "quorvexGui/QVG_MainWindow.h"
#include "quorvexGui/StartTest.h"
#include "support/Printed.h"
#include "support/TestObject.h"

#include <QIcon>
#include <QPointer>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

class QVG_ApplicationTest : public StartTest
{
protected:
    QVG_Application* start(const std::vector<std::string>& texts)
    {
        char** const argv = arguments(texts);
        return QVG_Application::New(argumentsNumber(), argv);
    }
};

} // namespace

TEST_F(QVG_ApplicationTest, WithoutArgumentThereAreNoPreferences)
{
    const COM_Scoped application(start({}));
    EXPECT_EQ(application->getPreferencesFile(), "");
    EXPECT_EQ(application->getTypes().back(), "QVG_Application");
    ASSERT_NE(application->getMainWindow(), nullptr);
    EXPECT_EQ(application->getMainWindow()->getClassName(), "14QVG_MainWindow");
    EXPECT_EQ(application->getMainWindow()->getName(), "Simulation Quorvex");
    EXPECT_EQ(application->getMainWindow()->getSavingPath(), "./");
    EXPECT_EQ(application->getMainWindow()->getSavingFile(), "");
    EXPECT_FALSE(application->getMainWindow()->isContainer());
    EXPECT_EQ(application->getMainWindow()->getApplication(), application.get());
    EXPECT_EQ(application->getModel(), nullptr);
    EXPECT_EQ(application->getMainWindow()->getReferenceCount(), 2) << "application and menu";
}

TEST_F(QVG_ApplicationTest, WindowsHaveTheIconOfTheProgram)
{
    const std::string former = GUI_Action::ICONS_PATH;
    GUI_Action::ICONS_PATH = GUI_BaseDirectory::find() + "/icons/";
    const COM_Scoped application(start({}));
    GUI_Action::ICONS_PATH = former;
    const QList<QSize> sizes = application->getMainWindow()->windowIcon().availableSizes();
    ASSERT_EQ(sizes.size(), 2);
    EXPECT_EQ(sizes[0], QSize(48, 48));
    EXPECT_EQ(sizes[1], QSize(256, 256));
    EXPECT_EQ(QGuiApplication::desktopFileName(), "quorvex");
}

TEST_F(QVG_ApplicationTest, PreferencesAreThereBeforeTheMainWindow)
{
    const std::string file = writePreferences("mine.xml");
    const COM_Scoped application(start({file, "other.xml"}));
    EXPECT_EQ(application->getPreferencesFile(), file);
    EXPECT_EQ(application->getMainWindow()->getName(), "Quorvex Simulation");
    EXPECT_EQ(application->getMainWindow()->getSavingPath(), "work/");
    EXPECT_EQ(application->getMainWindow()->getMenu()->getMenu(0)->getName(), "&Project");
}

TEST_F(QVG_ApplicationTest, ArgumentsOfTheToolkitAreNoPreferences)
{
    const COM_Scoped application(start({"-style", "fusion"}));
    EXPECT_EQ(application->getPreferencesFile(), "");
}

TEST_F(QVG_ApplicationTest, ThePreferencesAreTheFirstArgumentThatTheToolkitLeaves)
{
    const std::string file = writePreferences("mine.xml");
    const COM_Scoped application(start({"-style", "fusion", file}));
    EXPECT_EQ(application->getPreferencesFile(), file);
}

TEST_F(QVG_ApplicationTest, AMissingPreferencesFileIsAnnouncedAndRemembered)
{
    QVG_Application* application = nullptr;
    const std::string log = printedBy([this, &application] { application = start({"none.xml"}); });
    EXPECT_EQ(log, "ERROR:none.xml can not be opened !! \n");
    EXPECT_EQ(application->getPreferencesFile(), "none.xml");
    EXPECT_EQ(application->getMainWindow()->getName(), "Simulation Quorvex");
    application->Delete();
}

TEST_F(QVG_ApplicationTest, ACaptionWithoutATranslationIsItsKey)
{
    GUI_Object::setDictionaryFile(mDirectory.write(
        "words.xml",
        "\n<MM_PACKAGE mRootMetaClassId=\"15DICO_Dictionary@1\">\n"
        "\t<MM_CLASS mId=\"15DICO_Dictionary@1\" mName=\"15DICO_Dictionary\">\n"
        "\t\t<MM_FIELD mName=\"mLang\">\n\t\t\t<MM_VALUE>1</MM_VALUE>\n\t\t</MM_FIELD>\n"
        "\t\t<MM_FIELD mName=\"mWords\">\n\t\t</MM_FIELD>\n"
        "\t</MM_CLASS>\n</MM_PACKAGE>\n"));
    ASSERT_EQ(GUI_Object::translate("&Run"), "&Run") << "the words are gone";
    const COM_Scoped application(start({}));
    EXPECT_EQ(application->getMainWindow()->getName(), "Quorvex Simulation");
}

TEST_F(QVG_ApplicationTest, TheApplicationTakesItsWindowAndModelAlong)
{
    QVG_Application* const application = start({});
    {
        const COM_Scoped model(TestObject::New());
        application->setModel(*model);
    }
    const QPointer<QWidget> window(application->getMainWindow());
    EXPECT_EQ(TestObject::getLivingNumber(), 1);
    application->Delete();
    EXPECT_EQ(TestObject::getLivingNumber(), 0);
    EXPECT_TRUE(window.isNull());
}
