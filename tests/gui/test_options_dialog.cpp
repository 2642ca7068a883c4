#include "gui/session/options_dialog.h"
#include "support/codes.h"

#include <QSlider>

#include "gui/view_test.h"
#include "session/module2.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::gui;

namespace {

using drive::click;
using legacy::the_session;

class OptionsView : public ViewTest {
  protected:
    OptionsView() {
        legacy::the_substance = fluids::ReferencePropane();
        legacy::the_models.EOSModel = codes::eos(6);
        legacy::the_eosParameters.vcritCalc = 0.2;
    }
    OptionsDialog* open() {
        auto* view = new OptionsDialog;
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
    EXPECT_EQ(the_session.CaloricUnit, 3);
    EXPECT_TRUE(the_session.BatchMode);
    EXPECT_TRUE(the_session.PartialGasCurve);
    EXPECT_EQ(the_session.PointsPerCurve, 500);
    EXPECT_EQ(drive::find("frmOptions"), nullptr);
}

TEST_F(OptionsView, CancelChangesNothing) {
    open();
    click("optMolarSpez_1");
    click("OptCalcMode_1");
    click("chkReduziert");
    click("cmdClose");
    EXPECT_EQ(the_session.CaloricUnit, 0);
    EXPECT_EQ(the_session.UnitMode, 0);
    EXPECT_FALSE(the_session.BatchMode);
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
    legacy::the_substance.Tcrit = 0;
    legacy::the_models.EOSOnlyV = true;
    open();
    EXPECT_FALSE(drive::isEnabled("chkReduziert"));
    EXPECT_FALSE(drive::isEnabled("chkSKurveOhneKonnode"));
    EXPECT_FALSE(drive::isEnabled("Command1")) << "no reference view is registered";
}

TEST_F(OptionsView, TheReferenceViewOpensFromHere) {
    int opened = 0;
    actions::register_action("frmReferenz", [&] { ++opened; });
    open();
    click("Command1");
    EXPECT_EQ(opened, 1);
}

}  // namespace
