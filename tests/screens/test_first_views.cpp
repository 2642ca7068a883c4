#include <QDialog>

#include "app/help_viewer.h"
#include "app/main_window.h"
#include "app/wiring.h"
#include "gui/data/file_view.h"
#include "gui/view_test.h"
#include "gui/widgets/help_topics.h"
#include "screens/look.h"
#include "support/databases.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::select;
using drive::type;
using drive::when;

// A light and a dark palette; both at the scale of the process.
class Screens : public ViewTest {
  protected:
    Screens() {
        const std::filesystem::path data = std::string(QUOR_SOURCE_DATA);
        for (const char* name : {"SYNOM.TXT", "QUORTIPS_E.TXT"})
            std::filesystem::copy_file(data / name, folder() / name);
        databases::WriteAll(folder() / "STUDENT.Q05");
        frame.show();
        frame.startUp();
    }
    ~Screens() override { QApplication::setPalette(light_); }

    void darken() {
        QPalette dark(QColor(0x30, 0x33, 0x36), QColor(0x30, 0x33, 0x36));
        dark.setColor(QPalette::Base, QColor(0x24, 0x26, 0x28));
        dark.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2d, 0x30));
        QApplication::setPalette(dark);
    }

    QString student() { return QString::fromStdString((folder() / "STUDENT.Q05").string()); }

    Commands commands;
    MainWindow frame{desk, commands};
    const QPalette light_ = QApplication::palette();
};

void look_at_all(MainWindow& frame, ScriptedDialogs& user, const QString& database,
                 const QString& suffix) {
    look::at(drive::find("frmTip"), "tip" + suffix);
    click("cmdOK");
    click("cmdErstnutzer");
    look::at(&frame, "frame_start" + suffix);
    click("cmdErstnutzer");

    user.fileAnswers = {database.toStdString()};
    when("frmStoffWahl", [&] {
        look::at(drive::find("frmStoffWahl"), "substance_choice" + suffix);
        QTest::keyClicks(drive::find("Text1"), "carbon");
        look::at(drive::find("frmStoffWahl"), "substance_choice_filtered" + suffix);
        type("Text1", "Carbon dioxide");
        click("StoffOK");
    });
    when("frmQModell", [&] {
        look::at(drive::find("frmQModell"), "model_choice" + suffix);
        select("HLVKombi", "Watson-correlation");
        when("frmBParInput", [&] {
            look::at(drive::find("frmBParInput"), "manual_virial" + suffix);
            click("cancel");
        });
        select("EOSKombi", "VIRIAL Equ., Manual Input");
        look::at(drive::find("frmQModell"), "model_choice_virial" + suffix);
        select("EOSKombi", "CEOS Peng / Robinson");
        click("OKModell");
    });
    click("Toolbar1_2");
    look::at(&frame, "frame_ready" + suffix);
    for (const char* menu : {"mnuData", "mnuCalcMain", "mnu2D"}) {
        auto* popup = frame.findChild<QMenu*>(menu);
        popup->popup(frame.mapToGlobal(QPoint(40, 40)));
        look::at(popup, QString("menu_") + menu + suffix);
        popup->close();
    }
}

/// The help at a page with formulas and at one with tables, and the file view with its preview.
void look_at_help_and_files(Desk& desk, const std::filesystem::path& folder,
                            const QString& suffix) {
    if (drive::find("frmTip") != nullptr) click("cmdOK");
    const std::filesystem::path data = std::string(QUOR_SOURCE_DATA);
    std::filesystem::copy(data.parent_path() / "help", folder / "help",
                          std::filesystem::copy_options::recursive);
    desk.showHelp(help::kEquationsOfState + 6);
    look::at(drive::find("helpViewer"), "help_formula" + suffix);
    desk.showHelp(help::kSurfaces);
    type("helpSearch", "polytropic");
    look::at(drive::find("helpViewer"), "help_search" + suffix);
    drive::find("helpViewer")->close();

    for (const char* name : {"propane_saturation.BAQ", "water_saturation.BAQ"})
        std::filesystem::copy_file(data / "samples" / name, folder / name);
    when("frmCmnDlg", [&] {
        select("filOpenList", "propane_saturation.BAQ");
        look::at(drive::find("frmCmnDlg"), "file_view" + suffix);
        click("cmdOpenCancel");
    });
    FileView::choose(desk, {.title = "Open a batch-file of experimental data (*.BAQ)",
                            .filter = "QUOR-specific file (*.BAQ)|*.BAQ",
                            .folder = folder.string(),
                            .default_extension = ".BAQ"});
}

TEST_F(Screens, HelpAndFilesInLight) {
    look_at_help_and_files(desk, folder(), "");
}

TEST_F(Screens, HelpAndFilesInDark) {
    darken();
    look_at_help_and_files(desk, folder(), "_dark");
}

TEST_F(Screens, FirstViewsInLight) {
    look_at_all(frame, user, student(), "");
}

TEST_F(Screens, FirstViewsInDark) {
    darken();
    look_at_all(frame, user, student(), "_dark");
}

}  // namespace
