#include "gui2d/GUI2D_PlotterMenu.h"

#include "gui2d/TestPlot.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace {

using Texts = std::vector<std::string>;

/// The labels of a menu, "-" for a separator.
Texts entries(const GUI_RootMenu& menu)
{
    Texts texts;
    for (const QAction* const entry : menu.actions()) {
        texts.push_back(entry->isSeparator() ? "-" : entry->text().toStdString());
    }
    return texts;
}

} // namespace

TEST(GUI2D_PlotterMenu, MenusAndActionsStandInTheirOrder)
{
    const TestPlot plot;
    const GUI_MenuPanel& menu = *plot->getMenu();
    EXPECT_EQ(menu.getTypes().back(), "GUI2D_PlotterMenu");
    Texts names;
    for (int i = 0; menu.getMenu(i) != nullptr; ++i) {
        names.push_back(menu.getMenu(i)->getName());
    }
    ASSERT_EQ(names, (Texts{"&File", "&Edit", "&Zoom", "&Move", "&Tools"}));
    EXPECT_EQ(entries(*menu.getMenu(0)),
              (Texts{"&Load File", "&Save", "Save &As", "Save As Image", "-", "&Quit"}));
    EXPECT_EQ(entries(*menu.getMenu(1)), (Texts{"&Redo", "&Undo", "Show &Grid", "Show &Axes",
                                                "&Options", "&Print", "&Legends"}));
    EXPECT_EQ(entries(*menu.getMenu(2)), (Texts{"Zoom +", "Zoom -", "Zoom Select", "Zoom Fit"}));
    EXPECT_EQ(entries(*menu.getMenu(3)),
              (Texts{"Move North", "Move South", "Move West", "Move East"}));
    EXPECT_EQ(entries(*menu.getMenu(4)),
              (Texts{"Log/FFT Transform", "Save Plot", "Load Plot", "Export the Curves",
                     "Copy the Picture", "Copy the Values"}));
}

TEST(GUI2D_PlotterMenu, ActionsWithAnIconAreOnTheToolBar)
{
    const TestPlot plot;
    const GUI_ToolBar* const bar = plot->getMenu()->getToolBar("toolbar");
    ASSERT_NE(bar, nullptr);
    Texts labels;
    for (const QAction* const action : bar->actions()) {
        labels.push_back(action->text().toStdString());
    }
    EXPECT_EQ(labels, (Texts{"&Load File", "&Save", "&Redo", "&Undo", "Show &Grid", "Show &Axes",
                             "&Print", "Zoom +", "Zoom -", "Zoom Select", "Zoom Fit", "Move North",
                             "Move South", "Move West", "Move East"}));
}

TEST(GUI2D_PlotterMenu, EachIconIsTheFileOfItsName)
{
    const std::string former = GUI_Action::ICONS_PATH;
    const TestDirectory directory;
    GUI_Action::ICONS_PATH = directory.slashed();
    const std::vector<std::pair<std::string, std::string>> icons{
        {"Show &Axes", "axes.gif"}, {"Show &Grid", "grid.gif"}, {"&Print", "print.png"},
        {"&Redo", "editredo.png"},  {"&Undo", "editundo.png"},  {"Zoom Fit", "zoomfit.gif"},
        {"Zoom +", "zoomin.gif"},   {"Zoom -", "zoomout.gif"},  {"Zoom Select", "zoomselect.gif"},
        {"Move East", "right.gif"}, {"Move West", "left.gif"},  {"Move North", "north.gif"},
        {"Move South", "south.gif"}};
    int shade = 0;
    for (const auto& [label, file] : icons) {
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(QColor(10 * ++shade, 0, 0));
        // The content decides about the format.
        ASSERT_TRUE(image.save(QString::fromStdString(directory.file(file)), "PNG"));
    }
    const TestPlot plot;
    GUI_Action::ICONS_PATH = former;
    shade = 0;
    for (const auto& [label, file] : icons) {
        EXPECT_EQ(plot.find(label)->icon().pixmap(4, 4).toImage().pixelColor(1, 1),
                  QColor(10 * ++shade, 0, 0))
            << label;
    }
    for (const char* const label : {"&Options", "&Legends", "Save As Image", "Log/FFT Transform"}) {
        EXPECT_TRUE(plot.find(label)->icon().isNull()) << label;
    }
}

