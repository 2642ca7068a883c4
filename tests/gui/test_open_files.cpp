#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <fstream>

#include "gui/diagrams/diagram_window.h"
#include "gui/graph_test.h"
#include "gui/widgets/settings.h"
#include "session/project_session.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

namespace fs = std::filesystem;
using drive::choose;
using drive::click;
using drive::when;

/// Files that come to the frame from outside.
class OpenFiles : public GraphTest {
  protected:
    std::string path(const char* name) const { return (folder() / name).string(); }

    void drop(const std::vector<std::string>& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& file : files)
            urls << QUrl::fromLocalFile(QString::fromStdString(file));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(frame.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(frame.get(), &event);
        drive::settle();
    }
    void answerChoice(const char* substance) {
        when("frmStoffWahl", [substance] {
            drive::type("Text1", substance);
            click("StoffOK");
        });
        when("frmQModell", [] { click("OKModell"); });
    }
};

TEST_F(OpenFiles, ADatabaseIsOpenedAsByItsRow) {
    fs::create_directory(folder() / "other");
    databases::Write(folder() / "other" / "OWN.Q05", {databases::Row("Water")});
    answerChoice("Water");
    drop({path("other/OWN.Q05")});
    EXPECT_EQ(session->database_file, "OWN.Q05");
    EXPECT_EQ(session->substance.name, "Water");
    EXPECT_EQ(settings::recentFiles().constFirst().toStdString(), path("other/OWN.Q05"));
}

TEST_F(OpenFiles, AProjectIsLoaded) {
    user.fileAnswers = {path("mine.QCF")};
    session::save_project(session);
    databases::Write(folder() / "SECOND.Q05", {databases::Row("Water")});
    answerChoice("Water");
    drop({path("SECOND.Q05")});
    ASSERT_EQ(session->substance.name, "Water");
    drop({path("mine.QCF")});
    EXPECT_EQ(session->substance.name, "Propane");
    EXPECT_EQ(settings::recentFiles().constFirst().toStdString(), path("mine.QCF"));
}

TEST_F(OpenFiles, ExperimentalDataOpenInTheirTable) {
    fs::copy(fs::path(QUOR_SOURCE_DATA) / "samples" / "propane_saturation.BAQ", folder());
    drop({path("propane_saturation.BAQ")});
    EXPECT_TRUE(drive::isVisible("frmTpvEdit"));
    EXPECT_EQ(session->measured.points.size(), 28U);
    // Data of another substance are asked about, as by the command of the table.
    fs::copy(fs::path(QUOR_SOURCE_DATA) / "samples" / "water_saturation.BAQ", folder());
    user.answers = {dialogs::Answer::No, dialogs::Answer::No};
    user.messages.clear();
    drop({path("water_saturation.BAQ")});
    ASSERT_FALSE(user.messages.empty());
    EXPECT_NE(user.messages.front().text.find("substance not found in the actual data base"),
              std::string::npos)
        << user.messages.front().text;
    EXPECT_EQ(session->measured.file, "propane_saturation.BAQ");
}

TEST_F(OpenFiles, PointsOpenInTheEditor) {
    fs::copy(fs::path(QUOR_SOURCE_DATA) / "samples" / "propane_vapour_pressure.XY", folder());
    drop({path("propane_vapour_pressure.XY")});
    EXPECT_TRUE(drive::isVisible("frmManuInput"));
    EXPECT_GT(session->xy.points.size(), 5U);
}

TEST_F(OpenFiles, ADiagramIsShown) {
    openIsotherm();
    user.fileAnswers = {path("saved.oc2")};
    choose("mnuSaveOC2");
    ASSERT_TRUE(fs::exists(folder() / "saved.oc2"));
    choose("mnuHaupt");
    drive::settle();
    ASSERT_EQ(desk.lastUsed<DiagramWindow>(), nullptr);
    drop({path("saved.oc2")});
    ASSERT_NE(desk.lastUsed<DiagramWindow>(), nullptr);
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    EXPECT_TRUE(drive::read("frmGraph2D").endsWith("saved.oc2"));
}

