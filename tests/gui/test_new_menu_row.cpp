#include "gui/frame_test.h"

namespace {

using drive::choose;
using drive::offers;

/// What a new row of the menu needs: its row in the catalogue, and the command that it runs.
constexpr menu::Row kRow{.parent = "mnuHilfe",
                         .control = "mnuHilfe_Count",
                         .caption = "Count &Atoms",
                         .action = "mnuHilfe_Count",
                         .hint = "Says how many there are"};

class NewMenuRow : public FrameTest {
  protected:
    void openWith(menu::Row row) {
        rows.assign(menu::rows().begin(), menu::rows().end());
        rows.push_back(row);
        wiring::connectViews(desk, commands);
        frame = std::make_unique<MainWindow>(desk, commands, rows);
        frame->show();
        frame->startUp();
        drive::settle();
        if (drive::find("frmTip") != nullptr) drive::click("cmdOK");
    }

    std::vector<menu::Row> rows;
    int runs = 0;
};

TEST_F(NewMenuRow, StandsInItsMenuAndRunsItsCommand) {
    commands.add("mnuHilfe_Count", [this] { ++runs; });
    openWith(kRow);
    const QAction* action = drive::action("mnuHilfe_Count");
    EXPECT_EQ(action->text(), "Count &Atoms");
    EXPECT_EQ(action->statusTip(), "Says how many there are");
    EXPECT_TRUE(frame->findChild<QMenu*>("mnuHilfe")->actions().contains(action));
    choose("mnuHilfe_Count");
    EXPECT_EQ(runs, 1);
}

TEST_F(NewMenuRow, StaysDisabledWithoutACommand) {
    openWith(kRow);
    EXPECT_FALSE(offers("mnuHilfe_Count"));
}

TEST_F(NewMenuRow, IsSwitchedByTheCommandThatItNames) {
    commands.add("mnuHilfe_Count", [this] { ++runs; });
    menu::Row row = kRow;
    row.command = session::Command::calculations;
    openWith(row);
    EXPECT_FALSE(offers("mnuHilfe_Count"));
    openSubstance("Carbon dioxide");
    choose("mnuHilfe_Count");
    EXPECT_EQ(runs, 1);
}

}  // namespace
