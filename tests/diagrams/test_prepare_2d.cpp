#include "diagrams/prepare_2d.h"

#include "diagrams/active_fluid.h"

using namespace quor;

namespace {

using diagrams::DiagramInput;

class Prepare2D : public ActiveFluid {
  protected:
    void prepare(int code) {
        diagrams::PreparedDiagram prepared =
            diagrams::prepare_diagram(diagrams::diagram_of(code), basis(), start);
        request = prepared.request;
        start = prepared.start;
    }
    static DiagramInput input(int code) { return diagrams::input_of(diagrams::diagram_of(code)); }
    void begin(const char* name) {
        activate(name);
        start = {.limits = limits};
    }

    diagrams::DiagramStart start;
    diagrams::DiagramRequest request;
};

TEST_F(Prepare2D, EachKindOpensWithItsInput) {
    begin("Propane");
    EXPECT_EQ(input(1), DiagramInput::parameter);
    EXPECT_EQ(input(107), DiagramInput::range);
    EXPECT_EQ(input(6), DiagramInput::none);
    EXPECT_EQ(input(300), DiagramInput::validity);
    prepare(300);
    EXPECT_EQ(request.validity, (diagrams::Validity{86, 369}));
    EXPECT_EQ(diagrams::view_caption(request),
              " Type of Diagram: L-density from data-bank function");
}

TEST_F(Prepare2D, TheFirstDiagramOfASubstanceStartsAtItsCriticalPoint) {
    begin("Propane");
    prepare(1);
    EXPECT_FALSE(start.new_substance);
    EXPECT_EQ(start.at.T, substance.Tcrit);
    EXPECT_EQ(start.at.p, substance.pcrit);
    EXPECT_EQ(start.at.v, eosConstants.vcrit_calculated);
    EXPECT_FLOAT_EQ(start.limits.p_max, static_cast<float>(1.6 * substance.pcrit));
    EXPECT_FLOAT_EQ(start.limits.T_max, static_cast<float>(1.1 * substance.Tcrit));
    EXPECT_EQ(request.window.y_max, start.limits.p_max);
}

TEST_F(Prepare2D, LaterDiagramsKeepTheStateAndThePressureLimit) {
    begin("Propane");
    prepare(1);
    start.at = {300, 900, 0.5};
    prepare(3);
    EXPECT_EQ(start.at.T, 300);
    EXPECT_EQ(start.at.p, 900);
    EXPECT_EQ(start.at.v, 0.5);
    EXPECT_FLOAT_EQ(start.limits.p_max, static_cast<float>(1.6 * substance.pcrit));
}

TEST_F(Prepare2D, FunctionDiagramsStartAtNormalPressure) {
    begin("Propane");
    prepare(15);
    EXPECT_EQ(start.at.p, 101.325);
    start.at.p = substance.pcrit;
    start.at.v = 0.7;
    prepare(30);
    EXPECT_EQ(start.at.p, 101.325);
    EXPECT_EQ(start.at.v, eosConstants.vcrit_calculated);
    start.at.p = substance.pcrit;
    prepare(150);
    EXPECT_EQ(start.at.p, substance.pcrit);
}

TEST_F(Prepare2D, WithoutACriticalVolumeTheVolumeIsMeasuredOrTwo) {
    activate_vapour_only("Propane");
    prepare(5);
    EXPECT_EQ(start.at.v, substance.vcrit_measured);
    start.at.v = 0;
    substance.vcrit_measured = 0;
    prepare(5);
    EXPECT_EQ(start.at.v, 2.0);
}

TEST_F(Prepare2D, AProjectionWithoutADomeIsNamedByItsCorrelation) {
    activate_vapour_only("Propane");
    prepare(9);
    EXPECT_EQ(request.texts.sub_title, "Propane,  vapour press. equ. Wagner");
}

}  // namespace
