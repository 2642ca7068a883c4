#include <charconv>
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/database.h"
#include "datafiles/record_fields.h"
#include "datafiles/search.h"
#include "models/cubic_eos.h"
#include "models/ji_torvik.h"
#include "models/model_choice.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"
#include "tools/quorcalc/commands.h"

namespace quorcalc {

using Declare::substance;

namespace {

/// A whole text as a number; nothing when it is none.
std::optional<double> number(const std::string& s) {
    double value = 0;
    const auto result = std::from_chars(s.data(), s.data() + s.size(), value);
    if (result.ec != std::errc() || result.ptr != s.data() + s.size()) return std::nullopt;
    return value;
}

void open_database(const Arguments& a) {
    const std::string path = a.db.empty() ? Module2::FindFile("STUDENT.Q05").string() : a.db;
    if (LoadSaveData::OpenDatabaseFile(std::filesystem::absolute(path).string()).notUsable)
        throw CannotBeDone{"Database " + Module2::FileTitle(path) + " not found or empty resp."};
    Declare::session.DatabaseFile = Module2::FileTitle(path);
}

/// Position of a substance: "#number", else a name, synonym or CASRN.
std::int16_t find_substance(const std::string& wanted) {
    std::int16_t index = 0;
    if (!wanted.empty() && wanted.front() == '#') {
        if (const auto n = number(wanted.substr(1)))
            index = LoadSaveData::FindByNumber(static_cast<std::int16_t>(*n));
    } else {
        index = LoadSaveData::FindSubstance(wanted).index;
    }
    if (index == 0) throw CannotBeDone{"Nothing found: " + wanted};
    return index;
}

void read_substance(const Arguments& a) {
    if (a.substance.empty()) throw WrongCall{"--substance is required"};
    Declare::session.CurrentSubstance = find_substance(a.substance);
    bool noCriticalData = false;
    LoadSaveData::ReadSubstance(Declare::session.CurrentSubstance, noCriticalData);
    Declare::session.SubstanceSet = true;
}

double* ji_torvik_field(const std::string& name) {
    Declare::JiTorvikParameters& jt = Declare::jiTorvik;
    if (name == "jtM") return &jt.jtM;
    if (name == "jtP") return &jt.jtP;
    if (name == "jtQ") return &jt.jtQ;
    if (name == "jtZc") return &jt.jtZc;
    if (name == "jtK") return &jt.jtK;
    return nullptr;
}

bool is_correlated(const std::string& field) {
    return field.starts_with("AUG") || field.starts_with("KFW") || field.starts_with("KFR") ||
           field.starts_with("THO");
}

struct Override {
    std::string field, value;
};

std::vector<Override> overrides(const Arguments& a) {
    std::vector<Override> all;
    for (const std::string& s : a.set) {
        const std::size_t i = s.find('=');
        if (i == std::string::npos) throw WrongCall{"--set needs FIELD=VALUE: " + s};
        all.push_back({s.substr(0, i), s.substr(i + 1)});
    }
    return all;
}

void store(const Override& o) {
    const std::string error = LoadSaveData::SetField(substance, o.field, o.value);
    if (!error.empty()) throw WrongCall{error};
}

void correlate() {
    Calc::CorrelateAugust();
    for (std::int16_t i = 6; i <= 8; ++i)
        Calc::CorrelateVapourPressure(i, substance.Tcrit, substance.pcrit,
                                      static_cast<double>(substance.Tboil));
}

/// Values of the record that follow from others, where a field they come from was set.
void refresh_derived(const std::vector<Override>& all) {
    const auto was_set = [&](std::string_view name) {
        for (const Override& o : all)
            if (o.field.starts_with(name)) return true;
        return false;
    };
    if ((was_set("M") || was_set("rhocrit")) && !was_set("vcritExp"))
        substance.vcritExp =
            substance.rhocrit > 1e-6 ? static_cast<double>(substance.M) / substance.rhocrit : 0.0;
    const auto ideal = [](const Declare::CpSet& s) {
        return std::fabs(static_cast<double>(s.TLo) * static_cast<double>(s.c[0]) * s.THi) > 1e-6;
    };
    const auto condensed = [](const Declare::CpSet& s) {
        return (std::fabs(s.c[0]) > 1e-6F || std::fabs(s.c[1]) > 1e-6F) && s.TLo > 0 && s.THi > 0;
    };
    if (was_set("cpPoly") && !was_set("hasCpPoly")) substance.hasCpPoly = ideal(substance.cpPoly);
    if (was_set("cpSinh") && !was_set("hasCpSinh")) substance.hasCpSinh = ideal(substance.cpSinh);
    if (was_set("cpL") && !was_set("hasCpL")) substance.hasCpL = condensed(substance.cpL);
    if (was_set("cpS") && !was_set("hasCpS")) substance.hasCpS = condensed(substance.cpS);
}

void apply_overrides(const std::vector<Override>& all) {
    bool jiTorvik = false;
    for (const Override& o : all) {
        if (double* field = ji_torvik_field(o.field)) {
            const auto value = number(o.value);
            if (!value) throw WrongCall{"not a number: " + o.field + "=" + o.value};
            *field = *value;
            jiTorvik = true;
        } else {
            store(o);
        }
    }
    Calc::GiveJiTorvikParameters(jiTorvik);
    refresh_derived(all);
    correlate();
    // A correlated set that is given itself stands as it is.
    for (const Override& o : all)
        if (is_correlated(o.field)) store(o);
}

std::int16_t code_between(int value, int low, int high, const char* option) {
    if (value < low || value > high) throw WrongCall{std::string(option) + " is out of range"};
    return static_cast<std::int16_t>(value);
}

void choose_models(const Arguments& a) {
    Declare::ModelSelection& m = Declare::models;
    // The record's own default, which follows overrides of the measured sets.
    m.VPCode = substance.WAG.TLo > 0   ? "WAG"
               : substance.FRO.TLo > 0 ? "FRO"
               : substance.ALP.TLo > 0 ? "ALP"
               : substance.AHP.TLo > 0 ? "AHP"
                                       : "000";
    m.VPModel = Calc::VPIndex(m.VPCode);
    const Calc::ModelChoice defaults;  // brings every family to an entry that is offered

    if (a.eos) m.EOSModel = code_between(*a.eos, 0, 16, "--eos");
    m.EOSOnlyV = Calc::IsVOnlyEOS(m.EOSModel);
    if (a.vp.size() == 3) {
        m.VPCode = a.vp;
        m.VPModel = Calc::VPIndex(a.vp);
        if (m.VPModel == 0 && a.vp != "000") throw WrongCall{"--vp: no such equation: " + a.vp};
    } else if (!a.vp.empty()) {
        throw WrongCall{"--vp: no such equation: " + a.vp};
    }
    if (a.hlv) m.HLVModel = code_between(*a.hlv, 1, 7, "--hlv");
    if (a.cp) m.CpModel = code_between(*a.cp, 0, 2, "--cp");
    if (a.watson) m.WatsonN = static_cast<float>(*a.watson);
    if (!a.priority.empty()) m.PriorityCEOS = a.priority == "ceos";
    if (m.EOSOnlyV) m.PriorityCEOS = false;
    if (Calc::CalcEOSParameters(m.EOSModel) > 0)
        throw CannotBeDone{"Error during EOS-parameter calculation"};
}

void choose_units(const Arguments& a) {
    Declare::Session& s = Declare::session;
    if (a.units == "specific") s.CaloricUnit = 3;
    s.UnitMode = a.units == "specific" ? 1 : a.units == "reduced" ? 2 : 0;
    if (s.CaloricUnit == 3 && !(substance.M > 0)) throw CannotBeDone{"Division by zero"};
    s.CaloricFactor = Module2::CaloricFactorOf(s.CaloricUnit, s.DiagramT);
    Module2::RefreshUnits();
}

void choose_reference(const Arguments& a) {
    Declare::ReferenceState& r = Declare::reference;
    if (a.refmode) r.RefMode = static_cast<std::int16_t>(*a.refmode);
    if (a.href) r.href = *a.href;
    if (a.sref) r.sref = *a.sref;
    if (a.T0) r.T0 = static_cast<float>(*a.T0);
    if (a.p0) r.p0 = static_cast<float>(*a.p0);
    if (a.Tenv) r.Tenv = *a.Tenv == 0 ? 1e-6 : *a.Tenv;
    if (a.penv) r.penv = *a.penv;
    if (a.benson.empty()) return;
    const std::vector<std::string> parts = text::Split(a.benson, ',');
    if (parts.size() != 4) throw WrongCall{"--benson needs T,p,rhoL,rhoV"};
    std::array<float, 4> values{};
    for (std::size_t i = 0; i < 4; ++i) {
        const auto value = number(parts[i]);
        if (!value) throw WrongCall{"--benson: not a number: " + parts[i]};
        values[i] = static_cast<float>(*value);
    }
    Declare::session.BensonReference = {values[0], values[1], values[2], values[3]};
    const double product = static_cast<double>(values[0]) * static_cast<double>(values[1]) *
                           static_cast<double>(values[2]) * static_cast<double>(values[3]);
    Declare::session.BensonReferenceValid = product > 1e-6;
}

}  // namespace

void SetUp(const Arguments& a) {
    open_database(a);
    read_substance(a);
    apply_overrides(overrides(a));
    choose_models(a);
    choose_units(a);
    choose_reference(a);
}

}  // namespace quorcalc
