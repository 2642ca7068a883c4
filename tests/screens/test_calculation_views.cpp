#include <filesystem>

#include "gui/calc_view_test.h"
#include "models/unit_text.h"
#include "screens/look.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::select;
using drive::type;
using drive::when;

// Pictures of the calculation views, of the reference view and of the data editor.
class CalculationScreens : public CalcViewTest {
  protected:
    ~CalculationScreens() override { QApplication::setPalette(light_); }

    void lookAt(const QString& view, const QString& name) {
        look::at(drive::find(view), name + suffix);
    }

    void darken() {
        QPalette dark(QColor(0x30, 0x33, 0x36), QColor(0x30, 0x33, 0x36));
        dark.setColor(QPalette::Base, QColor(0x24, 0x26, 0x28));
        dark.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2d, 0x30));
        QApplication::setPalette(dark);
        suffix = "_dark";
    }

    void lookAtDirectCalculations();
    void lookAtChoices();
    void lookAtTanks();
    void lookAtData();
    void lookAtUnits();

    QString suffix;
    const QPalette light_ = QApplication::palette();
};

void CalculationScreens::lookAtDirectCalculations() {
    chooseTp();
    look::at(&frame, "frame_result_empty" + suffix);
    calculate("300", "5000");
    look::at(&frame, "frame_result" + suffix);
    lookAt("frmCalcOut", "frmCalcOut_state");
    lookAt("frmParinput", "frmParinput_Tp");
    click("ResPlus_1");
    click("ResPlus_2");
    click("chkUHS");
    lookAt("frmCalcOut", "frmCalcOut_pages");
    click("cmdCEOSDiagnose");
    lookAt("frmCEOSDiagnose", "frmCEOSDiagnose_two_phase");
    calculate("400", "9000");
    lookAt("frmCalcOut", "frmCalcOut_supercritical");
    click("cmdCEOSDiagnose");
    lookAt("frmCEOSDiagnose", "frmCEOSDiagnose_one_root");
    calculate("230", "500");
    click("cmdCEOSDiagnose");
    lookAt("frmCEOSDiagnose", "frmCEOSDiagnose_cold");

    choose("mnuCalc_0");
    type("par_0", "280");
    type("par_2", "400");
    lookAt("frmParinput", "frmParinput_rho");
    click("cmdParameter_OK");
    lookAt("frmCalcOut", "frmCalcOut_mixture");

    choose("mnuCalc_11");
    calculate("350", "4000");
    lookAt("frmCalcOut", "frmCalcOut_functions");
    click("cmdIsoCalc");
    lookAt("frmIsoCalc", "frmIsoCalc");
    look::at(&frame, "frame_iso" + suffix);
    click("cmdEsc");

    choose("mnuCalc_18");
    type("par_0", "350");
    click("cmdParameter_OK");
    lookAt("frmCalcOut", "frmCalcOut_virial");
    click("cmdCalc_OK");
}

void CalculationScreens::lookAtChoices() {
    when("frmCalcIn", [this] {
        lookAt("frmCalcIn", "frmCalcIn_global");
        click("opt_glob_1");
        lookAt("frmCalcIn", "frmCalcIn_partial");
        click("Ref_opt_1");
        lookAt("frmCalcIn", "frmCalcIn_approximation");
        click("Ref_opt_2");
        when("frmParinput", [this] {
            lookAt("frmParinput", "frmParinput_reference");
            click("cancel");
        });
        click("RefInput");
        click("optPartialBenson_1");
        lookAt("frmCalcIn", "frmCalcIn_database");
        click("ESC");
    });
    choose("mnuCalc_5");
    when("frmReferenz", [this] {
        lookAt("frmReferenz", "frmReferenz");
        click("opt_HNull_1");
        lookAt("frmReferenz", "frmReferenz_formation");
        click("ESC");
    });
    click("Toolbar1_11");
}

void CalculationScreens::lookAtTanks() {
    choose("mnuCalc_15");
    lookAt("frmParinput", "frmParinput_tank");
    for (const auto& [m, name] :
         {std::pair{"30", "low"}, {"500", "half"}, {"700", "high"}, {"950", "full"}}) {
        type("par_0", "1");
        type("par_1", m);
        type("par_2", "280");
        click("cmdParameter_OK");
        lookAt("frmKessel", QString("frmKessel_") + name);
    }
    look::at(&frame, "frame_tank" + suffix);
    type("par_2", "350");
    click("cmdParameter_OK");
    lookAt("frmKessel", "frmKessel_supercritical");
    click("cancel");
}

void CalculationScreens::lookAtData() {
    const std::filesystem::path file =
        std::string(QUOR_SOURCE_DATA) + "/samples/carbon_dioxide_saturation.BAQ";
    choose("mnuData_BatchInput");
    lookAt("frmTpvEdit", "frmTpvEdit_empty");
    user.fileAnswers.emplace_back(file.string());
    click("cmdBatchLoad");
    click("cmdAus");
    lookAt("frmTpvEdit", "frmTpvEdit");
    click("optInputMode_1");
    click("opt_Rho_Unit_1");
    click("opt_T_unit_1");
    lookAt("frmTpvEdit", "frmTpvEdit_volumes");
    look::at(&frame, "frame_data" + suffix);
    click("cmdClose");
    session.change()->batch_mode = true;
    choose("mnuCalc_2");
    click("cmdVor");
    lookAt("frmCalcOut", "frmCalcOut_batch");
    click("cmdCalc_OK");
}

void CalculationScreens::lookAtUnits() {
    const auto inAll = [&](const std::vector<const char*>& views, const QString& name) {
        for (const char* set : {"metric", "chemistry", "us", "T=degF,p=psi(g),v=ft^3/lbmol"}) {
            session.change()->units = *models::read_choice(set);
            const QString of = QString("_%1_%2").arg(name, QString(set).section('=', 0, 0));
            for (const char* view : views) lookAt(view, view + of);
        }
        session.change()->units = {};
    };
    session.change()->batch_mode = false;
    chooseTp();
    calculate("270", "2900");
    for (const char* page : {"ResPlus_1", "ResPlus_2", "chkUHS"}) click(page);
    click("cmdCEOSDiagnose");
    inAll({"frmCalcOut", "frmCEOSDiagnose"}, "pages");
    choose("mnuCalc_11");
    calculate("350", "4000");
    click("cmdIsoCalc");
    inAll({"frmCalcOut", "frmIsoCalc"}, "functions");
    click("cmdEsc");
    choose("mnuCalc_15");
    type("par_0", "1");
    type("par_1", "500");
    type("par_2", "280");
    click("cmdParameter_OK");
    inAll({"frmCalcOut", "frmKessel"}, "tank");
    click("cancel");
}

TEST_F(CalculationScreens, InLight) {
    startProject("Carbon dioxide");
    lookAtDirectCalculations();
    lookAtChoices();
    lookAtTanks();
    lookAtData();
    lookAtUnits();
}

TEST_F(CalculationScreens, InDark) {
    darken();
    startProject("Carbon dioxide");
    lookAtDirectCalculations();
    lookAtChoices();
    lookAtTanks();
    lookAtData();
}

}  // namespace
