#include "support/draws.h"

#include <array>
#include <cctype>
#include <cmath>
#include <limits>
#include <string_view>

#include "common/numbers.h"
#include "datafiles/record_fields.h"
#include "models/model_choice.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"

namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr std::array kWorst = {0.0,     -0.0,  -5.0, 1e-300, -1e-300, 1e300,     -1e300,
                               kNone,   1e-30, 1e30, 1e-45,  1e-10,   1e-6,      3.4e38,
                               3.5e38,  1e10,  -1.0, 1e150,  5e-324,  kInfinite, 1.7e308,
                               32768.0, 1e-7,  1e5,  1e-3,   1e-38,   -kInfinite};

/// Values of a record's field that its reader lets through.
constexpr std::array kFieldTexts = {"0",     "-5",     "1e30", "-1e30", "1e-30", "1e-38", "3.4e38",
                                    "32767", "-32767", "1",    "-1",    "1e10",  "1e-10", "1e5"};

const std::vector<models::SubstanceRecord>& rows() {
    static const std::vector<models::SubstanceRecord> all = [] {
        std::vector<models::SubstanceRecord> records;
        for (const std::string& name : fluids::AllNames())
            records.push_back(fluids::correlated_row(name));
        return records;
    }();
    return all;
}

}  // namespace

double Draws::any_number() {
    if (once_in(2)) return one_of(kWorst);
    const double mantissa = 1.0 + static_cast<double>(below(1024)) / 1024.0;
    return std::ldexp(once_in(8) ? -mantissa : mantissa, between(-40, 60));
}

float Draws::any_single() {
    const double value = any_number();
    if (std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max()))
        return static_cast<float>(value);
    return std::isnan(value) ? std::numeric_limits<float>::quiet_NaN()
                             : std::copysign(std::numeric_limits<float>::infinity(),
                                             static_cast<float>(value > 0 ? 1 : -1));
}

double Draws::any_finite() {
    const double value = any_number();
    return std::isfinite(value) ? value : 0.0;
}

float Draws::any_finite_single() {
    const float value = any_single();
    return std::isfinite(value) ? value : 0.0F;
}

double Draws::near(double scale) {
    return once_in(4) ? any_number() : scale * 3.0 * share() * share();
}

models::SubstanceRecord Draws::substance() {
    models::SubstanceRecord record = one_of(rows());
    if (!once_in(3)) return record;
    for (int i = between(1, 4); i > 0; --i) {
        const auto fields = datafiles::record_fields();
        const datafiles::RecordField& field = fields[below(fields.size())];
        std::string name(field.name);
        if (field.count > 0)
            name += "." + std::to_string(between(1, static_cast<int>(field.count)));
        // A flag or a text refuses what is no value of it.
        (void)datafiles::set_field(record, name, one_of(kFieldTexts));
    }
    if (once_in(2)) {
        // The sets that follow from the critical and the boiling point are made anew.
        models::correlate_august(record);
        using enum models::VapourPressureEquation;
        for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
            models::correlate_vapour_pressure(record, equation, record.Tcrit, record.pcrit,
                                              static_cast<double>(record.Tboil));
    }
    return record;
}

models::ModelSelection Draws::selection(const models::SubstanceRecord& substance) {
    const auto eos =
        static_cast<models::Eos>(between(0, static_cast<int>(models::Eos::pitzerCurl)));
    models::ModelSelection m = fluids::selection(substance, eos);
    m.vapour_only = models::is_v_only(eos);
    m.vapour_pressure = static_cast<models::VapourPressureEquation>(
        between(0, static_cast<int>(models::VapourPressureEquation::thompson)));
    m.vaporisation = static_cast<models::VaporisationModel>(
        between(0, static_cast<int>(models::VaporisationModel::cubicEos)));
    m.cp_form = static_cast<models::CpForm>(between(0, static_cast<int>(models::CpForm::sinhCosh)));
    m.watson_n = once_in(4) ? any_finite_single() : 0.38F;
    m.eos_has_priority = !m.vapour_only && once_in(2);
    if (once_in(8)) m.manual_virial = {any_finite(), any_finite(), any_finite()};
    if (once_in(8)) {
        m.ji_torvik.m = any_finite();
        m.ji_torvik.p = any_finite();
        m.ji_torvik.q = any_finite();
        m.ji_torvik.zc = any_finite();
        m.ji_torvik.k = any_finite();
    }
    return m;
}

models::ReferenceState Draws::reference() {
    models::ReferenceState r;
    constexpr std::array<std::int16_t, 4> kModes = {1, 2, 10, 7};
    r.mode = one_of(kModes);
    if (!once_in(3)) return r;
    r.href = any_finite();
    r.sref = any_finite();
    r.T0 = any_finite_single();
    r.p0 = any_finite_single();
    r.Tenv = any_finite();
    r.penv = any_finite();
    return r;
}

models::UnitChoice Draws::units() {
    models::UnitChoice u;
    u.system = static_cast<models::UnitSystem>(between(0, 2));
    u.caloric = static_cast<models::CaloricUnit>(between(0, 3));
    if (once_in(6)) u.T_of_RT = any_finite();
    return u;
}

models::Fluid Draws::fluid() {
    for (;;) {
        const models::SubstanceRecord record = substance();
        const auto made = models::Fluid::make(record, selection(record));
        if (made) return *made;
    }
}

bool has_no_number(const std::string& text) {
    const auto is_letter = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    std::string word;
    for (const char c : text + " ") {
        if (is_letter(c)) {
            word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            continue;
        }
        if (word == "nan" || word == "inf" || word == "infinity") return true;
        word.clear();
    }
    return false;
}
