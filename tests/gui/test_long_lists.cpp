#include <QScrollBar>
#include <ctime>

#include "gui/data/editor_views.h"
#include "gui/editor_drive.h"
#include "gui/view_test.h"
#include "gui/widgets/undo_keys.h"

using namespace quor;
using namespace quor::gui;

namespace {

constexpr int kLines = 100000;

/// What a hand does not wait for, ms of the processor; a build for finding faults is slower.
double patience() {
#ifdef NDEBUG
    return 300;
#else
    return 6000;
#endif
}

class LongList : public ViewTest {
  protected:
    LongList() { editor_views::install(desk); }

    template <class Action>
    static void expectQuick(const char* what, Action action) {
        const std::clock_t start = std::clock();
        action();
        drive::settle();
        const double used = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        EXPECT_LT(used, patience()) << what;
        RecordProperty(what, static_cast<int>(used));
    }

    static void scroll(const char* table) {
        auto* bar = drive::get<QTableView>(table)->verticalScrollBar();
        for (int part = 0; part <= 20; ++part) {
            bar->setValue(bar->maximum() * part / 20);
            drive::settle();
        }
    }
};

TEST_F(LongList, AHundredThousandPointsAreEditedAsAFewAre) {
    std::vector<datafiles::FitPoint> points(kLines);
    for (int i = 0; i < kLines; ++i) {
        points[static_cast<std::size_t>(i)].x = static_cast<float>((i * 7919) % kLines);
        points[static_cast<std::size_t>(i)].y = 1;
    }
    session.change()->xy.points = points;
    expectQuick("open", [&] { desk.doors.editXy(); });
    ASSERT_EQ(drive::lines("XYListe"), kLines);
    expectQuick("scroll", [] { scroll("XYListe"); });
    auto* table = drive::get<QTableView>("XYListe");
    expectQuick("mark all", [&] { table->selectAll(); });
    expectQuick("copy", [] { drive::popupRow("mnuCopy2")->trigger(); });
    expectQuick("set to 0", [] { drive::popupRow("mnuSubDelNull2")->trigger(); });
    EXPECT_EQ(session->xy.points.back().y, 0);
    auto* steps = dynamic_cast<Undoable*>(drive::get<QWidget>("frmManuInput"));
    ASSERT_NE(steps, nullptr);
    expectQuick("undo", [&] { steps->undo(); });
    EXPECT_EQ(session->xy.points.back().y, 1);
    expectQuick("remove", [] { drive::popupRow("mnuSubDelLine2")->trigger(); });
    EXPECT_TRUE(session->xy.points.empty());
    expectQuick("paste", [] { drive::popupRow("mnuPaste2")->trigger(); });
    EXPECT_EQ(drive::lines("XYListe"), kLines);
}

TEST_F(LongList, AsManyMeasuredSetsAsAFileHoldsAreEditedAsAFewAre) {
    std::vector<datafiles::MeasuredPoint> sets(datafiles::kMostMeasuredPoints);
    for (std::size_t i = 0; i < sets.size(); ++i) {
        sets[i].T = static_cast<double>(1 + (i * 7919) % sets.size());
        sets[i].p = 100;
    }
    session.change()->measured.points = sets;
    expectQuick("open", [&] { desk.doors.editMeasuredData(); });
    const char* name = "grdTpV";
    ASSERT_EQ(drive::lines(name), static_cast<int>(sets.size()));
    expectQuick("scroll", [] { scroll("grdTpV"); });
    expectQuick("mark all", [] { drive::get<QTableView>("grdTpV")->selectAll(); });
}

}  // namespace
