#include "diagrams/active_fluid.h"

#include "diagrams/coordinates.h"

void ActiveFluid::activate(const std::string& name, std::int16_t eos) {
    Declare::SubstanceRecord& s = Declare::substance;
    s = fluids::Row(name);
    Calc::correlate_august(s);
    for (const std::int16_t index : {std::int16_t{6}, std::int16_t{7}, std::int16_t{8}})
        Calc::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));

    Declare::ModelSelection& m = Declare::models;
    m = {};
    m.EOSModel = eos;
    m.EOSOnlyV = Calc::IsVOnlyEOS(eos);
    m.PriorityCEOS = !m.EOSOnlyV;
    m.VPModel = 4;
    m.VPCode = "WAG";
    m.CpModel = s.hasCpPoly ? 1 : s.hasCpSinh ? 2 : 0;
    m.HLVModel = 2;
    ASSERT_EQ(Calc::CalcEOSParameters(eos), kSuccess);
    Declare::reference.T0 = 298.15F;
    Declare::coordinates = {};
    Module9::CalcCoordinateDefaults(Declare::coordinates);
}

void ActiveFluid::set_units(std::int16_t CaloricUnit, std::int16_t UnitMode) {
    Declare::session.CaloricUnit = CaloricUnit;
    Declare::session.UnitMode = UnitMode;
    Declare::session.UnitsChanged = true;
    Module9::CalcCoordinateDefaults(Declare::coordinates);
    Declare::session.UnitsChanged = false;
}
