#include "common/numbers.h"
#include "gui/calc_view_test.h"
#include "gui/widgets/number_edit.h"
#include "report/reference_lines.h"
#include "session/calculations.h"
#include "support/comma_locale.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::isChecked;
using drive::isEnabled;
using drive::read;
using drive::type;

using Unit = models::CaloricUnit;

constexpr double kR = 8.31451, kM = 44.009;

class ReferenceStateDialogTest : public CalcViewTest {
  protected:
    /// Opens the view by its tool button and says what is done in it.
    static void inView(std::function<void()> what) {
        drive::when("frmReferenz", std::move(what));
        click("Toolbar1_11");
    }

    static QStringList fields() {
        QStringList texts;
        for (int i = 0; i < 6; ++i) texts << read(QString("T_%1").arg(i));
        return texts;
    }

    static std::string enabledFields() {
        std::string pattern;
        for (int i = 0; i < 6; ++i) pattern += isEnabled(QString("T_%1").arg(i)) ? '1' : '0';
        return pattern;
    }
};

TEST_F(ReferenceStateDialogTest, IsReachedOnceTheModelsAreChosen) {
    EXPECT_FALSE(drive::action("Toolbar1_11")->isEnabled());
    startProject("Carbon dioxide");
    inView([] {
        EXPECT_EQ(read("frmReferenz"), " Calculation of Thermodynamic Functions Z");
        EXPECT_TRUE(read("opt_HNull_0").startsWith("h "));
        EXPECT_EQ(read("opt_HNull_1").replace('\n', ' '),
                  "Z(ref) = quantity of formation for ideal gas state at To=298.15 and normal "
                  "pressure from elements in the stable state");
        EXPECT_EQ(read("opt_HNull_2"), "Conventional Reference State (cf. Help)");
        EXPECT_TRUE(isChecked("opt_HNull_0"));
        EXPECT_EQ(fields(), QStringList({"0", "0", "298.15", "101.325", "298.15", "101.325"}));
        click("ESC");
    });
}

TEST_F(ReferenceStateDialogTest, ADesktopWithADecimalCommaKeeps298Point15) {
    const CommaLocale locale;
    numbers::set_decimal_mark(',');
    startProject("Carbon dioxide");
    inView([] {
        EXPECT_EQ(fields(), QStringList({"0", "0", "298,15", "101,325", "298,15", "101,325"}));
        click("OK");
    });
    numbers::set_decimal_mark('.');
    EXPECT_EQ(session->reference.T0, 298.15F);
    EXPECT_EQ(session->reference.p0, 101.325F);
    EXPECT_EQ(session->reference.Tenv, 298.15);
}

TEST_F(ReferenceStateDialogTest, NamesHAndSInTheUnitOfTheSession) {
    startProject("Carbon dioxide");
    struct Case {
        Unit unit;
        const char *h, *s;
    };
    for (const Case& c :
         {Case{Unit::molar, "h /(kJ/kmol)", "s /(kJ/kmol/K)"}, Case{Unit::kelvin, "h /K", "s /R"},
          Case{Unit::RT, "h /(R T)", "s /(1/K) "},
          Case{Unit::specific, "h /(kJ/kg)", "s /(kJ/(kg K))"}}) {
        session.change()->units.caloric = c.unit;
        inView([&] {
            EXPECT_EQ(read("lblT_0"), c.h);
            EXPECT_EQ(read("lblT_1"), c.s);
            EXPECT_TRUE(read("opt_HNull_0").startsWith(QString(c.h).trimmed()));
            click("ESC");
        });
    }
}

