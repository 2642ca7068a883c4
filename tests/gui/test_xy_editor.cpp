#include <cmath>
#include <fstream>

#include "datafiles/xy_points.h"
#include "gui/data/editor_views.h"
#include "gui/editor_drive.h"
#include "gui/view_test.h"
#include "gui/widgets/undo_keys.h"

using namespace quor;
using namespace quor::gui;

namespace {

using dialogs::Answer;
using drive::cell;
using drive::click;
using drive::lines;
using drive::read;
using drive::type;

constexpr auto kList = "XYListe";

class ManuInput : public ViewTest {
  protected:
    ManuInput() { editor_views::install(desk); }
    void open() {
        desk.doors.editXy();
        drive::settle();
    }
    const std::vector<datafiles::FitPoint>& points() const { return session->xy.points; }
    void openWith(std::vector<datafiles::FitPoint> points) {
        session.change()->xy.points = std::move(points);
        open();
    }
    static void add(const QString& x, const QString& y) {
        type("txtX", x);
        type("txtY", y);
        click("OKinput");
    }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(folder() / name, std::ios::binary) << text;
        return (folder() / name).string();
    }
    static std::string contents(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::vector<std::pair<float, float>> pairs() const {
        std::vector<std::pair<float, float>> all;
        for (const datafiles::FitPoint& p : points()) all.emplace_back(p.x, p.y);
        return all;
    }
};
using Pairs = std::vector<std::pair<float, float>>;

TEST_F(ManuInput, AnEmptyListSaysSo) {
    open();
    EXPECT_EQ(drive::find("frmManuInput")->windowTitle(), " Input/Edit curve points  ");
    EXPECT_TRUE(drive::isVisible("lblEmpty"));
    EXPECT_EQ(read("lblEmpty"), "empty list");
    EXPECT_EQ(read("statusZeile"), "empty list");
}

TEST_F(ManuInput, AddedPointsStandInTheList) {
    open();
    add("300", "1.5");
    add("310", "2,5");
    EXPECT_EQ(pairs(), (Pairs{{300, 1.5F}, {310, 2.5F}}));
    EXPECT_EQ(lines(kList), 2);
    EXPECT_EQ(cell(kList, 2, 1), "310");
    EXPECT_FALSE(drive::isVisible("lblEmpty"));
    EXPECT_EQ(read("txtX"), "");
    EXPECT_EQ(read("statusZeile"), "line 2");
}

TEST_F(ManuInput, EnterTakesTheInput) {
    open();
    type("txtX", "1");
    type("txtY", "2");
    drive::press("txtY", Qt::Key_Return);
    EXPECT_EQ(pairs(), (Pairs{{1, 2}}));
}

TEST_F(ManuInput, AFieldWithoutANumberIsMarkedAndNothingIsAdded) {
    open();
    type("txtX", "1");
    type("txtY", "");
    click("OKinput");
    EXPECT_TRUE(points().empty());
    EXPECT_EQ(drive::find("txtY")->toolTip(), "A number is needed here.");
}

TEST_F(ManuInput, EditModeChangesTheMarkedLine) {
    openWith({{1, 10, 0}, {2, 20, -1}, {3, 30, 0}});
    click("optInputMode_1");
    click("OKinput");
    EXPECT_EQ(user.lastText(), "No marked item!");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    drive::mark(kList, 2, 2);
    EXPECT_EQ(read("txtX"), "2");
    EXPECT_EQ(read("txtY"), "20");
    type("txtY", "25");
    click("OKinput");
    EXPECT_EQ(pairs(), (Pairs{{1, 10}, {2, 25}, {3, 30}}));
    EXPECT_EQ(points()[1].mark, -1) << "the line stays inactive";
}

TEST_F(ManuInput, ACellIsEditedWhereItStands) {
    openWith({{1, 10, 0}});
    auto* model = drive::get<QAbstractItemView>(kList)->model();
    EXPECT_TRUE(model->setData(model->index(0, 1), "12,5"));
    EXPECT_FALSE(model->setData(model->index(0, 0), "text"));
    EXPECT_EQ(pairs(), (Pairs{{1, 12.5F}}));
}

TEST_F(ManuInput, LoadsAFileWithDecimalCommas) {
    user.fileAnswers.push_back(write("A.XY", "Some comment\r\n1,5;2,25\r\n3;4;5\r\n"));
    open();
    click("cmdLoad");
    EXPECT_EQ(user.files.back().title, "Load (Curve)Points");
    EXPECT_EQ(user.files.back().filter, "x-y Data (*.XY)|*.XY|(*.LRG)|*LRG");
    EXPECT_EQ(pairs(), (Pairs{{1.5F, 2.25F}, {3, 4}}));
    EXPECT_EQ(read("txtComment"), "Some comment");
    EXPECT_EQ(read("statusZeile"),
              QString::fromStdString("  Loaded: " + (folder() / "A.XY").string()));
}

TEST_F(ManuInput, TheDelimiterIsChosen) {
    open();
    EXPECT_EQ(drive::entries("cmbSep"), QStringList({"Semicolon", "Comma", "Tab"}));
    EXPECT_EQ(read("cmbSep"), "Semicolon");
    drive::select("cmbSep", "Comma");
    EXPECT_EQ(session->csv_separator, ',');
    user.fileAnswers.push_back(write("B.XY", "c\r\n1.5,2.25\r\n"));
    click("cmdLoad");
    EXPECT_EQ(pairs(), (Pairs{{1.5F, 2.25F}}));
    drive::select("cmbSep", "Tab");
    EXPECT_EQ(session->csv_separator, '\t');
}

TEST_F(ManuInput, ReadsTheOlderFiles) {
    user.fileAnswers.push_back(write("OLD.LRG", "old\r\n1;2\r\n"));
    open();
    click("cmdLoad");
    EXPECT_EQ(pairs(), (Pairs{{1, 2}}));
}

TEST_F(ManuInput, ACancelledLoadKeepsTheList) {
    openWith({{1, 2, 0}});
    user.fileAnswers.push_back(std::nullopt);
    click("cmdLoad");
    EXPECT_EQ(pairs(), (Pairs{{1, 2}}));
    EXPECT_EQ(lines(kList), 1);
}

TEST_F(ManuInput, SavesTheActivePoints) {
    openWith({{300, 1.5F, 0}, {310, 2.5F, -1}, {-0.25F, 12000, 0}});
    type("txtComment", "My points");
    user.fileAnswers.push_back((folder() / "OUT").string());
    click("cmdSave");
    EXPECT_EQ(user.files.back().title, "(Curve)Points Save as ... ");
    EXPECT_EQ(user.files.back().default_extension, ".XY");
    EXPECT_EQ(contents(folder() / "OUT.XY"),
              "My points\r\n.3000000E+03;.1500000E+01\r\n-.2500000E+00;.1200000E+05\r\n");
    drive::find("frmManuInput")->close();
    EXPECT_TRUE(user.messages.empty()) << "what is saved is not asked for";
}

TEST_F(ManuInput, UnsavedDataAreQuestionedWhenTheViewCloses) {
    open();
    add("1", "2");
    user.answers = {Answer::Yes};
    user.fileAnswers.push_back(std::nullopt);
    click("ESC");
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    ASSERT_TRUE(drive::isVisible("frmManuInput")) << "saving was cancelled";
    user.answers = {Answer::No};
    click("ESC");
    EXPECT_FALSE(drive::isVisible("frmManuInput"));
    EXPECT_EQ(pairs(), (Pairs{{1, 2}})) << "the session keeps the list";
}

TEST_F(ManuInput, UnsavedDataAreQuestionedBeforeALoad) {
    open();
    add("1", "2");
    user.answers = {Answer::Yes};
    user.fileAnswers = {(folder() / "KEPT.XY").string(), write("A.XY", "c\r\n5;6\r\n")};
    click("cmdLoad");
    EXPECT_EQ(contents(folder() / "KEPT.XY"), "\r\n.1000000E+01;.2000000E+01\r\n");
    EXPECT_EQ(pairs(), (Pairs{{5, 6}}));
}

TEST_F(ManuInput, MarkedLinesAreRemovedAfterAQuestion) {
    openWith({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}});
    click("cmdErase");
    EXPECT_EQ(user.lastText(), "No marked item!");
    drive::mark(kList, 2, 2);
    user.answers = {Answer::No};
    click("cmdErase");
    EXPECT_EQ(user.lastText(), "line 2 really remove?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(lines(kList), 4);
    drive::mark(kList, 2, 3);
    user.answers = {Answer::Yes};
    click("cmdErase");
    EXPECT_EQ(user.lastText(), "lines 2 till 3 really remove?");
    EXPECT_EQ(pairs(), (Pairs{{1, 0}, {4, 0}}));
}

TEST_F(ManuInput, TheDeleteKeyRemovesMarkedLines) {
    openWith({{1, 0, 0}, {2, 0, 0}});
    drive::mark(kList, 1, 1);
    user.answers = {Answer::Yes};
    drive::get(kList)->setFocus();
    drive::press(kList, Qt::Key_Delete);
    EXPECT_EQ(pairs(), (Pairs{{2, 0}}));
}

TEST_F(ManuInput, LinesAreSwitchedOffAndOn) {
    openWith({{1, 0, 0}, {2, 0, 0}});
    click("cmdAus");
    EXPECT_EQ(user.lastText(), "No marked item!");
    drive::mark(kList, 2, 2);
    click("cmdAus");
    EXPECT_EQ(points()[1].mark, -1);
    EXPECT_EQ(drive::lineHead(kList, 2), "(2)");
    click("cmdAus");
    EXPECT_EQ(points()[1].mark, 0);
    EXPECT_EQ(drive::lineHead(kList, 2), "2");
}

TEST_F(ManuInput, EveryManipulationChangesAllPoints) {
    struct Case {
        const char* option;
        Pairs result;
    };
    const auto e = std::exp(2.0F);
    const std::vector<Case> cases{{"optManip_0", {{-2, 2}, {-3, 4}}},
                                  {"optManip_1", {{3, 0.5F}, {4, 0.25F}}},
                                  {"optManip_2", {{3, 4.5F}, {4, 6.5F}}},
                                  {"optManip_3", {{3, 5}, {4, 10}}},
                                  {"optManip_4", {{3, std::log(2.0F)}, {4, std::log(4.0F)}}},
                                  {"optManip_5", {{3, e}, {4, e * e}}}};
    open();
    EXPECT_FALSE(drive::isVisible("fraManip"));
    click("cmdManip");
    for (const Case& one : cases) {
        openWith({{3, 2, 0}, {4, 4, -1}});
        click(one.option);
        type("Text1", "2.5");
        click("cmdExecManip");
        ASSERT_EQ(points().size(), 2U);
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_FLOAT_EQ(points()[i].x, one.result[i].first) << one.option;
            EXPECT_NEAR(points()[i].y, one.result[i].second, 1e-5F * std::fabs(points()[i].y))
                << one.option;
        }
        EXPECT_EQ(points()[1].mark, -1);
    }
}