/// A program that was just started, to which a diagram comes that another run has saved.
class FreshStart : public OpenFiles {
  protected:
    FreshStart() {
        openIsotherm();
        user.fileAnswers = {path("saved.oc2")};
        choose("mnuSaveOC2");
        saved = sheet().chart;
        frame->close();
        drive::settle();
        frame.reset();
        session::reset_everything(session);
        frame = std::make_unique<MainWindow>(desk, commands);
        frame->show();
        frame->startUp();
        drive::settle();
        if (drive::find("frmTip") != nullptr) click("cmdOK");
        user.messages.clear();
    }
    chart::Chart2D saved;
};

TEST_F(FreshStart, ADiagramIsShownAsItWasSavedWithItsSubstance) {
    ASSERT_FALSE(session->substance_set);
    drop({path("saved.oc2")});
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(curve(0).x, saved.curves.at(0).x);
    EXPECT_EQ(sheet().chart.x, saved.x);
    EXPECT_TRUE(sheet().chart.footer.text.starts_with("Propane,")) << sheet().chart.footer.text;
    EXPECT_EQ(sheet().chart.footer.text, saved.footer.text);
    EXPECT_EQ(drive::get<QLabel>("lblFluid")->text(), "no substance");
    EXPECT_FALSE(drive::isEnabled("cmdDraw"));
    // It can be read, exported and saved.
    QTest::mouseMove(surface(), surface()->rect().center());
    drive::settle();
    EXPECT_TRUE(drive::read("lblReadout").contains("X ="))
        << drive::read("lblReadout").toStdString();
    user.fileAnswers = {path("picture.svg")};
    choose("mnuBild_1");
    EXPECT_TRUE(fs::exists(path("picture.svg")));
    user.fileAnswers = {path("copy.oc2")};
    choose("mnuSaveOC2");
    EXPECT_EQ(user.files.back().name, "saved.oc2");
    EXPECT_TRUE(fs::exists(path("copy.oc2")));
}

TEST_F(FreshStart, ItsSubstanceIsOfferedForFurtherCurves) {
    drop({path("saved.oc2")});
    user.fileAnswers = {path("STUDENT.Q05")};
    when("frmStoffWahl", [] {
        EXPECT_EQ(drive::read("Text1"), "Propane");
        click("StoffOK");
    });
    when("frmQModell", [] { click("OKModell"); });
    click("cmdSubstance");
    ASSERT_TRUE(session->substance_set);
    EXPECT_FALSE(drive::isEnabled("cmdSubstance"));
    drawAt("320");
    ASSERT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_EQ(sheet().curves.at(1).basis.fluid.substance().name, "Propane");
    EXPECT_NE(curve(1).x, curve(0).x);
}

TEST_F(OpenFiles, OtherFilesAreRefused) {
    std::ofstream(folder() / "notes.txt") << "x";
    drop({path("notes.txt"), path("gone.QCF")});
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text, "This is no file of QUOR-6:\n" + path("notes.txt"));
    EXPECT_EQ(user.messages[1].text, "File not found:\n" + path("gone.QCF"));
    EXPECT_EQ(session->substance.name, "Propane");
}

TEST_F(OpenFiles, TheMenuOffersRecentFilesAndDropsMissingOnes) {
    drive::open("mnuData_OpenBank");
    auto* recent = frame->findChild<QMenu*>("mnuData_Recent");
    ASSERT_NE(recent, nullptr);
    ASSERT_EQ(recent->actions().size(), 1);
    EXPECT_TRUE(recent->isEnabled());
    EXPECT_TRUE(recent->actions().constFirst()->text().contains("STUDENT.Q05"));
    answerChoice("Propane");
    recent->actions().constFirst()->trigger();
    drive::settle();
    EXPECT_TRUE(user.messages.empty()) << user.lastText();

    fs::remove(folder() / "STUDENT.Q05");
    drive::open("mnuData_OpenBank");
    recent->actions().constFirst()->trigger();
    EXPECT_EQ(user.lastText(), "File not found:\n" + path("STUDENT.Q05"));
    drive::open("mnuData_OpenBank");
    EXPECT_TRUE(recent->actions().isEmpty());
    EXPECT_FALSE(recent->isEnabled());
}

}  // namespace
