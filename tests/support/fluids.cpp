#include "support/fluids.h"

#include <cmath>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "models/vapour_pressure.h"

using namespace quor;

namespace fluids {

namespace {

using Json = nlohmann::json;
using CsvRow = std::map<std::string, std::string, std::less<>>;

std::vector<std::string> split_csv(const std::string& line) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            cells.emplace_back();
        } else if (c != '\r') {
            cells.back() += c;
        }
    }
    return cells;
}

const std::vector<CsvRow>& table() {
    static const std::vector<CsvRow> rows = [] {
        std::ifstream in(std::string(QUOR_SOURCE_DATA) + "/substances.csv");
        if (!in) throw std::runtime_error("data/substances.csv is missing");
        std::string line;
        std::getline(in, line);
        const std::vector<std::string> heads = split_csv(line);
        std::vector<CsvRow> all;
        while (std::getline(in, line)) {
            const std::vector<std::string> cells = split_csv(line);
            CsvRow row;
            for (std::size_t i = 0; i < heads.size() && i < cells.size(); ++i)
                row[heads[i]] = cells[i];
            all.push_back(row);
        }
        return all;
    }();
    return rows;
}

struct Reader {
    const CsvRow& row;

    float f(const std::string& key) const {
        const auto it = row.find(key);
        if (it == row.end() || it->second.empty()) return 0.0F;
        // A cell with 0 is a real zero, which the files hold as 1E-37.
        const float v = std::stof(it->second);
        return v == 0.0F ? 1e-37F : v;
    }
    std::int16_t t(const std::string& key) const {
        return static_cast<std::int16_t>(std::nearbyint(static_cast<double>(f(key))));
    }
    template <std::size_t N>
    void fill(std::array<float, N>& a, const std::string& prefix, int first) const {
        for (std::size_t i = 0; i < N; ++i)
            a[i] = f(prefix + std::to_string(first + static_cast<int>(i)));
    }
};

double round4(double x) {
    return std::floor(x * 10000.0 + 0.5) / 10000.0;
}

void read_cp(const Reader& in, const std::string& name, models::CpSet& set) {
    in.fill(set.c, name + "_", 0);
    set.TLo = in.t(name + "_TLo");
    set.THi = in.t(name + "_THi");
}

bool has_ideal(const models::CpSet& s) {
    return std::fabs(static_cast<double>(s.TLo) * static_cast<double>(s.c[0]) *
                     static_cast<double>(s.THi)) > 1e-6;
}

bool has_condensed(const models::CpSet& s) {
    return (std::fabs(s.c[0]) > 1e-6F || std::fabs(s.c[1]) > 1e-6F) && s.TLo > 0 && s.THi > 0;
}

}  // namespace

std::vector<std::string> AllNames() {
    std::vector<std::string> names;
    for (const CsvRow& row : table()) names.push_back(row.at("name_en"));
    return names;
}