TEST_F(ReferenceStateDialogTest, StoresTheFieldsInTheUnitsOfTheRecord) {
    startProject("Carbon dioxide");
    struct Case {
        Unit unit;
        double factor;
    };
    for (const Case& c : {Case{Unit::molar, 1.0}, Case{Unit::kelvin, 1 / kR},
                          Case{Unit::RT, 1 / (kR * 298.15)}, Case{Unit::specific, 1 / kM}}) {
        session.change()->units.caloric = c.unit;
        inView([] {
            const char* typed[] = {"100", "-2,5", "273.15", "100", "290", "95.5"};
            for (int i = 0; i < 6; ++i) type(QString("T_%1").arg(i), typed[i]);
            drive::press("T_5", Qt::Key_Return);
        });
        EXPECT_EQ(session->reference.mode, 1);
        EXPECT_NEAR(session->reference.href, 100 / c.factor, 1e-4 * 100 / c.factor)
            << static_cast<int>(c.unit);
        EXPECT_NEAR(session->reference.sref, -2.5 / c.factor, 1e-4 * 2.5 / c.factor)
            << static_cast<int>(c.unit);
        EXPECT_EQ(session->reference.T0, 273.15F);
        EXPECT_EQ(session->reference.p0, 100.0F);
        EXPECT_EQ(session->reference.Tenv, 290.0);
        EXPECT_EQ(session->reference.penv, 95.5);
        // What is shown again is what was typed.
        inView([] {
            EXPECT_NEAR(read("T_0").toDouble(), 100, 1e-9);
            EXPECT_NEAR(read("T_1").toDouble(), -2.5, 1e-9);
            click("ESC");
        });
    }
}

TEST_F(ReferenceStateDialogTest, SetsTheQuantitiesOfFormation) {
    startProject("Carbon dioxide");
    session.change()->reference.href = 500;
    session.change()->reference.T0 = 300;
    session.change()->reference.Tenv = 285;
    inView([] {
        EXPECT_EQ(enabledFields(), "111111");
        click("opt_HNull_1");
        EXPECT_EQ(enabledFields(), "000011");
        EXPECT_EQ(fields(), QStringList({"0", "0", "298.15", "101.325", "285", "101.325"}));
        click("opt_HNull_0");
        EXPECT_EQ(enabledFields(), "111111");
        click("opt_HNull_1");
        click("OK");
    });
    EXPECT_EQ(session->reference.mode, 10);
    EXPECT_EQ(session->reference.href, 0.0);
    EXPECT_EQ(session->reference.T0, 298.15F);
    EXPECT_EQ(session->reference.p0, 101.325F);
    EXPECT_EQ(session->reference.Tenv, 285.0);
    inView([] {
        EXPECT_TRUE(isChecked("opt_HNull_1"));
        EXPECT_EQ(enabledFields(), "000011");
        click("ESC");
    });
}

TEST_F(ReferenceStateDialogTest, SetsTheConventionalState) {
    startProject("Carbon dioxide");
    inView([] {
        click("opt_HNull_2");
        EXPECT_EQ(enabledFields(), "000011");
        click("OK");
    });
    EXPECT_EQ(session->reference.mode, 2);
    // The list of a calculation names it.
    drive::choose("mnuCalc_11");
    calculate("350", "4000");
    EXPECT_TRUE(lists("Reference state: conventional h and s"));
}

TEST_F(ReferenceStateDialogTest, ShiftsTheEnthalpyOfTheNextCalculation) {
    startProject("Carbon dioxide");
    drive::choose("mnuCalc_11");
    calculate("350", "4000");
    const double h = session->results.current.numbers[10], s = session->results.current.numbers[11];
    inView([] {
        type("T_0", "1000");
        type("T_1", "10");
        click("OK");
    });
    calculate("350", "4000");
    EXPECT_NEAR(session->results.current.numbers[10], h + 1000, 1e-6);
    EXPECT_NEAR(session->results.current.numbers[11], s + 10, 1e-9);
}

TEST_F(ReferenceStateDialogTest, StoresNoSurroundingsOfZeroAndNoPressureOfZero) {
    startProject("Carbon dioxide");
    session.change()->reference.p0 = 0;
    inView([] {
        EXPECT_EQ(read("T_3"), "101.325");
        type("T_4", "0");
        click("OK");
    });
    EXPECT_EQ(session->reference.p0, 101.325F);
    EXPECT_EQ(session->reference.Tenv, 1e-6);
}

