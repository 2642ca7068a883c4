#include "datafiles/substance_editor.h"

namespace quor::datafiles {

namespace {

constexpr std::string_view kHead = "";
constexpr std::string_view kGeneral = "General Data";
constexpr std::string_view kCritical = "Critical Data";
constexpr std::string_view kCaloric = "Caloric Data";
constexpr std::string_view kAntoineLow = "ANTOINE (low press.)";
constexpr std::string_view kAntoineHigh = "ANTOINE (high press.)";
constexpr std::string_view kFrost = " FROST/KALKWARF ";
constexpr std::string_view kWagner = " WAGNER ";
constexpr std::string_view kAugust = "AUGUST, calc. from T(crit) and normal boiling point";
constexpr std::string_view kThompson = "ANTOINE Constants, Thompson correlated";
constexpr std::string_view kVanDerWaals = "van der Waals correl.";
constexpr std::string_view kRedlich = "Redlich/Kw. correlated";
constexpr std::string_view kDensity = " rho(T) ";
constexpr std::string_view kCpPolynomial = " polynomial function ";
constexpr std::string_view kCpSinh = "sinh/cosh-function";
constexpr std::string_view kCpLiquid = "Polynomial cp(L)";
constexpr std::string_view kCpSolid = "Polynomial cp(S)";
constexpr std::string_view kVaporisation = "delta(LV)h (T)";
constexpr std::string_view kWatson = "WATSON reference point";

constexpr std::array<EditorField, kEditorFields> kTable{{
    {0, EditorTab::SingleValues, kGeneral, "molar mass /(kg/kmol)", "kg/kmol", "M", true},
    {1, EditorTab::SingleValues, kGeneral, "normal boiling temp. /K", "K", "Tboil", true},
    {2, EditorTab::SingleValues, kGeneral, "triple point temp. /K ", "K", "Ttriple", true},
    {3, EditorTab::SingleValues, kGeneral, "triple point press. /kPa", "kPa", "ptriple", true},
    {4, EditorTab::SingleValues, kCritical, "T(cr) /K", "K", "Tcrit", true},
    {5, EditorTab::SingleValues, kCritical, "p(cr) /kPa", "kPa", "pcrit", true},
    {6, EditorTab::SingleValues, kCritical, "rho(cr) /(kg/m^3)", "kg/m^3", "rhocrit", true},
    {7, EditorTab::SingleValues, kCritical, "omega", "", "omega", true},
    {8, EditorTab::VapourPressure, kAntoineLow, "A", "", "ALP.A", true},
    {9, EditorTab::VapourPressure, kAntoineLow, "B", "", "ALP.B", true},
    {10, EditorTab::VapourPressure, kAntoineLow, "C", "", "ALP.C", true},
    {11, EditorTab::VapourPressure, kAntoineLow, "T(low) /K", "K", "ALP.TLo", true},
    {12, EditorTab::VapourPressure, kAntoineLow, "T(high) /K", "K", "ALP.THi", true},
    {13, EditorTab::VapourPressure, kAntoineHigh, "A", "", "AHP.A", true},
    {14, EditorTab::VapourPressure, kAntoineHigh, "B", "", "AHP.B", true},
    {15, EditorTab::VapourPressure, kAntoineHigh, "C", "", "AHP.C", true},
    {16, EditorTab::VapourPressure, kAntoineHigh, "T(low) /K", "K", "AHP.TLo", true},
    {17, EditorTab::VapourPressure, kAntoineHigh, "T(high) /K", "K", "AHP.THi", true},
    {18, EditorTab::LDensity, kDensity, "A0", "", "rhoLPar.1", true},
    {19, EditorTab::LDensity, kDensity, "A1", "", "rhoLPar.2", true},
    {20, EditorTab::LDensity, kDensity, "A2", "", "rhoLPar.3", true},
    {21, EditorTab::LDensity, kDensity, "A3", "", "rhoLPar.4", true},
    {22, EditorTab::LDensity, kDensity, "A4", "", "rhoLPar.5", true},
    {23, EditorTab::LDensity, kDensity, "A5", "", "rhoLPar.6", true},
    {24, EditorTab::LDensity, kDensity, "A6", "", "rhoLPar.7", true},
    {25, EditorTab::LDensity, kDensity, "T(cr) /K", "K", "rhoLTc", true},
    {26, EditorTab::LDensity, kDensity, "T(low) /K", "K", "rhoLTLo", true},
    {27, EditorTab::LDensity, kDensity, "T(high) /K", "K", "rhoLTHi", true},
    {28, EditorTab::HeatCapacity, kCpPolynomial, "C0", "", "cpPoly.1", true},
    {29, EditorTab::HeatCapacity, kCpPolynomial, "C1", "", "cpPoly.2", true},
    {30, EditorTab::HeatCapacity, kCpPolynomial, "C2", "", "cpPoly.3", true},
    {31, EditorTab::HeatCapacity, kCpPolynomial, "C3", "", "cpPoly.4", true},
    {32, EditorTab::HeatCapacity, kCpPolynomial, "C4", "", "cpPoly.5", true},
    {33, EditorTab::HeatCapacity, kCpPolynomial, "T(low) /K", "K", "cpPoly.TLo", true},
    {34, EditorTab::HeatCapacity, kCpPolynomial, "T(high) /K", "K", "cpPoly.THi", true},
    {35, EditorTab::HeatCapacity, kCpSinh, "C0", "", "cpSinh.1", true},
    {36, EditorTab::HeatCapacity, kCpSinh, "C1", "", "cpSinh.2", true},
    {37, EditorTab::HeatCapacity, kCpSinh, "Abs(C2)", "", "cpSinh.3", true},
    {38, EditorTab::HeatCapacity, kCpSinh, "C3", "", "cpSinh.4", true},
    {39, EditorTab::HeatCapacity, kCpSinh, "C4", "", "cpSinh.5", true},
    {40, EditorTab::HeatCapacity, kCpSinh, "T(low) /K", "K", "cpSinh.TLo", true},
    {41, EditorTab::HeatCapacity, kCpSinh, "T(high) /K", "K", "cpSinh.THi", true},
    {42, EditorTab::Vaporisation, kWatson, "delta(LV)h(ref) /(kJ/kmol)", "kJ/kmol", "WatsonH",
     true},
    {43, EditorTab::Vaporisation, kWatson, "T(ref) /K", "K", "WatsonT", true},
    {44, EditorTab::SingleValues, kCaloric, "delta(F)h /(kJ/kmol)", "kJ/kmol", "dfh", true},
    {45, EditorTab::SingleValues, kCaloric, "delta(F)g /(kJ/kmol)", "kJ/kmol", "dfg", true},
    {46, EditorTab::VapourPressure, kAugust, "A", "", "AUG.A", false},
    {47, EditorTab::VapourPressure, kAugust, "B", "", "AUG.B", false},
    {48, EditorTab::VapourPressure, kThompson, "A", "", "THO.A", false},
    {49, EditorTab::VapourPressure, kThompson, "B", "", "THO.B", false},
    {50, EditorTab::VapourPressure, kThompson, "C", "", "THO.C", false},
    {51, EditorTab::VapourPressure, kFrost, "A", "", "FRO.1", true},
    {52, EditorTab::VapourPressure, kFrost, "B", "", "FRO.2", true},
    {53, EditorTab::VapourPressure, kFrost, "C", "", "FRO.3", true},
    {54, EditorTab::VapourPressure, kFrost, "D", "", "FRO.4", true},
    {55, EditorTab::VapourPressure, kFrost, "E", "", "FRO.5", true},
    {56, EditorTab::VapourPressure, kFrost, "F", "", "FRO.6", true},
    {57, EditorTab::VapourPressure, kFrost, "G", "", "FRO.7", true},
    {58, EditorTab::VapourPressure, kFrost, "H", "", "FRO.8", true},
    {59, EditorTab::VapourPressure, kFrost, "I", "", "FRO.9", true},
    {60, EditorTab::VapourPressure, kFrost, "T(low) /K", "K", "FRO.TLo", true},
    {61, EditorTab::VapourPressure, kFrost, "T(high) /K", "K", "FRO.THi", true},
    {62, EditorTab::VapourPressure, kWagner, "A1", "", "WAG.1", true},
    {63, EditorTab::VapourPressure, kWagner, "A2", "", "WAG.2", true},
    {64, EditorTab::VapourPressure, kWagner, "A3", "", "WAG.3", true},
    {65, EditorTab::VapourPressure, kWagner, "n3", "", "WAG.4", true},
    {66, EditorTab::VapourPressure, kWagner, "A4", "", "WAG.5", true},
    {67, EditorTab::VapourPressure, kWagner, "n4", "", "WAG.6", true},
    {68, EditorTab::VapourPressure, kWagner, "A5", "", "WAG.7", true},
    {69, EditorTab::VapourPressure, kWagner, "n5", "", "WAG.8", true},
    {70, EditorTab::VapourPressure, kWagner, "T(cr) /K", "K", "WAG.9", true},
    {71, EditorTab::VapourPressure, kWagner, "p(cr) /kPa", "kPa", "WAG.10", true},
    {72, EditorTab::VapourPressure, kWagner, "T(low) /K", "K", "WAG.TLo", true},
    {73, EditorTab::VapourPressure, kWagner, "T(high) /K", "K", "WAG.THi", true},
    {74, EditorTab::Vaporisation, kVaporisation, "A", "", "hLVPar.1", true},
    {75, EditorTab::Vaporisation, kVaporisation, "B", "", "hLVPar.2", true},
    {76, EditorTab::Vaporisation, kVaporisation, "C", "", "hLVPar.3", true},
    {77, EditorTab::Vaporisation, kVaporisation, "D", "", "hLVPar.4", true},
    {78, EditorTab::Vaporisation, kVaporisation, "E", "", "hLVPar.5", true},
    {79, EditorTab::Vaporisation, kVaporisation, "F", "", "hLVPar.6", true},
    {80, EditorTab::Vaporisation, kVaporisation, "T(cr) /K", "K", "hLVTc", true},
    {81, EditorTab::Vaporisation, kVaporisation, "T(low) /K", "K", "hLVTLo", true},
    {82, EditorTab::Vaporisation, kVaporisation, "T(high) /K", "K", "hLVTHi", true},
    {83, EditorTab::Head, kHead, "Name", "", "Name", true},
    {84, EditorTab::Head, kHead, "Formula", "", "Formula", true},
    {85, EditorTab::Head, kHead, "CAS-RN", "", "CASRN", true},
    {86, EditorTab::VapourPressure, kVanDerWaals, "A", "", "KFW.1", false},
    {87, EditorTab::VapourPressure, kVanDerWaals, "B", "", "KFW.2", false},
    {88, EditorTab::VapourPressure, kVanDerWaals, "C", "", "KFW.3", false},
    {89, EditorTab::VapourPressure, kVanDerWaals, "D", "", "KFW.4", false},
    {90, EditorTab::VapourPressure, kVanDerWaals, "E", "", "KFW.5", false},
    {91, EditorTab::VapourPressure, kVanDerWaals, "F", "", "KFW.6", false},
    {92, EditorTab::VapourPressure, kVanDerWaals, "G", "", "KFW.7", false},
    {93, EditorTab::VapourPressure, kVanDerWaals, "H", "", "KFW.8", false},
    {94, EditorTab::VapourPressure, kVanDerWaals, "I", "", "KFW.9", false},
    {95, EditorTab::VapourPressure, kVanDerWaals, "T(low) /K", "K", "KFW.TLo", false},
    {96, EditorTab::VapourPressure, kVanDerWaals, "T(high) /K", "K", "KFW.THi", false},
    {97, EditorTab::VapourPressure, kRedlich, "A", "", "KFR.1", false},
    {98, EditorTab::VapourPressure, kRedlich, "B", "", "KFR.2", false},
    {99, EditorTab::VapourPressure, kRedlich, "C", "", "KFR.3", false},
    {100, EditorTab::VapourPressure, kRedlich, "D", "", "KFR.4", false},
    {101, EditorTab::VapourPressure, kRedlich, "E", "", "KFR.5", false},
    {102, EditorTab::VapourPressure, kRedlich, "F", "", "KFR.6", false},
    {103, EditorTab::VapourPressure, kRedlich, "G", "", "KFR.7", false},
    {104, EditorTab::VapourPressure, kRedlich, "H", "", "KFR.8", false},
    {105, EditorTab::VapourPressure, kRedlich, "I", "", "KFR.9", false},
    {106, EditorTab::VapourPressure, kRedlich, "T(low) /K", "K", "KFR.TLo", false},
    {107, EditorTab::VapourPressure, kRedlich, "T(high) /K", "K", "KFR.THi", false},
    {108, EditorTab::HeatCapacity, kCpLiquid, "C0", "", "cpL.1", true},
    {109, EditorTab::HeatCapacity, kCpLiquid, "C1", "", "cpL.2", true},
    {110, EditorTab::HeatCapacity, kCpLiquid, "C2", "", "cpL.3", true},
    {111, EditorTab::HeatCapacity, kCpLiquid, "C3", "", "cpL.4", true},
    {112, EditorTab::HeatCapacity, kCpLiquid, "C4", "", "cpL.5", true},
    {113, EditorTab::HeatCapacity, kCpLiquid, "T(low) /K", "K", "cpL.TLo", true},
    {114, EditorTab::HeatCapacity, kCpLiquid, "T(high) /K", "K", "cpL.THi", true},
    {115, EditorTab::HeatCapacity, kCpSolid, "C0", "", "cpS.1", true},
    {116, EditorTab::HeatCapacity, kCpSolid, "C1", "", "cpS.2", true},
    {117, EditorTab::HeatCapacity, kCpSolid, "C2", "", "cpS.3", true},
    {118, EditorTab::HeatCapacity, kCpSolid, "C3", "", "cpS.4", true},
    {119, EditorTab::HeatCapacity, kCpSolid, "C4", "", "cpS.5", true},
    {120, EditorTab::HeatCapacity, kCpSolid, "T(low) /K", "K", "cpS.TLo", true},
    {121, EditorTab::HeatCapacity, kCpSolid, "T(high) /K", "K", "cpS.THi", true},
    {122, EditorTab::SingleValues, kCaloric, "s(conv) /(kJ/(kmol K))", "kJ/(kmol K)", "sconv",
     true},
}};

}  // namespace

std::string_view editor_tab_caption(EditorTab tab) {
    constexpr std::array<std::string_view, 6> captions{
        "", "Single Values", "Vapour Pressure", "L-Density", "Heat Capacity", "delta(LV)h"};
    return captions[static_cast<std::size_t>(tab)];
}

FieldPlace place_of(const EditorField& field) {
    // The names of the table are those of the record: each is found.
    return find_field(field.name).value_or(FieldPlace{});
}

std::span<const EditorField, kEditorFields> editor_field_table() {
    return kTable;
}

}  // namespace quor::datafiles
