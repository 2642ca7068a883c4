#include "models/model_tables.h"

#include <array>

namespace quor::models {

namespace {

struct VapourPressureRow {
    std::string_view code, name;
};

constexpr std::array<VapourPressureRow, 9> kVP = {{{"000", "none"},
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
typename Table::value_type at(const Table& table, int index) {
    return index >= 0 && index < static_cast<int>(table.size())
               ? table[static_cast<std::size_t>(index)]
               : typename Table::value_type{};
}

}  // namespace

std::string_view vp_name(VapourPressureEquation equation) {
    return at(kVP, static_cast<int>(equation)).name;
}
std::string_view vp_code(VapourPressureEquation equation) {
    return at(kVP, static_cast<int>(equation)).code;
}

VapourPressureEquation vp_of_code(std::string_view code) {
    for (std::size_t i = 1; i < kVP.size(); ++i)
        if (kVP[i].code == code) return static_cast<VapourPressureEquation>(i);
    return VapourPressureEquation::none;
}

std::string_view hlv_name(VaporisationModel method) {
    return at(kHLVNames, static_cast<int>(method));
}
std::string_view cp_name(CpForm form) {
    return at(kCpNames, static_cast<int>(form));
}
std::string_view function_label(int index) {
    return at(kFunctionLabels, index);
}

}  // namespace quor::models
