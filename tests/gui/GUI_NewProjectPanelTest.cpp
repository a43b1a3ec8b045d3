#include "gui/GUI_NewProjectPanel.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_NewProjectWindow.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/Printed.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using Panel = GUI_NewProjectPanel;
using Calls = std::vector<std::string>;

/// The open form below a root window whose file lies in a directory of its own.
class NewProjectPanel : public testing::Test
{
protected:
    NewProjectPanel() { mRoot->setSavingPath(mDirectory.slashed()); }
    ~NewProjectPanel() override { QCoreApplication::processEvents(); }

    void open(bool isSavingAs = false)
    {
        GUI_NewProjectWindow::open(*mRoot, isSavingAs);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
    }
    bool isOpen() const { return !mRoot.children<GUI_NewProjectWindow>().empty(); }
    GUI_NewProjectWindow& form() const { return *mRoot.children<GUI_NewProjectWindow>().at(0); }
    template <typename Component>
    Component& component(unsigned char flag) const
    {
        return dynamic_cast<Component&>(*form().getPanel()->getComponent(flag));
    }
    GUI_LineEdit& name() const { return component<GUI_LineEdit>(Panel::COMPO_NAME); }
    GUI_LineEdit& directory() const { return component<GUI_LineEdit>(Panel::COMPO_DIRECTORY); }
    void click(unsigned char flag) const
    {
        QTest::mouseClick(&component<GUI_Button>(flag), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    void typeName(const QString& text) const { QTest::keyClicks(&name(), text); }
    /// "OK" says that there is no making the directory, and the form stays.
    void expectRefusal()
    {
        DialogAnswers answers;
        answers.add<QMessageBox>([](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Warning");
            EXPECT_EQ(box.text(), "The Project already exists!\nChoose another project name");
            EXPECT_EQ(box.icon(), QMessageBox::Information);
            QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        });
        click(Panel::COMPO_OK);
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(mRoot->mCalls, Calls{});
    }

    TestDirectory mDirectory;
    ProjectRoot mRoot;
};

} // namespace

TEST_F(NewProjectPanel, HasItsTexts)
{
    open();
    QStringList labels;
    for (const QLabel* const label : form().findChildren<GUI_Label*>()) {
        labels.push_back(label->text());
    }
    EXPECT_EQ(labels, (QStringList{"Project Name", "Project Directory"}));
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_BROWSE).text(), "Browse");
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_OK).text(), "OK");
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_CANCEL).text(), "Cancel");
    EXPECT_TRUE(component<GUI_Button>(Panel::COMPO_OK).isDefault());
    EXPECT_EQ(name().getValue(), "");
}

TEST_F(NewProjectPanel, SpeaksTheLanguageOfTheUser)
{
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    open();
    QStringList labels;
    for (const QLabel* const label : form().findChildren<GUI_Label*>()) {
        labels.push_back(label->text());
    }
    EXPECT_EQ(labels, (QStringList{"Nom du projet", "R\xc3\xa9pertoire du projet"}));
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_BROWSE).text(), "Parcourir");
    EXPECT_EQ(component<GUI_Button>(Panel::COMPO_CANCEL).text(), "Annuler");
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Choisissez le r\xc3\xa9pertoire du projet");
    });
    click(Panel::COMPO_BROWSE);
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Avertissement");
        EXPECT_EQ(box.text(),
                  "Le projet existe d\xc3\xa9j\xc3\xa0!\nChoisissez un autre nom de projet");
    });
    click(Panel::COMPO_OK);
}

TEST_F(NewProjectPanel, BeginsWithTheDirectoryOfTheParent)
{
    open();
    EXPECT_EQ(directory().getValue(), mDirectory.slashed());
}

TEST_F(NewProjectPanel, UpdateShowsTheDirectoryOfTheParentAgain)
{
    open();
    directory().setValue("/elsewhere/");
    mRoot->updateValues();
    EXPECT_EQ(directory().getValue(), mDirectory.slashed());
    mRoot->setSavingPath("/new/place/");
    mRoot->updateValues();
    EXPECT_EQ(directory().getValue(), "/new/place/");
}

TEST_F(NewProjectPanel, TheNameHasTheFocusAndTabGoesDown)
{
    open();
    EXPECT_TRUE(name().hasFocus());
    for (const unsigned char flag :
         {Panel::COMPO_DIRECTORY, Panel::COMPO_BROWSE, Panel::COMPO_OK, Panel::COMPO_CANCEL}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), component<GUI_ActionComponent>(flag).qtWidget())
            << int{flag};
    }
}

TEST_F(NewProjectPanel, OkMakesTheDirectoryAndTheProject)
{
    open();
    typeName("first");
    click(Panel::COMPO_OK);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(fs::is_directory(mDirectory.path() / "first"));
    EXPECT_EQ(mRoot->mCalls, Calls{"create " + mDirectory.slashed() + "/first/ project.dpj"});
    EXPECT_EQ(mRoot->getSavingFile(), "project.dpj");
}

TEST_F(NewProjectPanel, ADirectoryWithoutSlashGivesNoDoubledSeparator)
{
    open();
    directory().setValue(mDirectory.path().string());
    typeName("first");
    click(Panel::COMPO_OK);
    EXPECT_EQ(mRoot->mCalls, Calls{"create " + mDirectory.slashed() + "first/ project.dpj"});
}