TEST_F(ManuInput, AManipulationWithoutAValueIsToldAndChangesNothing) {
    openWith({{1, 5, 0}, {2, 0, 0}});
    click("cmdManip");
    click("optManip_4");
    click("cmdExecManip");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(user.lastText().starts_with("Line 2 ")) << user.lastText();
    EXPECT_EQ(pairs(), (Pairs{{1, 5}, {2, 0}}));
    click("optManip_2");
    type("Text1", "");
    click("cmdExecManip");
    EXPECT_EQ(drive::find("Text1")->toolTip(), "A number is needed here.");
    EXPECT_EQ(pairs(), (Pairs{{1, 5}, {2, 0}}));
}

TEST_F(ManuInput, SortsAndSwaps) {
    openWith({{3, 10, 0}, {1, 30, -1}, {2, 20, 0}});
    click("XSort");
    EXPECT_EQ(pairs(), (Pairs{{1, 30}, {2, 20}, {3, 10}}));
    EXPECT_EQ(points()[0].mark, -1);
    click("YSort");
    EXPECT_EQ(pairs(), (Pairs{{3, 10}, {2, 20}, {1, 30}}));
    click("cmdChangeXY");
    EXPECT_EQ(pairs(), (Pairs{{10, 3}, {20, 2}, {30, 1}}));
}

