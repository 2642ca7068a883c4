#include "diagrams/prepare_2d.h"

#include <stdexcept>

#include "diagrams/active_fluid.h"
#include "diagrams/catalogue.h"

using namespace quor;

namespace {

using legacy::the_coordinates;
using legacy::the_diagram;
using legacy::the_session;
using legacy::the_substance;

class Prepare2D : public ActiveFluid {
  protected:
    Prepare2D() {
        Module9::views2_d() = {
            .openDiagram = [this] { opened.emplace_back("frmGraph2D"); },
            .openParameterInput = [this] { opened.emplace_back("frmTpVSInputBox"); },
            .openRangeInput = [this] { opened.emplace_back("frmInputProzessLinien"); },
            .showDatabaseFunction =
                [this](float low, float high) {
                    opened.push_back("database " + std::to_string(static_cast<int>(low)) + " " +
                                     std::to_string(static_cast<int>(high)));
                },
        };
    }
    ~Prepare2D() override { Module9::views2_d() = {}; }

    void prepare(std::int16_t code, std::int16_t sectionKind, const char* axisPair) {
        the_diagram.DiagramType = code;
        the_diagram.sectionKind = sectionKind;
        the_diagram.axisPair = axisPair;
        opened.clear();
        Module9::prepare_diagram2_d(the_diagram);
    }

    std::vector<std::string> opened;
};

using Views = std::vector<std::string>;

TEST_F(Prepare2D, OpensTheViewAndTheInputOfItsKind) {
    activate("Propane");
    prepare(1, Module9::kIsothermal, "pv");
    EXPECT_EQ(opened, (Views{"frmGraph2D", "frmTpVSInputBox"}));
    EXPECT_FALSE(the_session.DiagramIsProjection);
    prepare(107, Module9::kIsothermal, "yy");
    EXPECT_EQ(opened, (Views{"frmGraph2D", "frmInputProzessLinien"}));
    EXPECT_EQ(legacy::the_processLine.Kind, 7);
    prepare(6, Module9::kProjection, "pv");
    EXPECT_EQ(opened, (Views{"frmGraph2D"}));
    EXPECT_TRUE(the_session.DiagramIsProjection);
    prepare(300, Module9::kDatabase, "yT");
    EXPECT_EQ(opened, (Views{"frmGraph2D", "database 86 369"}));
    EXPECT_EQ(Module9::view_caption(the_diagram),
              " Type of Diagram: L-density from data-bank function");
}

TEST_F(Prepare2D, ClearsARequestedTieLine) {
    activate("Propane");
    the_session.TieLineRequested = true;
    prepare(1, Module9::kIsothermal, "pv");
    EXPECT_FALSE(the_session.TieLineRequested);
}

TEST_F(Prepare2D, TheFirstDiagramOfASubstanceStartsAtItsCriticalPoint) {
    activate("Propane");
    the_session.NewSubstanceDiagram = true;
    prepare(1, Module9::kIsothermal, "pv");
    EXPECT_FALSE(the_session.NewSubstanceDiagram);
    EXPECT_EQ(the_session.DiagramT, the_substance.Tcrit);
    EXPECT_EQ(the_session.DiagramP, the_substance.pcrit);
    EXPECT_EQ(the_session.DiagramV, legacy::the_eosParameters.vcritCalc);
    EXPECT_FLOAT_EQ(the_coordinates.pMax, static_cast<float>(1.6 * the_substance.pcrit));
    EXPECT_FLOAT_EQ(the_coordinates.TMax, static_cast<float>(1.1 * the_substance.Tcrit));
    EXPECT_EQ(the_diagram.yMax, the_coordinates.pMax);
}

TEST_F(Prepare2D, LaterDiagramsKeepTheStateAndThePressureLimit) {
    activate("Propane");
    prepare(1, Module9::kIsothermal, "pv");
    the_session.DiagramT = 300;
    the_session.DiagramP = 900;
    the_session.DiagramV = 0.5;
    prepare(3, Module9::kIsobaric, "Tv");
    EXPECT_EQ(the_session.DiagramT, 300);
    EXPECT_EQ(the_session.DiagramP, 900);
    EXPECT_EQ(the_session.DiagramV, 0.5);
    EXPECT_FLOAT_EQ(the_coordinates.pMax, static_cast<float>(1.6 * the_substance.pcrit));
}

TEST_F(Prepare2D, FunctionDiagramsStartAtNormalPressure) {
    activate("Propane");
    prepare(15, Module9::kIsobaric, "yT");
    EXPECT_EQ(the_session.DiagramP, 101.325);
    the_session.DiagramP = the_substance.pcrit;
    the_session.DiagramV = 0.7;
    prepare(30, Module9::kIsobaric, "yT");
    EXPECT_EQ(the_session.DiagramP, 101.325);
    EXPECT_EQ(the_session.DiagramV, legacy::the_eosParameters.vcritCalc);
    the_session.DiagramP = the_substance.pcrit;
    prepare(150, Module9::kIsothermal, "yp");
    EXPECT_EQ(the_session.DiagramP, the_substance.pcrit);
}

TEST_F(Prepare2D, WithoutACriticalVolumeTheVolumeIsMeasuredOrTwo) {
    activate_vapour_only("Propane");
    prepare(5, Module9::kIsochoric, "pT");
    EXPECT_EQ(the_session.DiagramV, the_substance.vcritExp);
    the_session.DiagramV = 0;
    the_substance.vcritExp = 0;
    prepare(5, Module9::kIsochoric, "pT");
    EXPECT_EQ(the_session.DiagramV, 2.0);
}

TEST_F(Prepare2D, AFaultOfTheViewIsTold) {
    activate("Propane");
    Module9::views2_d().openDiagram = [] { throw std::runtime_error("no component"); };
    prepare(1, Module9::kIsothermal, "pv");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(user.lastText(),
              "The registration of the 2D graph module \\...\\olch8x2.ocx during the installation "
              "process failed.\nPlease carry out the registration manually (c.f. our website)");
    EXPECT_TRUE(opened.empty());
}

TEST_F(Prepare2D, TheMenuCommandRefusesOrNotes) {
    activate_vapour_only("Propane");
    the_diagram.sectionKind = Module9::kProjection;
    the_diagram.DiagramType = 6;
    the_diagram.axisPair = "pv";
    Module9::open_diagram2_d();
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(opened.empty());
    the_diagram.DiagramType = 9;
    Module9::open_diagram2_d();
    EXPECT_EQ(user.lastTitle(), "Note");
    EXPECT_EQ(opened, (Views{"frmGraph2D"}));
    EXPECT_EQ(the_diagram.subTitle, "Propane,  vapour press. equ. Wagner");
}

}  // namespace
