#include "app/main_window.h"
#include "app/wiring.h"
#include "estimation/fit_state.h"
#include "gui/editor_drive.h"
#include "gui/view_test.h"
#include "screens/look.h"
#include "session/xy_session.h"
#include "support/databases.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::tab;
using drive::type;
using drive::when;

class EditorScreens : public ViewTest {
  protected:
    EditorScreens() {
        databases::WriteAll(folder() / "STUDENT.Q05");
        wiring::connectViews(desk, commands);
        frame.show();
        frame.startUp();
        if (drive::find("frmTip") != nullptr) click("cmdOK");
        user.fileAnswers = {(folder() / "STUDENT.Q05").string()};
        when("frmStoffWahl", [] {
            type("Text1", "Benzene");
            click("StoffOK");
        });
        when("frmQModell", [] { click("OKModell"); });
        click("Toolbar1_2");
    }
    ~EditorScreens() override { QApplication::setPalette(light_); }
    void darken() {
        QPalette dark(QColor(0x30, 0x33, 0x36), QColor(0x30, 0x33, 0x36));
        dark.setColor(QPalette::Base, QColor(0x24, 0x26, 0x28));
        dark.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2d, 0x30));
        QApplication::setPalette(dark);
    }
    void sample(const char* name) {
        (void)session::load_xy(session, std::string(QUOR_SOURCE_DATA) + "/samples/" + name);
    }

    /// Pictures of all tabs of a view.
    static void allTabs(const QString& view, const QString& picture) {
        auto* tabs = drive::get<QTabWidget>("SSTab1");
        for (int i = 0; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            drive::settle();
            look::at(drive::find(view), QString("%1_%2").arg(picture).arg(i));
        }
    }

    Commands commands;
    MainWindow frame{desk, commands};
    const QPalette light_ = QApplication::palette();
};

TEST_F(EditorScreens, SubstanceData) {
    when("frmBankEdit", [] {
        allTabs("frmBankEdit", "substance_data");
        click("ESC");
    });
    choose("mnuData_EditStoffdaten");
}

TEST_F(EditorScreens, SubstanceDataInDark) {
    darken();
    when("frmBankEdit", [] {
        tab("SSTab1", "Vapour Pressure");
        look::at(drive::find("frmBankEdit"), "substance_data_dark");
        click("ESC");
    });
    choose("mnuData_EditStoffdaten");
}

TEST_F(EditorScreens, XyEditor) {
    choose("mnuData_EditXY");
    look::at(&frame, "xy_editor_empty");
    drive::find("frmManuInput")->parentWidget()->close();
    sample("benzene_vapour_pressure.XY");
    change([](auto& s) { s.xy.points[2].mark = -1; });
    choose("mnuData_EditXY");
    click("cmdManip");
    drive::mark("XYListe", 4, 6);
    type("Text1", "");
    click("optManip_2");
    click("cmdExecManip");
    look::at(&frame, "xy_editor");
}

TEST_F(EditorScreens, GroupContributions) {
    struct Way {
        const char* row;
        const char* command;
        const char* picture;
    };
    for (const Way& way : {Way{"mnuData_JOBACK_CritData", "cmdCalcCrit", "groups_critical"},
                           Way{"mnuData_JOBACK_bildung", "cmdCalcBildung", "groups_formation"},
                           Way{"mnuData_JOBACK_cpIdG", "cmdCalccp", "groups_cp"}}) {
        when("frmJOBACK", [&] {
            type("txtInkr_0", "2");
            type("txtInkr_2", "1");
            type("txtInkr_19", "1");
            click(way.command);
            look::at(drive::find("frmJOBACK"), way.picture);
            click("cmdEsc");
        });
        choose(way.row);
    }
}

void look_at_fitting(MainWindow& frame, const QString& suffix) {
    choose("mnuFitting");
    look::at(&frame, "fitting_menu" + suffix);
    tab("SSTab1", "Vapour pressure");
    click("optFit_8");
    look::at(&frame, "fitting_start" + suffix);
    click("cmdPropose");
    click("cmdStart");
    look::at(&frame, "fitting_wagner" + suffix);
    click("cmdGraphResid");
    look::at(&frame, "fitting_residuals" + suffix);
    click("optFit_6");
    click("cmdPropose");
    click("cmdStart");
    click("cmdGraphLnp");
    type("txtXY", "350");
    click("cmdCalc");
    look::at(&frame, "fitting_thodos" + suffix);
    tab("SSTab1", "General");
    click("optFit_1");
    click("cmdStart");
    look::at(&frame, "fitting_combi" + suffix);
    tab("SSTab1", "Heat capac.");
    click("optFit_18");
    look::at(&frame, "fitting_cp" + suffix);
}

TEST_F(EditorScreens, Fitting) {
    sample("benzene_vapour_pressure.XY");
    look_at_fitting(frame, "");
}

TEST_F(EditorScreens, FittingInDark) {
    darken();
    sample("benzene_vapour_pressure.XY");
    look_at_fitting(frame, "_dark");
}

}  // namespace