TEST_F(ReferenceStateDialogTest, ChangesNothingOnCancel) {
    startProject("Carbon dioxide");
    const models::ReferenceState before = session->reference;
    for (const bool escape : {false, true})
        inView([escape] {
            click("opt_HNull_1");
            type("T_4", "280");
            if (escape)
                drive::press("T_4", Qt::Key_Escape);
            else
                click("ESC");
        });
    EXPECT_EQ(session->reference, before);
}

TEST_F(ReferenceStateDialogTest, MarksATextThatIsNoNumber) {
    startProject("Carbon dioxide");
    const models::ReferenceState before = session->reference;
    inView([&] {
        type("T_2", "3e");
        click("OK");
        EXPECT_TRUE(drive::get<NumberEdit>("T_2")->isMarked());
        EXPECT_EQ(session->reference, before);
        type("T_2", "1e300");
        user.messages.clear();
        click("OK");
        ASSERT_EQ(user.messages.size(), 1U);
        EXPECT_EQ(user.lastText(), "A number is beyond the range of its field.");
        EXPECT_EQ(session->reference, before);
        click("ESC");
    });
}

TEST_F(ReferenceStateDialogTest, ShowsNumbersWithADecimalComma) {
    numbers::set_decimal_mark(',');
    startProject("Carbon dioxide");
    inView([] {
        EXPECT_EQ(read("T_2"), "298,15");
        type("T_2", "273,15");
        click("OK");
    });
    EXPECT_EQ(session->reference.T0, 273.15F);
}

TEST_F(ReferenceStateDialogTest, ANamedStateOfTheRealFluidIsTakenAndNamedEverywhere) {
    startProject("Carbon dioxide");
    inView([] {
        EXPECT_EQ(read("opt_HNull_3"),
                  "IIR: h = 200 kJ/kg, s = 1 kJ/(kg K) of the saturated liquid at 273.15 K");
        EXPECT_FALSE(isEnabled("Own_0"));
        click("opt_HNull_3");
        EXPECT_EQ(enabledFields(), "000011");
        EXPECT_EQ(read("lblReferenceNote"), "");
        EXPECT_NE(read("T_0"), "0") << "what it comes to for the ideal gas";
        click("OK");
    });
    EXPECT_EQ(session->reference.named, models::NamedState::iir);
    const report::Made made = session::present_made(session);
    EXPECT_NE(report::reference_line(made).find("Reference state: IIR, h = 200 kJ/kg"),
              std::string::npos);
    inView([] {
        EXPECT_TRUE(isChecked("opt_HNull_3"));
        click("opt_HNull_0");
        click("OK");
    });
    EXPECT_EQ(session->reference.named, models::NamedState::none);
}

TEST_F(ReferenceStateDialogTest, AStateThatTheFluidLacksIsToldAndAnotherProposed) {
    startProject("Carbon dioxide");
    inView([this] {
        click("opt_HNull_7");
        EXPECT_TRUE(isEnabled("Own_0"));
        drive::type("Own_0", "290");
        drive::type("Own_1", "100");
        drive::get<QComboBox>("cmbOwnPhase")->setCurrentIndex(1);
        EXPECT_TRUE(read("lblReferenceNote")
                        .startsWith("Carbon dioxide has no liquid at 290 K and 100 kPa by "))
            << read("lblReferenceNote").toStdString();
        EXPECT_TRUE(read("lblReferenceNote").contains(" Possible: "));
        click("OK");
        EXPECT_TRUE(
            user.lastText().starts_with("Carbon dioxide has no liquid at 290 K and 100 kPa by "));
        drive::get<QComboBox>("cmbOwnPhase")->setCurrentIndex(0);
        EXPECT_EQ(read("lblReferenceNote"), "");
        drive::type("Own_2", "1000");
        drive::type("Own_3", "5");
        click("OK");
    });
    EXPECT_EQ(session->reference.named, models::NamedState::own);
    EXPECT_EQ(session->reference.own, (models::OwnState{290, 100, true, 1000, 5}));
}

}  // namespace