models::SubstanceRecord Row(std::string_view name) {
    for (const CsvRow& row : table()) {
        if (row.at("name_en") != name) continue;
        const Reader in{row};
        models::SubstanceRecord s;
        s.Name = row.at("name_en");
        s.Formula = s.FormulaCompact = row.at("formula");
        s.CASRN = row.at("casrn");
        s.CASRN.resize(12, ' ');
        s.M = static_cast<float>(round4(static_cast<double>(in.f("M"))));
        s.Tcrit = round4(static_cast<double>(in.f("Tcrit")));
        s.pcrit = round4(static_cast<double>(in.f("pcrit")));
        s.rhocrit = static_cast<double>(in.f("rhocrit"));
        s.vcritExp = s.rhocrit > 1e-6 ? static_cast<double>(s.M) / s.rhocrit : 0.0;
        s.omega = static_cast<double>(in.f("omega"));
        s.Tboil = in.f("Tboil");
        s.Ttriple = in.f("Ttriple");
        s.ptriple = in.f("ptriple");
        s.dfh = in.f("dfh");
        s.dfg = in.f("dfg");
        s.sconv = in.f("sconv");
        if (std::fabs(s.dfh * s.dfg) > 1e-6F)
            s.dfs = static_cast<float>((static_cast<double>(s.dfh) - static_cast<double>(s.dfg)) /
                                       298.15);
        for (auto [set, prefix] : {std::pair{&s.ALP, "ALP_"}, std::pair{&s.AHP, "AHP_"}}) {
            const std::string p = prefix;
            *set = {in.f(p + "A"), in.f(p + "B"), in.f(p + "C"), in.t(p + "TLo"), in.t(p + "THi")};
        }
        in.fill(s.FRO.a, "FRO_", 1);
        s.FRO.TLo = in.t("FRO_TLo");
        s.FRO.THi = in.t("FRO_THi");
        in.fill(s.WAG.a, "WAG_", 1);
        s.WAG.TLo = in.t("WAG_TLo");
        s.WAG.THi = in.t("WAG_THi");
        in.fill(s.rhoLPar, "rhoL_", 1);
        s.rhoLTc = in.f("rhoLTc");
        s.rhoLTLo = row.at("rhoLTLo") == "0" ? std::int16_t{0} : in.t("rhoLTLo");
        s.rhoLTHi = in.t("rhoLTHi");
        in.fill(s.rhoSPar, "rhoS_", 1);
        s.rhoSTLo = in.t("rhoSTLo");
        s.rhoSTHi = in.t("rhoSTHi");
        in.fill(s.hLVPar, "hLV_", 1);
        s.hLVTc = in.f("hLVTc");
        s.hLVTLo = in.t("hLVTLo");
        s.hLVTHi = in.t("hLVTHi");
        s.WatsonH = in.f("WatsonH");
        s.WatsonT = in.f("WatsonT");
        read_cp(in, "cpPoly", s.cpPoly);
        read_cp(in, "cpSinh", s.cpSinh);
        read_cp(in, "cpL", s.cpL);
        read_cp(in, "cpS", s.cpS);
        s.cpSinh.c[2] = std::fabs(s.cpSinh.c[2]);
        if (std::fabs(s.cpSinh.c[0]) > 1e-6F && s.cpSinh.c[2] < 1e-6F) s.cpSinh.c[2] = 0.1F;
        s.hasCpPoly = has_ideal(s.cpPoly);
        s.hasCpSinh = has_ideal(s.cpSinh);
        s.hasCpL = has_condensed(s.cpL);
        s.hasCpS = has_condensed(s.cpS);
        return s;
    }
    throw std::runtime_error("no such substance: " + std::string(name));
}

