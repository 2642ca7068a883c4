#include "gui/session/options_dialog.h"
#include "support/codes.h"

#include <QComboBox>
#include <QSlider>

#include "gui/view_test.h"
#include "models/unit_text.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::gui;

namespace {

using drive::click;

class OptionsView : public ViewTest {
  protected:
    OptionsView() {
        session.change()->substance = fluids::ReferencePropane();
        session.change()->models.eos = codes::eos(6);
        session.change()->eos_parameters.vcrit_calculated = 0.2;
    }
    OptionsDialog* open() {
        auto* view = new OptionsDialog(desk);
        view->setAttribute(Qt::WA_DeleteOnClose);
        view->show();
        drive::settle();
        return view;
    }
};

TEST_F(OptionsView, OKAppliesUnitsModeAndResolution) {
    open();
    click("optMolarSpez_1");
    click("OptCalcMode_1");
    click("chkPartialKurve");
    drive::get<QSlider>("Slider1_punktdichte")->setValue(500);
    EXPECT_EQ(drive::get<QLabel>("Label54")->text(), "500");
    click("cmdOK");
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
    EXPECT_TRUE(session->batch_mode);
    EXPECT_TRUE(session->curve_options.partial_gas);
    EXPECT_EQ(session->curve_options.points, 500);
    EXPECT_EQ(drive::find("frmOptions"), nullptr);
}

void choose(const char* box, const QString& entry) {
    auto* combo = drive::get<QComboBox>(box);
    const int index = combo->findText(entry);
    ASSERT_GE(index, 0) << entry.toStdString();
    combo->setCurrentIndex(index);
}

std::string chosen(const session::Session& session) {
    return models::text_of(session->units);
}

TEST_F(OptionsView, AReadySetOfUnitsIsOneChoice) {
    open();
    EXPECT_EQ(drive::read("cmbUnitSet"), "SI molar");
    choose("cmbUnitSet", "Engineering metric");
    EXPECT_TRUE(drive::isChecked("optMolarSpez_1"));
    click("cmdOK");
    EXPECT_EQ(chosen(session), "T=degC,p=bar,v=m^3/kg,h=kJ/kg,s=kJ/(kg K)");
    open();
    EXPECT_EQ(drive::read("cmbUnitSet"), "Engineering metric");
    click("optMolarSpez_0");
    EXPECT_EQ(drive::read("cmbUnitSet"), "SI molar") << "the told options have no own units";
    click("chkReduziert");
    EXPECT_EQ(drive::read("cmbUnitSet"), "Reduced");
    click("cmdOK");
    EXPECT_EQ(session->units.system, models::UnitSystem::reduced);
}

TEST_F(OptionsView, UnitsOfTheUsersOwnAreKeptByName) {
    open();
    drive::when("frmUnits", [] {
        choose("cmbUnit_0", "°F");
        choose("cmbUnit_1", "bar gauge");
        EXPECT_FALSE(drive::isEnabled("cmdKeepUnits")) << "a name is needed";
        drive::type("txtUnitSet", "US customary");
        EXPECT_FALSE(drive::isEnabled("cmdKeepUnits")) << "a ready set keeps its units";
        drive::type("txtUnitSet", "Boiler house");
        click("cmdKeepUnits");
        EXPECT_EQ(drive::get<QComboBox>("cmbUnitSet")->currentText(), "Boiler house");
        click("cmdOK");
    });
    click("cmdUnits");
    EXPECT_EQ(drive::read("cmbUnitSet"), "Boiler house");
    click("cmdOK");
    EXPECT_EQ(chosen(session), "T=degF,p=bar(g)");

    open();
    drive::when("frmUnits", [] {
        EXPECT_EQ(drive::get<QComboBox>("cmbUnit_1")->currentText(), "bar gauge");
        choose("cmbUnitSet", "SI molar");
        choose("cmbUnitSet", "Boiler house");
        EXPECT_EQ(drive::read("txtUnitSet"), "Boiler house");
        click("cmdForgetUnits");
        click("cmdOK");
    });
    click("cmdUnits");
    EXPECT_EQ(drive::read("cmbUnitSet"), "Own choice");
    EXPECT_EQ(drive::get<QComboBox>("cmbUnitSet")->findText("Boiler house"), -1);
    click("cmdOK");
    EXPECT_EQ(chosen(session), "T=degF,p=bar(g)") << "the units in force stay";
}

TEST_F(OptionsView, EachQuantityOffersAllItsUnits) {
    open();
    drive::when("frmUnits", [] {
        for (std::size_t i = 0; i < models::kDimensions; ++i) {
            const auto* box = drive::get<QComboBox>(QString("cmbUnit_%1").arg(i));
            EXPECT_EQ(static_cast<std::size_t>(box->count()),
                      models::units_of(static_cast<models::Dimension>(i)).size());
        }
        choose("cmbUnit_0", "°R");
        EXPECT_EQ(drive::get<QComboBox>("cmbUnitSet")->currentText(), "Own choice");
        click("cmdClose");
    });
    click("cmdUnits");
    EXPECT_EQ(drive::read("cmbUnitSet"), "SI molar") << "a cancel changes nothing";
    click("cmdClose");
}

TEST_F(OptionsView, CancelChangesNothing) {
    open();
    click("optMolarSpez_1");
    click("OptCalcMode_1");
    click("chkReduziert");
    click("cmdClose");
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::molar);
    EXPECT_EQ(session->units.system, models::UnitSystem::molar);
    EXPECT_FALSE(session->batch_mode);
}

TEST_F(OptionsView, MolarAndSpecificExcludeEachOther) {
    open();
    click("optMolarSpez_1");
    EXPECT_FALSE(drive::isChecked("optMolarSpez_0"));
    click("optMolarSpez_0");
    EXPECT_FALSE(drive::isChecked("optMolarSpez_1"));
    EXPECT_TRUE(drive::isChecked("OptCalcMode_0")) << "the modes are a group of their own";
}

TEST_F(OptionsView, WhatIsNotPossibleIsDisabled) {
    session.change()->substance.Tcrit = 0;
    session.change()->models.vapour_only = true;
    open();
    EXPECT_FALSE(drive::isEnabled("chkReduziert"));
    EXPECT_FALSE(drive::isEnabled("chkSKurveOhneKonnode"));
    EXPECT_FALSE(drive::isEnabled("Command1")) << "no reference view is registered";
}

TEST_F(OptionsView, TheReferenceViewOpensFromHere) {
    int opened = 0;
    desk.doors.chooseReference = [&] { ++opened; };
    open();
    click("Command1");
    EXPECT_EQ(opened, 1);
}

}  // namespace