TEST_F(NewProjectPanel, TheFormOfSaveAsSaves)
{
    open(true);
    // The purpose does not hang on the caption.
    form().setName("Create a New Project");
    GUI_Object::setLang(1);
    typeName("copy");
    click(Panel::COMPO_OK);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(fs::is_directory(mDirectory.path() / "copy"));
    const std::string place = mDirectory.slashed() + "/copy/ project.dpj";
    EXPECT_EQ(mRoot->mCalls, (Calls{"saveAs " + place, "save " + place}));
}

TEST_F(NewProjectPanel, AnExistingDirectoryIsRefused)
{
    fs::create_directory(mDirectory.path() / "first");
    open();
    typeName("first");
    expectRefusal();
    EXPECT_EQ(name().getValue(), "first");
    EXPECT_EQ(directory().getValue(), mDirectory.slashed());

    QTest::keyClicks(&name(), "2");
    click(Panel::COMPO_OK);
    EXPECT_EQ(mRoot->mCalls, Calls{"create " + mDirectory.slashed() + "/first2/ project.dpj"});
}

TEST_F(NewProjectPanel, AnEmptyNameIsRefused)
{
    open();
    expectRefusal();
}

TEST_F(NewProjectPanel, ADirectoryThatCannotBeMadeIsRefused)
{
    open();
    directory().setValue(mDirectory.file("missing/"));
    typeName("first");
    expectRefusal();
    EXPECT_FALSE(fs::exists(mDirectory.path() / "missing"));
}

TEST_F(NewProjectPanel, AnEmptyDirectoryIsTheWorkingOne)
{
    const WorkingDirectory working(mDirectory.path());
    mRoot->setSavingPath("");
    open();
    EXPECT_EQ(directory().getValue(), "");
    typeName("first");
    click(Panel::COMPO_OK);
    EXPECT_TRUE(fs::is_directory(mDirectory.path() / "first"));
    EXPECT_EQ(mRoot->mCalls, Calls{"create .//first/ project.dpj"});
}

TEST_F(NewProjectPanel, NamesAreUtf8)
{
    open();
    name().setValue("\xc3\xa9t\xc3\xa9");
    click(Panel::COMPO_OK);
    EXPECT_TRUE(fs::is_directory(mDirectory.path() / "\xc3\xa9t\xc3\xa9"));
}

TEST_F(NewProjectPanel, BrowseAsksForTheDirectory)
{
    fs::create_directory(mDirectory.path() / "inner");
    open();
    DialogAnswers answers;
    answers.add<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &form());
        EXPECT_EQ(dialog.windowTitle(), "Choose the Project Directory");
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  fs::canonical(mDirectory.path()));
        ::typeName(dialog, "inner");
    });
    click(Panel::COMPO_BROWSE);
    EXPECT_EQ(directory().getValue(), mDirectory.file("inner/"));

    answers.add<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    click(Panel::COMPO_BROWSE);
    EXPECT_EQ(directory().getValue(), mDirectory.file("inner/"));
}

TEST_F(NewProjectPanel, CancelAndEscapeMakeNothing)
{
    open();
    typeName("first");
    click(Panel::COMPO_CANCEL);
    EXPECT_FALSE(isOpen());

    open();
    typeName("first");
    QTest::keyClick(&name(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(mRoot->mCalls, Calls{});
    EXPECT_FALSE(fs::exists(mDirectory.path() / "first"));
}

TEST_F(NewProjectPanel, ReturnInAFieldIsOk)
{
    open();
    typeName("first");
    QTest::keyClick(&name(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isOpen());

    open();
    typeName("second");
    QTest::keyClick(&directory(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(mRoot->mCalls.size(), 2U);
    EXPECT_TRUE(fs::is_directory(mDirectory.path() / "first"));
    EXPECT_TRUE(fs::is_directory(mDirectory.path() / "first" / "second"));
}

TEST_F(NewProjectPanel, SurvivesARootThatClosesItsWindows)
{
    open();
    mRoot->mCreation = [this] { mRoot->closeChildrenWindow(); };
    typeName("first");
    click(Panel::COMPO_OK);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(mRoot->mCalls.size(), 1U);
}

TEST_F(NewProjectPanel, WithoutAWindowTheButtonsDoNothing)
{
    open();
    typeName("first");
    const COM_Scoped panel(Panel::New(form()));
    panel->resetWindow();
    for (const unsigned char flag : {Panel::COMPO_OK, Panel::COMPO_CANCEL}) {
        auto* const button = dynamic_cast<GUI_Button*>(panel->getComponent(flag));
        ASSERT_NE(button, nullptr);
        button->click();
    }
    panel->updateValues();
    EXPECT_EQ(mRoot->mCalls, Calls{});
    EXPECT_TRUE(isOpen());
}

TEST_F(NewProjectPanel, AnUnknownComponentIsAnnounced)
{
    open();
    GUI_Button& button = component<GUI_Button>(Panel::COMPO_BROWSE);
    button.setFlagId(77);
    EXPECT_EQ(printedBy([&button] { button.click(); }), "action unknown !77\n");
}
