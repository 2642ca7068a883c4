#include "diagrams/active_fluid.h"
#include "legacy/wrappers.h"
#include "support/codes.h"

#include "diagrams/coordinates.h"

using namespace quor;

void ActiveFluid::activate(const std::string& name, std::int16_t eos) {
    models::SubstanceRecord& s = legacy::the_substance;
    s = fluids::Row(name);
    models::correlate_august(s);
    for (const std::int16_t index : {std::int16_t{6}, std::int16_t{7}, std::int16_t{8}})
        models::correlate_vapour_pressure(s, codes::vp(index), s.Tcrit, s.pcrit,
                                          static_cast<double>(s.Tboil));

    models::ModelSelection& m = legacy::the_models;
    m = {};
    m.EOSModel = codes::eos(eos);
    m.EOSOnlyV = models::is_v_only(codes::eos(eos));
    m.PriorityCEOS = !m.EOSOnlyV;
    m.VPModel = codes::vp("WAG");
    m.CpModel = codes::cp(s.hasCpPoly ? 1 : s.hasCpSinh ? 2 : 0);
    m.HLVModel = codes::hlv(2);
    ASSERT_EQ(models::calc_eos_parameters(codes::eos(eos)), kSuccess);
    legacy::the_reference.T0 = 298.15F;
    legacy::the_coordinates = {};
    Module9::calc_coordinate_defaults(legacy::the_coordinates);
}

void ActiveFluid::set_units(std::int16_t CaloricUnit, std::int16_t UnitMode) {
    legacy::the_session.CaloricUnit = CaloricUnit;
    legacy::the_session.UnitMode = UnitMode;
    legacy::the_session.UnitsChanged = true;
    Module9::calc_coordinate_defaults(legacy::the_coordinates);
    legacy::the_session.UnitsChanged = false;
}
