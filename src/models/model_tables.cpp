#include "models/model_tables.h"

#include <array>

namespace quor::models {

namespace {

constexpr std::array<std::string_view, 17> kEOSNames = {
    "Ideal-gas EOS                      ", "",
    "CEOS van der Waals                 ", "CEOS Berthelot                     ",
    "CEOS Redlich / Kwong               ", "CEOS Soave / Redlich / Kwong       ",
    "CEOS Peng / Robinson               ", "CEOS Ji / Torvik I                 ",
    "CEOS Ji / Torvik II                ", "",
    "VIRIAL Equ., Manual Input          ", "VIRIAL Equ. Van der Waals          ",
    "VIRIAL-equ. Berthelot              ", "VIRIAL Equ. Redlich / Kwong        ",
    "VIRIAL Equ. Soave / Redlich / Kwong", "VIRIAL Equ. Peng / Robinson        ",
    "VIRIAL Equ. Pitzer / Curl          "};

struct VPRow {
    std::string_view code, name;
};

constexpr std::array<VPRow, kVPCount> kVP = {{{"000", "none"},
                                              {"ALP", "Antoine (T < norm. boil. pt.)"},
                                              {"AHP", "Antoine (T > norm. boil. pt.)"},
                                              {"FRO", "            FROST/KALKWARF"},
                                              {"WAG", "                    Wagner"},
                                              {"AUG", "         AUGUST (correlated)"},
                                              {"KFW", "Fro/Kalk (v.d.Waals correlated)"},
                                              {"KFR", "Fro/Kalk (Redl./Kwong correlated)"},
                                              {"THO", "Antoine  (Thompson correlated)"}}};

constexpr std::array<std::string_view, 8> kHLVNames = {
    "",
    "equation Fu(T) from database",
    "Chen-correlation",
    "Carruth/Kobayashi-correlation",
    "Watson-correlation",
    "using vapour press. equ.+ rhoL(T)",
    "using vapour press. equ. + Benson's method ",
    "by using CEOS ('global calculation')"};

constexpr std::array<std::string_view, 3> kCpNames = {"(no equation available)  ",
                                                      "polynomial equation", "sinh/cosh equation"};

constexpr std::array<std::string_view, 24> kFunctionLabels = {" (dp/dV) at T",
                                                              " (dp/dT) at v",
                                                              " (dV/dp) at T",
                                                              " (dV/dT) at p",
                                                              " (dT/dV) at p",
                                                              " (dT/dp) at v",
                                                              " alpha/(1/K)  ",
                                                              "   chi/(1/kPa)",
                                                              "  beta/(1/K)  ",
                                                              "       d2p/dV²",
                                                              "",
                                                              "",
                                                              "       d2V/dT²",
                                                              "       d2T/dV²",
                                                              "     ln (phi*)",
                                                              "    dln phi/dT",
                                                              "  d2ln phi/dT²",
                                                              "   (s-s_idG)/R",
                                                              "   (h-h_idG)/R",
                                                              "   (g-g_idG)/R",
                                                              " (cp-cp_idG)/R",
                                                              " (dT/dp) at H",
                                                              " cv/kJ/kmol/K ",
                                                              " cp/kJ/kmol/K "};

template <class Table>
std::string_view at(const Table& table, int index) {
    return index >= 0 && index < static_cast<int>(table.size())
               ? table[static_cast<std::size_t>(index)]
               : std::string_view();
}

}  // namespace

std::string_view EOSName(std::int16_t code) {
    return at(kEOSNames, code);
}
bool is_cubic_eos(std::int16_t code) {
    return code >= 2 && code <= 8;
}
bool is_v_only_eos(std::int16_t code) {
    return code == 0 || code > 9;
}
bool eos_needs_omega(std::int16_t code) {
    return (code >= 5 && code <= 8) || code >= 14;
}

std::string_view vp_name(std::int16_t index) {
    return index >= 0 && index < kVPCount ? kVP[static_cast<std::size_t>(index)].name : "";
}

std::string_view VPCode(std::int16_t index) {
    return index >= 0 && index < kVPCount ? kVP[static_cast<std::size_t>(index)].code : "000";
}

std::int16_t vp_index(std::string_view code) {
    for (std::int16_t i = 1; i < kVPCount; ++i)
        if (kVP[static_cast<std::size_t>(i)].code == code) return i;
    return 0;
}

std::string_view hlv_name(std::int16_t method) {
    return at(kHLVNames, method);
}
std::string_view cp_name(std::int16_t form) {
    return at(kCpNames, form);
}
std::string_view FunctionLabel(int index) {
    return at(kFunctionLabels, index);
}

}  // namespace quor::models
