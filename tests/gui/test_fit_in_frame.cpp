#include "gui/editor_drive.h"
#include "gui/frame_test.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::read;
using drive::type;

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
    change([](auto& s) { s.measured.points.resize(3); });
    drive::choose("mnuFitting");
    EXPECT_TRUE(session->measured.points.empty());
    EXPECT_EQ(drive::tabInFront("SSTab1"), "delta(LV)h");
    EXPECT_TRUE(drive::isChecked("optFit_0"));
    drive::press("frmQFitting", Qt::Key_Escape);
    EXPECT_EQ(drive::find("frmQFitting"), nullptr);
}

}  // namespace