TEST(GUI2D_PlotterMenu, NoKeyBelongsToTwoActionsInAnyLanguage)
{
    for (const unsigned char lang : {0, 1, 2, 4, 5}) {
        const ProjectRoot root;
        GUI_Object::setLang(lang);
        const COM_Scoped window(GUI2D_PlotterWindow::New(*root, "Plot"));
        const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
        window->getMenu()->getAllMenus(*menus);
        std::set<QString> keys;
        unsigned long number = 0;
        for (unsigned long i = 0; i < menus->size(); ++i) {
            for (unsigned long j = 0; j < (*menus)[i].getActions().size(); ++j) {
                for (const QKeySequence& key : (*menus)[i].getActions()[j].shortcuts()) {
                    keys.insert(key.toString());
                    ++number;
                }
            }
        }
        EXPECT_EQ(number, 22U) << int(lang);
        EXPECT_EQ(keys.size(), number) << int(lang);
    }
}

TEST(GUI2D_PlotterMenu, OfTwoEqualAcceleratorsTheLaterOneGetsShift)
{
    const TestPlot plot;
    const auto keyOf = [&plot](const char* label) {
        return plot.find(label)->shortcut().toString().toStdString();
    };
    EXPECT_EQ(keyOf("Save &As"), "Ctrl+A");
    EXPECT_EQ(keyOf("Show &Axes"), "Ctrl+Shift+A");
    EXPECT_EQ(keyOf("&Load File"), "Ctrl+L");
    EXPECT_EQ(keyOf("&Legends"), "Ctrl+Shift+L");
}

TEST(GUI2D_PlotterMenu, UndoAndRedoFollowTheViews)
{
    const TestPlot plot;
    const auto state = [&plot] {
        return std::string(plot.find("&Undo")->isEnabled() ? "undo" : "")
               + (plot.find("&Redo")->isEnabled() ? " redo" : "");
    };
    EXPECT_EQ(state(), "");
    plot.addAndShow();
    EXPECT_EQ(state(), ""); // a single view
    plot.trigger("Zoom +");
    EXPECT_EQ(state(), "undo");
    plot.trigger("&Undo");
    EXPECT_EQ(state(), " redo");
    plot.trigger("&Redo");
    EXPECT_EQ(state(), "undo");
    plot.trigger("&Undo");
    plot.trigger("Zoom Fit");
    EXPECT_EQ(state(), "undo redo");
}

TEST(GUI2D_PlotterMenu, ASecondCurveIsASecondView)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.add({0.0, 1.0}, {0.0, 9.0});
    EXPECT_TRUE(plot.find("&Undo")->isEnabled());
    EXPECT_FALSE(plot.find("&Redo")->isEnabled());
}

TEST(GUI2D_PlotterMenu, KeepsItsStatesWhenTheLanguageChanges)
{
    const TestPlot plot;
    plot.addAndShow();
    GUI_Object::setLang(2);
    plot.trigger("Zoom +");
    EXPECT_TRUE(plot.find("&Undo")->isEnabled());
    GUI_Object::setLang(0);
}

TEST(GUI2D_PlotterMenu, WithoutItsEditMenuItDoesNothing)
{
    const TestPlot plot;
    plot.addAndShow();
    GUI_MenuPanel& menu = *plot->getMenu();
    menu.removeFromMenus(*menu.getMenu(1));
    menu.updateStateMenus();
    EXPECT_EQ(menu.getMenu("&Edit"), nullptr);
}