models::SubstanceRecord ReferencePropane() {
    static const Json fluid = [] {
        std::ifstream in(std::string(QUOR_TEST_DATA) + "/reference_propane.json");
        return Json::parse(in).at("substance");
    }();
    models::SubstanceRecord s;
    s.Name = fluid.at("Name");
    s.Formula = s.FormulaCompact = fluid.at("Formula");
    s.CASRN = fluid.at("CASRN");
    s.CASRN.resize(12, ' ');
    const auto number = [&](const char* key, auto& field) { fluid.at(key).get_to(field); };
    const auto set = [&](const std::string& key, auto& a) {
        for (std::size_t i = 0; i < a.size(); ++i) fluid.at(key).at(i).get_to(a[i]);
    };
    const auto range = [&](const std::string& key, std::int16_t& lo, std::int16_t& hi) {
        fluid.at(key + "TLo").get_to(lo);
        fluid.at(key + "THi").get_to(hi);
    };
    number("Tcrit", s.Tcrit);
    number("pcrit", s.pcrit);
    number("rhocrit", s.rhocrit);
    number("vcritExp", s.vcritExp);
    number("omega", s.omega);
    number("M", s.M);
    number("Tboil", s.Tboil);
    number("rhoLboil", s.rhoLboil);
    number("Ttriple", s.Ttriple);
    number("ptriple", s.ptriple);
    number("dfh", s.dfh);
    number("dfg", s.dfg);
    number("dfs", s.dfs);
    number("sconv", s.sconv);
    number("rhoLTc", s.rhoLTc);
    number("hLVTc", s.hLVTc);
    number("WatsonH", s.WatsonH);
    number("WatsonT", s.WatsonT);
    for (auto [target, key] :
         {std::pair{&s.ALP, "ALP"}, std::pair{&s.AHP, "AHP"}, std::pair{&s.THO, "THO"}}) {
        std::array<float, 3> abc{};
        set(key, abc);
        target->A = abc[0];
        target->B = abc[1];
        target->C = abc[2];
    }
    range("ALP", s.ALP.TLo, s.ALP.THi);
    range("AHP", s.AHP.TLo, s.AHP.THi);
    set("FRO", s.FRO.a);
    range("FRO", s.FRO.TLo, s.FRO.THi);
    set("KFW", s.KFW.a);
    set("KFR", s.KFR.a);
    set("WAG", s.WAG.a);
    range("WAG", s.WAG.TLo, s.WAG.THi);
    std::array<float, 2> ab{};
    set("AUG", ab);
    s.AUG = {ab[0], ab[1]};
    set("rhoLPar", s.rhoLPar);
    range("rhoL", s.rhoLTLo, s.rhoLTHi);
    set("rhoSPar", s.rhoSPar);
    range("rhoS", s.rhoSTLo, s.rhoSTHi);
    set("hLVPar", s.hLVPar);
    range("hLV", s.hLVTLo, s.hLVTHi);
    for (auto [cp, key] : {std::pair{&s.cpPoly, "cpPoly"}, std::pair{&s.cpSinh, "cpSinh"},
                           std::pair{&s.cpL, "cpL"}, std::pair{&s.cpS, "cpS"}}) {
        set(key, cp->c);
        range(key, cp->TLo, cp->THi);
    }
    number("hasCpPoly", s.hasCpPoly);
    number("hasCpSinh", s.hasCpSinh);
    number("hasCpL", s.hasCpL);
    number("hasCpS", s.hasCpS);
    return s;
}

models::SubstanceRecord correlated_row(std::string_view name) {
    using enum models::VapourPressureEquation;
    models::SubstanceRecord s = Row(name);
    for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
        models::correlate_vapour_pressure(s, equation, s.Tcrit, s.pcrit,
                                          static_cast<double>(s.Tboil));
    models::correlate_august(s);
    return s;
}

models::ModelSelection selection(const models::SubstanceRecord& substance, models::Eos eos) {
    models::ModelSelection m;
    m.EOSModel = eos;
    m.VPModel = models::VapourPressureEquation::frostRedlichKwong;
    m.WatsonN = 0.38F;
    m.CpModel = substance.hasCpSinh ? models::CpForm::sinhCosh : models::CpForm::polynomial;
    m.manualVirial = {.b0 = 0.2, .b1 = 0.3, .b2 = 0.4};
    m.jiTorvik = {.jtK = 0.06, .jtZc = 0.281, .jtM = 0.9, .jtP = 0.55, .jtQ = 0.35};
    return m;
}

models::Fluid fluid(const models::SubstanceRecord& substance,
                    const models::ModelSelection& models) {
    const Result<models::Fluid> made = models::Fluid::make(substance, models);
    if (!made) throw std::runtime_error("no fluid of " + substance.Name + ": " + made.reason());
    return *made;
}

models::Fluid fluid(const models::SubstanceRecord& substance, models::Eos eos) {
    return fluid(substance, selection(substance, eos));
}

models::Fluid fluid(std::string_view name, models::Eos eos) {
    return fluid(correlated_row(name), eos);
}

}  // namespace fluids