TEST_F(ManuInput, TheClipboardComesInAtTheMarkedLine) {
    openWith({{1, 0, 0}, {2, 0, 0}});
    user.clipboard = "T\tp\r\n5,5\t6\r\n7\t8\r\n";
    click("cmdClipEinfuegen");
    EXPECT_EQ(pairs(), (Pairs{{1, 0}, {2, 0}, {5.5F, 6}, {7, 8}}));
    drive::mark(kList, 2, 2);
    user.clipboard = "9\t9";
    drive::popupRow("mnuPaste2")->trigger();
    EXPECT_EQ(pairs(), (Pairs{{1, 0}, {9, 9}, {2, 0}, {5.5F, 6}, {7, 8}}));
}

TEST_F(ManuInput, ThePopUpMenuForwardsToTheEditor) {
    openWith({{1, 10, 0}, {2, 20, 0}, {3, 30, 0}});
    drive::mark(kList, 2, 3);
    drive::popupRow("mnuCopy2")->trigger();
    EXPECT_EQ(user.clipboard, "2\t20\r\n3\t30\r\n");
    EXPECT_EQ(drive::popupRow("mnuSubDelNull2")->text(), "marked cell(s) => 0");
    EXPECT_EQ(drive::popupRow("mnuSubDelLine2")->text(), "remove marked line(s)");
    EXPECT_EQ(drive::popupRow("mnuErase2")->text(), "delete");
    drive::popupRow("mnuSubDelNull2")->trigger();
    EXPECT_EQ(pairs(), (Pairs{{1, 10}, {0, 0}, {0, 0}}));
    user.answers = {Answer::Yes};
    drive::popupRow("mnuSubDelLine2")->trigger();
    EXPECT_EQ(pairs(), (Pairs{{1, 10}}));
    user.clipboard = "4\t5";
    drive::popupRow("mnuPaste2")->trigger();
    EXPECT_EQ(points().size(), 2U);
}

