#include <QMessageBox>

#include <fstream>

#include "app/open_file.h"
#include "gui/editor_drive.h"
#include "gui/graph_test.h"
#include "gui/widgets/qt_dialogs.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using dialogs::Answer;
using drive::choose;
using drive::click;

constexpr auto kQuestion = "Data not yet saved.\nSave now?";

/// The program with a diagram, measured data and points that are in no file.
class Unsaved : public GraphTest {
  protected:
    Unsaved() { user.standing.clear(); }
    /// The next question in a real box gets Escape.
    void escape() {
        dialogs::current().message = [scripted = dialogs::current().message](const auto& asked) {
            dialogs::current().message = scripted;
            return dialogs::desktop().message(asked);
        };
        drive::when("MessageBox", [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->text(), kQuestion);
            EXPECT_NE(box->button(QMessageBox::Cancel), nullptr);
            QTest::keyClick(box, Qt::Key_Escape);
        });
    }
    void changeMeasuredData() {
        session.change()->measured.points = {{.T = 300, .p = 997}, {.T = 290, .p = 770}};
        choose("mnuData_BatchEdit");
        click("TSort");
    }
    std::size_t sets() const { return session->measured.points.size(); }
    /// Expects one question, and forgets it.
    void expectQuestion() {
        EXPECT_EQ(user.messages.size(), 1U);
        EXPECT_EQ(user.lastText(), kQuestion);
        user.messages.clear();
    }
    std::string path(const char* name) const { return (folder() / name).string(); }
};

TEST_F(Unsaved, EscapeOnTheQuestionOfTheProgramsEndLosesNothing) {
    changeMeasuredData();
    escape();
    EXPECT_FALSE(frame->close());
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(drive::isVisible("frmTpvEdit"));
    EXPECT_EQ(sets(), 2U);
}

TEST_F(Unsaved, EscapeOnTheQuestionOfTheXyEditorKeepsItOpen) {
    choose("mnuData_EditXY");
    drive::type("txtX", "1");
    drive::type("txtY", "2");
    click("OKinput");
    escape();
    drive::press("txtX", Qt::Key_Escape);
    EXPECT_TRUE(drive::isVisible("frmManuInput"));
}

TEST_F(Unsaved, ADiagramWithACurveAsksBeforeItIsClosed) {
    openIsotherm();
    QPointer<DiagramWindow> view = window();
    escape();
    view->parentWidget()->close();
    drive::settle();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(diagrams::curve_count(view->sheet()), 1);
    escape();
    drive::open("mnuWindow_CloseAll");  // which fills the menu anew
    drive::action("mnuWindow_CloseAll")->trigger();
    drive::settle();
    ASSERT_NE(view, nullptr);
    escape();
    EXPECT_FALSE(frame->close());
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->isVisible());
    EXPECT_TRUE(frame->isVisible());
}

TEST_F(Unsaved, OtherUnitsLoseNothingAndAskNothing) {
    openIsotherm();
    QPointer<DiagramWindow> view = window();
    drive::when("frmOptions", [] {
        click("optMolarSpez_1");
        click("cmdOK");
    });
    choose("mnuOptions");
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(diagrams::curve_count(view->sheet()), 1);
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
    escape();
    EXPECT_FALSE(view->close()) << "the curve is in no file yet";
}

TEST_F(Unsaved, ADiagramAsksOnlyAboutWhatIsInNoFile) {
    openIsotherm();
    user.fileAnswers = {path("a.oc2")};
    choose("mnuSaveOC2");
    user.messages.clear();
    // Its window is nothing to be saved.
    click("cmdZoom");
    user.fileAnswers = {path("a.oc2")};
    choose("mnuLoadOC2");
    EXPECT_TRUE(user.messages.empty() || user.lastText() != kQuestion) << user.lastText();
    drawAt("320");
    user.messages.clear();
    user.answers = {Answer::Cancel};
    choose("mnuLoadOC2");
    expectQuestion();
    EXPECT_EQ(diagrams::curve_count(sheet()), 2);
    user.answers = {Answer::Yes};
    user.fileAnswers = {path("b.oc2")};
    choose("mnuHaupt");
    drive::settle();
    expectQuestion();
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(std::filesystem::exists(path("b.oc2")));
    chart::Chart2D saved;
    ASSERT_TRUE(chart::load_chart(path("b.oc2"), saved));
    EXPECT_FALSE(saved.curves.at(1).x.empty());
}

TEST_F(Unsaved, AnEmptyDiagramClosesWithoutAQuestion) {
    drive::when("frmTpVSInputBox", [] { click("cmdOK"); });
    choose("mnuGraf_sub_cut_1");
    user.messages.clear();
    choose("mnuHaupt");
    drive::settle();
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Unsaved, TheFittingRowAsksBeforeItClearsMeasuredData) {
    changeMeasuredData();
    user.messages.clear();
    user.answers = {Answer::Cancel};
    choose("mnuFitting");
    expectQuestion();
    EXPECT_EQ(sets(), 2U);
    EXPECT_FALSE(drive::isVisible("frmQFitting"));
    user.answers = {Answer::Yes};
    user.fileAnswers = {path("kept.BAQ")};
    choose("mnuFitting");
    expectQuestion();
    EXPECT_TRUE(std::filesystem::exists(path("kept.BAQ")));
    EXPECT_EQ(sets(), 0U);
    EXPECT_TRUE(drive::isVisible("frmQFitting"));
}

TEST_F(Unsaved, AFileIsNotLoadedOverUnsavedDataWithoutAQuestion) {
    std::filesystem::copy(
        std::filesystem::path(QUOR_SOURCE_DATA) / "samples" / "propane_saturation.BAQ", folder());
    changeMeasuredData();
    user.messages.clear();
    user.answers = {Answer::Cancel};
    open_file::open(desk, commands, path("propane_saturation.BAQ"));
    expectQuestion();
    EXPECT_EQ(sets(), 2U);
    // Also when their table is not open any more.
    user.answers = {Answer::No};
    click("cmdClose");
    expectQuestion();
    user.answers = {Answer::Cancel};
    open_file::open(desk, commands, path("propane_saturation.BAQ"));
    expectQuestion();
    EXPECT_EQ(sets(), 2U);
    user.answers = {Answer::No};
    open_file::open(desk, commands, path("propane_saturation.BAQ"));
    EXPECT_EQ(sets(), 28U);
    user.messages.clear();
    click("cmdClose");
    EXPECT_TRUE(user.messages.empty());
}

}  // namespace
