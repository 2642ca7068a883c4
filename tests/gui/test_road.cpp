#include <cmath>

#include "gui/calc_view_test.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::isEnabled;
using drive::isVisible;
using drive::offers;
using drive::read;
using drive::type;

constexpr double kTcrit = 304.1282, kPcrit = 7377.3, kOmega = 0.22394, kM = 44.009;

// p/kPa of carbon dioxide by the equation of Peng and Robinson (Ind. Eng. Chem. Fundam. 15 (1976)
// 59), the default model.
double peng_robinson(double T, double v) {
    constexpr double R = 8.31451;
    const double m = 0.37464 + 1.54226 * kOmega - 0.26992 * kOmega * kOmega;
    const double root = 1 + m * (1 - std::sqrt(T / kTcrit));
    const double a = 0.45724 * R * R * kTcrit * kTcrit / kPcrit * root * root;
    const double b = 0.07780 * R * kTcrit / kPcrit;
    return R * T / (v - b) - a / (v * (v + b) + b * (v - b));
}

// The first calculation of a new user, from the empty frame to the number that is read.
TEST_F(CalcViewTest, ANewUserCalculatesTheDensityOfCarbonDioxide) {
    EXPECT_FALSE(offers("mnuCalc_2"));
    startProject("Carbon dioxide");
    ASSERT_TRUE(offers("mnuCalc_2"));

    user.answers = {dialogs::Answer::No};
    drive::choose("mnuCalc_2");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "T-p-Vorgabe");
    EXPECT_EQ(user.messages.front().default_answer, dialogs::Answer::No);
    ASSERT_TRUE(isVisible("frmCalcOut"));
    ASSERT_TRUE(isVisible("frmParinput"));
    EXPECT_EQ(read("frmCalcOut"), "Result of the Calculation:  T, p => rho");
    EXPECT_EQ(read("par1"), "no T in this data set");
    EXPECT_TRUE(isVisible("par1_sign"));
    EXPECT_EQ(read("Liste"), "");
    EXPECT_EQ(read("frmParinput"), "Input \"Direct calculation\" ");
    EXPECT_EQ(read("Bz_0"), "      T/K     ");
    EXPECT_EQ(read("Bz_1"), "      p/kPa = ");
    EXPECT_FALSE(isVisible("par_2"));
    EXPECT_FALSE(isVisible("fraRhoVInput"));
    EXPECT_EQ(frame.focusWidget()->objectName(), "par_0");

    QTest::keyClicks(drive::get("par_0"), "300");
    QTest::keyClick(drive::get("par_0"), Qt::Key_Tab);
    EXPECT_EQ(frame.focusWidget()->objectName(), "par_1");
    QTest::keyClicks(drive::get("par_1"), "5000");
    drive::press("par_1", Qt::Key_Return);

    EXPECT_EQ(read("par1"), "T = 300.000 K");
    EXPECT_EQ(read("par2"), "p = 5000.000 kPa");
    EXPECT_FALSE(isVisible("par1_sign"));
    const QString list = read("Liste");
    const auto number_behind = [&](const QString& label) {
        const qsizetype at = list.indexOf(label);
        EXPECT_GE(at, 0) << label.toStdString() << " in\n" << list.toStdString();
        return list.mid(at + label.size())
            .trimmed()
            .section(' ', 0, 0)
            .section('\n', 0, 0)
            .toDouble();
    };
    const double rho = number_behind("rho/ (kg/m^3)  =");
    EXPECT_NEAR(number_behind("v/ (m^3/kmol)  =") * rho, kM, 1e-4);
    EXPECT_NEAR(peng_robinson(300, kM / rho), 5000, 0.05);
    EXPECT_EQ(QString::fromStdString(session->results.current.record.phases), " V ");
    EXPECT_TRUE(read("lblVphase").contains("V-Phase"));
    EXPECT_TRUE(isEnabled("cmdCEOSDiagnose"));
    EXPECT_EQ(frame.focusWidget()->objectName(), "Liste");
    EXPECT_EQ(user.messages.size(), 1U);
}

}  // namespace