TEST_F(ManuInput, PrintsTheList) {
    openWith({{1, 10, 0}, {2, 20, -1}});
    type("txtComment", "My points");
    click("cmdPrint");
    ASSERT_EQ(user.prints.size(), 1U);
    EXPECT_EQ(user.prints[0].title, "My points");
    EXPECT_NE(user.prints[0].text.find("(2)"), std::string::npos);
}

TEST_F(ManuInput, TheDiagramTakesTheActivePoints) {
    open();
    EXPECT_FALSE(drive::isEnabled("cmdDrawManu"));
    drive::find("frmManuInput")->close();
    drive::settle();
    int drawn = 0;
    desk.doors.drawXy = [&] { ++drawn; };
    open();
    click("cmdDrawManu");
    EXPECT_EQ(user.lastText(), "at least one active point!");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    add("300", "5");
    click("optIsPoints_1");
    click("cmdDrawManu");
    EXPECT_EQ(user.lastText(), "at least two active points!");
    EXPECT_EQ(drawn, 0);
    click("optIsPoints_0");
    click("cmdDrawManu");
    EXPECT_EQ(drawn, 1);
    EXPECT_TRUE(session->xy_graph.as_points);
    add("310", "7");
    add("400", "70");
    click("cmdAus");
    click("optIsPoints_1");
    click("cmdDrawManu");
    const datafiles::XyGraph& graph = session->xy_graph;
    EXPECT_EQ(drawn, 2);
    EXPECT_FALSE(graph.as_points);
    EXPECT_EQ(graph.points.size(), 2U);
    EXPECT_EQ(graph.title, "Experimental points y(T)");
    EXPECT_EQ(graph.x_title, "T / K");
    EXPECT_EQ(graph.y_title, "y");
    EXPECT_EQ(graph.range.x_max, 310);
    EXPECT_EQ(graph.range.y_min, 5);
}

TEST_F(ManuInput, TheFittingTakesThisList) {
    open();
    EXPECT_FALSE(drive::isEnabled("cmdFitting"));
    drive::find("frmManuInput")->close();
    drive::settle();
    int sent = 0;
    desk.doors.fit = [&] { ++sent; };
    change([](auto& s) { s.fit_source = session::FitSource::measuredData; });
    open();
    click("cmdFitting");
    EXPECT_EQ(sent, 1);
    EXPECT_EQ(session->fit_source, session::FitSource::xyList);
}

TEST_F(ManuInput, ASecondOpeningBringsTheSameViewToTheFront) {
    open();
    QWidget* first = drive::find("frmManuInput");
    openWith({{1, 2, 0}});
    EXPECT_EQ(drive::find("frmManuInput"), first);
    EXPECT_EQ(lines(kList), 1);
}

TEST_F(ManuInput, StepsAreTakenBackAndMadeAgainByTheirKeys) {
    openWith({{3, 30, 0}, {1, 10, 0}});
    click("XSort");
    add("2", "20");
    ASSERT_EQ(pairs(), (Pairs{{1, 10}, {3, 30}, {2, 20}}));
    const auto* steps = dynamic_cast<Undoable*>(drive::find("frmManuInput"));
    ASSERT_NE(steps, nullptr);
    EXPECT_EQ(steps->undoName(), "Add line");
    drive::press(kList, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pairs(), (Pairs{{1, 10}, {3, 30}}));
    EXPECT_EQ(lines(kList), 2);
    EXPECT_EQ(steps->undoName(), "Sort by x");
    drive::press(kList, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pairs(), (Pairs{{3, 30}, {1, 10}}));
    drive::press(kList, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(pairs(), (Pairs{{1, 10}, {3, 30}}));
    EXPECT_EQ(cell(kList, 1, 1), "1");
    EXPECT_EQ(steps->redoName(), "Add line");
}

TEST_F(ManuInput, ALoadedFileBeginsAHistoryOfItsOwn) {
    openWith({{3, 30, 0}, {1, 10, 0}});
    click("XSort");
    user.answers = {Answer::No};
    user.fileAnswers.push_back(write("A.XY", "c\r\n1;2\r\n"));
    click("cmdLoad");
    ASSERT_EQ(pairs(), (Pairs{{1, 2}}));
    drive::press(kList, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pairs(), (Pairs{{1, 2}})) << "nothing of the former list comes back";
}

}  // namespace
