#include <cmath>

#include "estimation/fit_models.h"
#include "gui/data/editor_views.h"
#include "gui/editor_drive.h"
#include "gui/estimation/estimation_views.h"
#include "gui/estimation/fit_view.h"
#include "gui/frame_test.h"
#include "legacy/declare.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/vapour_pressure.h"
#include "session/xy_session.h"
#include "support/codes.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::read;
using drive::tab;
using drive::type;
using legacy::the_session;
using legacy::the_substance;
using legacy::the_xyPoints;

class FittingInFrame : public FrameTest {};

TEST_F(FittingInFrame, AnOpenFitTellsThatAnotherSubstanceWasChosen) {
    start();
    openSubstance("Carbon dioxide");
    drive::choose("mnuFitting");
    drive::when("frmStoffWahl", [] {
        type("Text1", "Argon");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { click("OKModell"); });
    drive::choose("mnuStoff");
    EXPECT_EQ(read("lblTarget"),
              "... of Carbon dioxide, but Argon is loaded now: choose the model again for it");
}

TEST_F(FittingInFrame, TheMenuOpensTheFourthPageAndClearsTheData) {
    start();
    openSubstance("Carbon dioxide");
    the_session.BatchCount = 3;
    drive::choose("mnuFitting");
    EXPECT_EQ(the_session.BatchCount, 0);
    EXPECT_EQ(drive::tabInFront("SSTab1"), "delta(LV)h");
    EXPECT_TRUE(drive::isChecked("optFit_0"));
    drive::press("frmQFitting", Qt::Key_Escape);
    EXPECT_EQ(drive::find("frmQFitting"), nullptr);
}

}  // namespace
