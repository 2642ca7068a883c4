#include "gui/editor_drive.h"
#include "gui/frame_test.h"
#include "session/xy_session.h"

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

TEST_F(FittingInFrame, TheMenuOpensThePageOfTheChosenModelAndClearsTheData) {
    start();
    openSubstance("Carbon dioxide");
    change([](auto& s) { s.measured.points.resize(3); });
    drive::choose("mnuFitting");
    EXPECT_TRUE(session->measured.points.empty());
    EXPECT_EQ(drive::tabInFront("SSTab1"), "General");
    EXPECT_TRUE(drive::isChecked("optFit_0"));
    drive::tab("SSTab1", "Vapour pressure");
    click("optFit_4");
    drive::tab("SSTab1", "Heat capac.");
    drive::choose("mnuFitting");
    EXPECT_EQ(drive::tabInFront("SSTab1"), "Vapour pressure");
    EXPECT_TRUE(drive::isChecked("optFit_4"));
    drive::press("frmQFitting", Qt::Key_Escape);
    EXPECT_EQ(drive::find("frmQFitting"), nullptr);
}

class AppliedParameters : public FittingInFrame {
  protected:
    /// Parameters of a fit in the data of a substance.
    void apply() {
        start();
        openSubstance("Carbon dioxide");
        ASSERT_TRUE(session::load_xy(
            session, std::string(QUOR_SOURCE_DATA) + "/samples/benzene_vapour_pressure.XY"));
        drive::choose("mnuFitting");
        drive::tab("SSTab1", "Vapour pressure");
        click("optFit_4");
        click("cmdStart");
        click("cmdApply");
        ASSERT_EQ(user.lastTitle(), "Parameters succuessfully applied");
        drive::press("frmQFitting", Qt::Key_Escape);
        user.messages.clear();
    }
    const float& appliedA() const { return session->substance.antoine_low.A; }
};

constexpr auto kQuestion =
    "The parameters applied to Carbon dioxide live in this session only.\n"
    "Save them in a private database now?";

TEST_F(AppliedParameters, AreNotLostByEscapeWhenTheProgramIsLeft) {
    apply();
    user.answers.push_back(dialogs::Answer::Cancel);
    EXPECT_FALSE(frame->close());
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), kQuestion);
    EXPECT_EQ(user.messages[0].buttons, dialogs::Buttons::YesNoCancel) << "Escape is Cancel";
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(session->applied_unsaved);
    user.answers.push_back(dialogs::Answer::No);
    EXPECT_TRUE(frame->close());
    EXPECT_EQ(user.messages.size(), 2U);
}

TEST_F(AppliedParameters, AreSavedInAPrivateDatabaseWhenTheProgramIsLeft) {
    apply();
    // The save is cancelled: everything stays.
    user.answers.push_back(dialogs::Answer::Yes);
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_FALSE(frame->close());
    const std::filesystem::path own = folder() / "MINE.Q05";
    user.answers.push_back(dialogs::Answer::Yes);
    user.fileAnswers.push_back(own.string());
    const float A = appliedA();
    EXPECT_TRUE(frame->close());
    const auto database = datafiles::Database::open(own, true);
    ASSERT_TRUE(database);
    const auto loaded = database->read(0, 0);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->record.antoine_low.A, A);
    user.messages.clear();
}

TEST_F(AppliedParameters, AreAskedAboutBeforeAnotherSubstanceIsChosen) {
    apply();
    const float A = appliedA();
    user.answers = {dialogs::Answer::Cancel};
    drive::when("frmStoffWahl", [&] {
        type("Text1", "Argon");
        drive::when("frmBankEdit", [&] {
            EXPECT_EQ(session->substance.name, "Argon") << "a look at its data";
            drive::press("frmBankEdit", Qt::Key_Escape);
        });
        click("cmdDaten");
        click("StoffOK");
        EXPECT_EQ(user.lastText(), kQuestion);
        EXPECT_EQ(appliedA(), A);
        EXPECT_TRUE(session->applied_unsaved);
        drive::press("frmStoffWahl", Qt::Key_Escape);
    });
    drive::choose("mnuStoff");
    EXPECT_EQ(appliedA(), A);
    user.answers = {dialogs::Answer::No};
    drive::when("frmStoffWahl", [] {
        type("Text1", "Argon");
        click("StoffOK");
    });
    drive::when("frmQModell", [] { click("OKModell"); });
    drive::choose("mnuStoff");
    EXPECT_EQ(session->substance.name, "Argon");
    EXPECT_FALSE(session->applied_unsaved);
}

TEST_F(AppliedParameters, AreNotAskedAboutWhereThereAreNone) {
    start();
    openSubstance("Carbon dioxide");
    user.messages.clear();
    EXPECT_TRUE(frame->close());
    EXPECT_TRUE(user.messages.empty());
}

}  // namespace
