#include "gui/session/options_dialog.h"
#include "support/codes.h"

#include <QSlider>

#include "gui/view_test.h"
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
