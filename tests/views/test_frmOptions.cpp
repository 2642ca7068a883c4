#include "session/views/frmOptions.h"

#include <QSlider>

#include "session/module2.h"
#include "support/fluids.h"
#include "views/view_test.h"

namespace {

using Declare::session;
using drive::click;

class OptionsView : public ViewTest {
  protected:
    OptionsView() {
        Declare::substance = fluids::ReferencePropane();
        Declare::models.EOSModel = 6;
        Declare::eosParameters.vcritCalc = 0.2;
    }
    frmOptions* open() {
        auto* view = new frmOptions;
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
    EXPECT_EQ(session.CaloricUnit, 3);
    EXPECT_TRUE(session.BatchMode);
    EXPECT_TRUE(session.PartialGasCurve);
    EXPECT_EQ(session.PointsPerCurve, 500);
    EXPECT_EQ(drive::find("frmOptions"), nullptr);
}

TEST_F(OptionsView, CancelChangesNothing) {
    open();
    click("optMolarSpez_1");
    click("OptCalcMode_1");
    click("chkReduziert");
    click("cmdClose");
    EXPECT_EQ(session.CaloricUnit, 0);
    EXPECT_EQ(session.UnitMode, 0);
    EXPECT_FALSE(session.BatchMode);
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
    Declare::substance.Tcrit = 0;
    Declare::models.EOSOnlyV = true;
    open();
    EXPECT_FALSE(drive::isEnabled("chkReduziert"));
    EXPECT_FALSE(drive::isEnabled("chkSKurveOhneKonnode"));
    EXPECT_FALSE(drive::isEnabled("Command1")) << "no reference view is registered";
}

TEST_F(OptionsView, TheReferenceViewOpensFromHere) {
    int opened = 0;
    actions::RegisterAction("frmReferenz", [&] { ++opened; });
    open();
    click("Command1");
    EXPECT_EQ(opened, 1);
}

}  // namespace
