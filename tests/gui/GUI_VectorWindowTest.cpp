#include "gui/GUI_VectorWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Label.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/CompositeTest.h"

#include <QHeaderView>
#include <QScrollBar>

#include <complex>

namespace {

using Complex = std::complex<double>;
using RealWindow = GUI_VectorWindow<double>;
using ComplexWindow = GUI_VectorWindow<Complex>;

} // namespace

class GUI_VectorWindowTest : public CompositeTest
{
protected:
    static void open(GUI_ParentWindow& window)
    {
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

TEST_F(GUI_VectorWindowTest, HasItsTypeNamesInOrder)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, true));
    const std::vector<std::string> types = shown->getTypes();
    ASSERT_GE(types.size(), 2U);
    EXPECT_EQ(types[types.size() - 2], "GUI_ChildWindow");
    EXPECT_EQ(types.back(), "GUI_VectorWindow");
}

TEST_F(GUI_VectorWindowTest, HasATranslatedTitle)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    const COM_Scoped english(RealWindow::New(window(), false, *vector, true));
    EXPECT_EQ(english->getName(), "Vector Window");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped french(RealWindow::New(&window(), false, vector.get(), true));
    EXPECT_EQ(french->getName(), "Vecteur");
}

TEST_F(GUI_VectorWindowTest, IsAContainerIfItIsAskedFor)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped plain(RealWindow::New(window(), false, *vector, true));
    EXPECT_FALSE(plain->isContainer());
    const COM_Scoped container(RealWindow::New(window(), true, *vector, true));
    EXPECT_TRUE(container->isContainer());
    EXPECT_EQ(container->centralWidget(), container->getPanel()->qtWidget())
        << "the form is seen all the same";
}

TEST_F(GUI_VectorWindowTest, LivesAsItsParentsChildAndReleasesTheVector)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    auto* const shown = RealWindow::New(window(), false, *vector, true);
    const unsigned long id = GUI_ParentWindow::getId(*shown);
    shown->show();
    shown->Delete();
    ASSERT_EQ(window().getChild(id), shown);
    EXPECT_EQ(vector->getReferenceCount(), 2);
    EXPECT_TRUE(shown->close(false));
    EXPECT_EQ(window().getChild(id), nullptr);
    EXPECT_EQ(vector->getReferenceCount(), 1);
}

TEST_F(GUI_VectorWindowTest, EditsTheVectorThatItShows)
{
    const COM_Scoped vector(LA_ComplexVector::New(3));
    const COM_Scoped shown(ComplexWindow::New(window(), false, *vector, true));
    open(*shown);
    ASSERT_NE(shown->getVectorPanel(), nullptr);
    typeIntoCell(*shown->getVectorPanel()->getTable(), 2, 0, "(1,2)");
    EXPECT_EQ(vector->getValue(2), Complex(1.0, 2.0));
}

TEST_F(GUI_VectorWindowTest, ShowsChangesWhenItsParentIsUpdated)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, true));
    vector->setDimension(2);
    vector->setValue(1, 3.0);
    window().updateValues();
    EXPECT_EQ(shown->getVectorPanel()->getTable()->getValue(1, 0), "3.000000e+00");
}

TEST_F(GUI_VectorWindowTest, PassesItsSettingsToTheForm)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    const COM_Scoped other(LA_RealVector::New(1));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, true));
    GUI_Table& table = *shown->getVectorPanel()->getTable();
    shown->setDimensionLabel("Captors Number");
    shown->setValuesLabel("Relative Position (%)");
    shown->setColumnsResizabled(true);
    ASSERT_NE(shown->findChild<GUI_Label*>(), nullptr);
    EXPECT_EQ(shown->findChild<GUI_Label*>()->text(), "Captors Number");
    EXPECT_EQ(table.getColumnLabel(0), "Relative Position (%)");
    EXPECT_EQ(table.horizontalHeader()->sectionResizeMode(0), QHeaderView::Interactive);
    shown->setVector(*other);
    EXPECT_EQ(table.rowCount(), 1);
    shown->resetVector();
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(other->getReferenceCount(), 1);
}

TEST_F(GUI_VectorWindowTest, AClosedWindowHasNoFormToTell)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, true));
    shown->show();
    shown->close(false);
    EXPECT_EQ(shown->getVectorPanel(), nullptr);
    shown->setVector(*vector);
    shown->setValuesLabel("a");
    shown->setDimensionLabel("b");
    shown->resetVector();
    EXPECT_EQ(vector->getReferenceCount(), 1);
}

TEST_F(GUI_VectorWindowTest, OpensWithTenValuesInFullView)
{
    const COM_Scoped vector(LA_RealVector::New(10));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, true));
    open(*shown);
    const GUI_Table& table = *shown->getVectorPanel()->getTable();
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(table.verticalScrollBar()->isVisible());
    EXPECT_TRUE(table.viewport()->rect().contains(table.visualRect(table.model()->index(9, 0))));
}

TEST_F(GUI_VectorWindowTest, ALongTitleOfTheValuesIsInFullView)
{
    const COM_Scoped vector(LA_RealVector::New(2));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, false));
    shown->setValuesLabel("A title of the values that is longer than all of their numbers");
    open(*shown);
    const GUI_Table& table = *shown->getVectorPanel()->getTable();
    EXPECT_GE(table.columnWidth(0), table.horizontalHeader()->sectionSizeHint(0));
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
}

TEST_F(GUI_VectorWindowTest, ASmallWindowHasRoomForItsCaption)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    const COM_Scoped shown(RealWindow::New(window(), false, *vector, false));
    EXPECT_GE(shown->width(), 320);
}
