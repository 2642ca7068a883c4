#include "support/fluids.h"

#include <charconv>
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
        float v = 0;
        std::from_chars(it->second.data(), it->second.data() + it->second.size(), v);
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
    set.T_low = in.t(name + "_TLo");
    set.T_high = in.t(name + "_THi");
}

bool has_ideal(const models::CpSet& s) {
    return std::fabs(static_cast<double>(s.T_low) * static_cast<double>(s.c[0]) *
                     static_cast<double>(s.T_high)) > 1e-6;
}

bool has_condensed(const models::CpSet& s) {
    return (std::fabs(s.c[0]) > 1e-6F || std::fabs(s.c[1]) > 1e-6F) && s.T_low > 0 && s.T_high > 0;
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
        s.name = row.at("name_en");
        s.formula = s.formula_compact = row.at("formula");
        s.casrn = row.at("casrn");
        s.casrn.resize(12, ' ');
        s.M = static_cast<float>(round4(static_cast<double>(in.f("M"))));
        s.Tcrit = round4(static_cast<double>(in.f("Tcrit")));
        s.pcrit = round4(static_cast<double>(in.f("pcrit")));
        s.rhocrit = static_cast<double>(in.f("rhocrit"));
        s.vcrit_measured = s.rhocrit > 1e-6 ? static_cast<double>(s.M) / s.rhocrit : 0.0;
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
        for (auto [set, prefix] :
             {std::pair{&s.antoine_low, "ALP_"}, std::pair{&s.antoine_high, "AHP_"}}) {
            const std::string p = prefix;
            *set = {in.f(p + "A"), in.f(p + "B"), in.f(p + "C"), in.t(p + "TLo"), in.t(p + "THi")};
        }
        in.fill(s.frost.a, "FRO_", 1);
        s.frost.T_low = in.t("FRO_TLo");
        s.frost.T_high = in.t("FRO_THi");
        in.fill(s.wagner.a, "WAG_", 1);
        s.wagner.T_low = in.t("WAG_TLo");
        s.wagner.T_high = in.t("WAG_THi");
        in.fill(s.rhoL_coefficients, "rhoL_", 1);
        s.rhoL_Tc = in.f("rhoLTc");
        s.rhoL_T_low = row.at("rhoLTLo") == "0" ? std::int16_t{0} : in.t("rhoLTLo");
        s.rhoL_T_high = in.t("rhoLTHi");
        in.fill(s.rhoS_coefficients, "rhoS_", 1);
        s.rhoS_T_low = in.t("rhoSTLo");
        s.rhoS_T_high = in.t("rhoSTHi");
        in.fill(s.hLV_coefficients, "hLV_", 1);
        s.hLV_Tc = in.f("hLVTc");
        s.hLV_T_low = in.t("hLVTLo");
        s.hLV_T_high = in.t("hLVTHi");
        s.watson_hLV = in.f("WatsonH");
        s.watson_T = in.f("WatsonT");
        read_cp(in, "cpPoly", s.cp_polynomial);
        read_cp(in, "cpSinh", s.cp_sinh_cosh);
        read_cp(in, "cpL", s.cpL);
        read_cp(in, "cpS", s.cpS);
        s.cp_sinh_cosh.c[2] = std::fabs(s.cp_sinh_cosh.c[2]);
        if (std::fabs(s.cp_sinh_cosh.c[0]) > 1e-6F && s.cp_sinh_cosh.c[2] < 1e-6F)
            s.cp_sinh_cosh.c[2] = 0.1F;
        s.has_cp_polynomial = has_ideal(s.cp_polynomial);
        s.has_cp_sinh_cosh = has_ideal(s.cp_sinh_cosh);
        s.has_cpL = has_condensed(s.cpL);
        s.has_cpS = has_condensed(s.cpS);
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
    s.name = fluid.at("Name");
    s.formula = s.formula_compact = fluid.at("Formula");
    s.casrn = fluid.at("CASRN");
    s.casrn.resize(12, ' ');
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
    number("vcritExp", s.vcrit_measured);
    number("omega", s.omega);
    number("M", s.M);
    number("Tboil", s.Tboil);
    number("rhoLboil", s.rhoL_boil);
    number("Ttriple", s.Ttriple);
    number("ptriple", s.ptriple);
    number("dfh", s.dfh);
    number("dfg", s.dfg);
    number("dfs", s.dfs);
    number("sconv", s.sconv);
    number("rhoLTc", s.rhoL_Tc);
    number("hLVTc", s.hLV_Tc);
    number("WatsonH", s.watson_hLV);
    number("WatsonT", s.watson_T);
    for (auto [target, key] : {std::pair{&s.antoine_low, "ALP"}, std::pair{&s.antoine_high, "AHP"},
                               std::pair{&s.thompson, "THO"}}) {
        std::array<float, 3> abc{};
        set(key, abc);
        target->A = abc[0];
        target->B = abc[1];
        target->C = abc[2];
    }
    range("ALP", s.antoine_low.T_low, s.antoine_low.T_high);
    range("AHP", s.antoine_high.T_low, s.antoine_high.T_high);
    set("FRO", s.frost.a);
    range("FRO", s.frost.T_low, s.frost.T_high);
    set("KFW", s.frost_van_der_waals.a);
    set("KFR", s.frost_redlich_kwong.a);
    set("WAG", s.wagner.a);
    range("WAG", s.wagner.T_low, s.wagner.T_high);
    std::array<float, 2> ab{};
    set("AUG", ab);
    s.august = {ab[0], ab[1]};
    set("rhoLPar", s.rhoL_coefficients);
    range("rhoL", s.rhoL_T_low, s.rhoL_T_high);
    set("rhoSPar", s.rhoS_coefficients);
    range("rhoS", s.rhoS_T_low, s.rhoS_T_high);
    set("hLVPar", s.hLV_coefficients);
    range("hLV", s.hLV_T_low, s.hLV_T_high);
    for (auto [cp, key] :
         {std::pair{&s.cp_polynomial, "cpPoly"}, std::pair{&s.cp_sinh_cosh, "cpSinh"},
          std::pair{&s.cpL, "cpL"}, std::pair{&s.cpS, "cpS"}}) {
        set(key, cp->c);
        range(key, cp->T_low, cp->T_high);
    }
    number("hasCpPoly", s.has_cp_polynomial);
    number("hasCpSinh", s.has_cp_sinh_cosh);
    number("hasCpL", s.has_cpL);
    number("hasCpS", s.has_cpS);
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
    m.eos = eos;
    m.vapour_pressure = models::VapourPressureEquation::frostRedlichKwong;
    m.watson_n = 0.38F;
    m.cp_form = substance.has_cp_sinh_cosh ? models::CpForm::sinhCosh : models::CpForm::polynomial;
    m.manual_virial = {.b0 = 0.2, .b1 = 0.3, .b2 = 0.4};
    m.ji_torvik = {.k = 0.06, .zc = 0.281, .m = 0.9, .p = 0.55, .q = 0.35};
    return m;
}

models::Fluid fluid(const models::SubstanceRecord& substance,
                    const models::ModelSelection& models) {
    const Result<models::Fluid> made = models::Fluid::make(substance, models);
    if (!made) throw std::runtime_error("no fluid of " + substance.name + ": " + made.reason());
    return *made;
}

models::Fluid fluid(const models::SubstanceRecord& substance, models::Eos eos) {
    return fluid(substance, selection(substance, eos));
}

models::Fluid fluid(std::string_view name, models::Eos eos) {
    return fluid(correlated_row(name), eos);
}

}  // namespace fluids
