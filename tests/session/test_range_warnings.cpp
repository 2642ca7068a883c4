#include "support/fluids.h"
#include "support/session_test.h"

#include <filesystem>
#include <fstream>

using namespace quor;

namespace {

using models::Eos;
using Method = models::VaporisationModel;
using Vp = models::VapourPressureEquation;

/// The boxes that a calculation over the records shows far outside the ranges of validity, and
/// about the parameter program.
class RangeWarnings : public SessionTest {
  protected:
    models::SubstanceRecord& s = session->substance;

    RangeWarnings() {
        s = fluids::correlated_row("Propane");
        session.change()->models = fluids::selection(s, Eos::pengRobinson);
        models::calc_eos_parameters(Eos::pengRobinson);
    }
    void liquid(std::array<float, 7> a, std::int16_t TLo, std::int16_t THi) {
        s.rhoLPar = a;
        s.rhoLTc = 500;
        s.rhoLTLo = TLo;
        s.rhoLTHi = THi;
    }
    /// Number of messages that a call shows.
    template <class Call>
    std::size_t messages(Call call) {
        user.messages.clear();
        call();
        return user.messages.size();
    }
};

TEST_F(RangeWarnings, LiquidDensityWarnsBeyondFiveKelvins) {
    liquid({900, -1, 0, 0, 0, 0, 0}, 200, 400);
    const auto shown = [&](float T) { return messages([&] { models::density_l(T, true); }); };
    EXPECT_EQ(shown(300), 0U);
    EXPECT_EQ(shown(405), 0U);
    EXPECT_EQ(shown(195), 0U);
    EXPECT_EQ(shown(405.5F), 1U);  // 5.5 is rounded to the even 6
    EXPECT_EQ(shown(404.5F), 0U);  // 4.5 to 4
    EXPECT_EQ(shown(406), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning the equation rho_L = Fu(T)");
    EXPECT_EQ(user.lastText(),
              " temperature6 K outside parameter validity\n"
              "(for temperature range cf. window \"Models\")");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
    EXPECT_EQ(shown(194), 1U);
    EXPECT_EQ(user.lastText(),
              " temperature-6 K outside parameter validity\n"
              "(for temperature range cf. window \"Models\")");
    EXPECT_EQ(messages([] { models::density_l(450, false); }), 0U);
}

TEST_F(RangeWarnings, DensitiesWithoutARangeOrAValueShowNone) {
    liquid({1000, -1, 300, 0, 0, 0, 0}, 0, 0);
    EXPECT_EQ(messages([] { models::density_l(900, true); }), 0U);
    liquid({100, -1, 0, 0, 0, 0, 0}, 50, 480);
    EXPECT_EQ(messages([] { models::density_l(150, true); }), 0U);
    liquid({}, 0, 0);
    EXPECT_EQ(messages([] { models::density_l(300, true); }), 0U);
    s.rhoSPar = {};
    s.rhoSTLo = s.rhoSTHi = 0;
    EXPECT_EQ(messages([] { models::density_s(300, true); }), 0U);
}

TEST_F(RangeWarnings, SolidDensityWarnsBeyondFiveKelvins) {
    s.rhoSPar = {1500, -0.5F, 1e-3F, -1e-6F};
    s.rhoSTLo = 100;
    s.rhoSTHi = 200;
    for (const float T : {150.0F, 205.0F, 95.0F})
        EXPECT_EQ(messages([&] { models::density_s(T, true); }), 0U) << T;
    EXPECT_EQ(messages([] { models::density_s(206, true); }), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning the function rho(S) = Fu(T)");
    EXPECT_EQ(
        user.lastText(),
        " Temperature6 K outside T-range of the parameters\n(range of validity: 100 ... 200)");
    EXPECT_EQ(messages([] { models::density_s(94, true); }), 1U);
}

TEST_F(RangeWarnings, VapourPressureIsSilentForTenKelvinsAndNotForEleven) {
    s.ALP.TLo = 200;
    s.ALP.THi = 250;
    const auto shown = [&](double T, bool warn = true) {
        return messages([&] { models::VapourPressure(T, Vp::antoineLow, warn); });
    };
    EXPECT_EQ(shown(260), 0U);
    EXPECT_EQ(shown(261), 1U);
    EXPECT_EQ(
        user.lastText(),
        " temperature11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
    EXPECT_EQ(user.lastTitle(), "Warning concerning vapour pressure equation");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
    EXPECT_EQ(shown(189), 1U);
    EXPECT_EQ(
        user.lastText(),
        " temperature-11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
    EXPECT_EQ(shown(189, false), 0U);
}

TEST_F(RangeWarnings, BoilingTemperatureWarnsWithItsOwnText) {
    s.WAG.TLo = 300;
    s.WAG.THi = 320;
    const double p = models::VapourPressure(289, Vp::wagner, false).p;
    EXPECT_EQ(messages([&] { models::BoilingTemperature(p, Vp::wagner); }), 1U);
    EXPECT_EQ(
        user.lastText(),
        "Temperature -11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
}

TEST_F(RangeWarnings, EnthalpyOfVaporisationWarnsOfEachEquationItUses) {
    s.hLVTLo = 250;
    s.hLVTHi = 350;
    const auto shown = [&](Method method, double T, bool warn = true) {
        return messages([&] { models::enthalpy_of_vaporisation(method, T, 0, Vp::wagner, warn); });
    };
    for (const double T : {300.0, 355.0, 245.0})
        EXPECT_EQ(shown(Method::databaseEquation, T), 0U) << T;
    EXPECT_EQ(shown(Method::databaseEquation, 244, false), 0U);
    EXPECT_EQ(shown(Method::databaseEquation, 356), 1U);
    EXPECT_EQ(user.lastText(),
              "Temperature 6 K outside parameter validity\n"
              "(cf. Data/Parameters delta(LV)h = Fu(T))");
    EXPECT_EQ(user.lastTitle(), "Warning concerning equation delta(LV)h = Fu(T)");
    EXPECT_EQ(shown(Method::databaseEquation, 244), 1U);
    EXPECT_EQ(user.lastText(),
              "Temperature -6 K outside parameter validity\n"
              "(cf. Data/Parameters delta(LV)h = Fu(T))");

    s.WAG.TLo = 250;
    s.WAG.THi = 300;
    EXPECT_EQ(shown(Method::chen, 310), 0U);
    EXPECT_EQ(shown(Method::chen, 311), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning vapour pressure equation");
    EXPECT_EQ(shown(Method::chen, 311, false), 0U);

    s.rhoLTLo = 250;
    s.rhoLTHi = 300;
    EXPECT_EQ(shown(Method::databaseDensity, 305), 0U);
    EXPECT_EQ(shown(Method::databaseDensity, 306), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning the equation rho_L = Fu(T)");
}

TEST_F(RangeWarnings, AFailureShowsNone) {
    s.hLVTHi = 0;
    const auto r =
        models::enthalpy_of_vaporisation(Method::databaseEquation, 300, 0, Vp::none, true);
    EXPECT_EQ(r.status, kFailure);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(RangeWarnings, EnthalpyOfVaporisationTakesTheRowOfTheDataSet) {
    const auto explanation = [](std::int16_t row) {
        return models::enthalpy_of_vaporisation(Method::chen, 300, 0, Vp::none, true, row)
            .explanation;
    };
    EXPECT_EQ(explanation(2), "No p available");
    legacy::the_BatchData.resize(3);
    legacy::the_BatchData[2].T = 300;
    legacy::the_BatchData[2].p = 990;
    EXPECT_EQ(explanation(2), "Chen-correlation");
    EXPECT_EQ(explanation(1), "No p available");
    EXPECT_EQ(explanation(77), "No p available");
}

// ---- the program that fits the parameters of Ji/Torvik

TEST_F(RangeWarnings, AMissingParameterProgramIsTold) {
    EXPECT_EQ(models::calc_eos_parameters(Eos::jiTorvik1), 1);
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text, "No parameter-file generated.");
    EXPECT_EQ(user.messages[0].title, "Execution not possible");
    EXPECT_EQ(user.messages[1].text, "Error during EOS-parameter calculation");
    EXPECT_EQ(user.messages[1].title, "Execution not possible");
    EXPECT_EQ(session->eosParameters.vcritCalc, 0);
}

TEST_F(RangeWarnings, AGarbledAnswerOfTheParameterProgramIsTold) {
    const std::filesystem::path program = folder() / "djipar.exe";
    std::ofstream(program) << "#!/bin/sh\nprintf 'Propane 1 x y z u' > PARAM_JI.DAT\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_EQ(models::calc_eos_parameters(Eos::jiTorvik1), 1);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Error during EOS-parameter calculation");
    EXPECT_EQ(session->eosParameters.vcritCalc, 0);
    EXPECT_EQ(session->jiTorvik.jtZc, 0);
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}))
        << "the busy pointer shows while it waits";
}

}  // namespace
