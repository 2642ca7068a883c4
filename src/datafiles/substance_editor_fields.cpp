#include "datafiles/substance_editor.h"

namespace LoadSaveData {

namespace {

using R = Declare::SubstanceRecord;

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

/// A member of the record.
template <auto Member>
FieldReference Plain(R& s) {
    return &(s.*Member);
}
/// A member of one of its sets.
template <auto Set, auto Member>
FieldReference Part(R& s) {
    return &(s.*Set.*Member);
}
/// An element of the values of a set.
template <auto Set, auto Values, std::size_t I>
FieldReference Element(R& s) {
    return &(s.*Set.*Values)[I];
}
/// An element of a list of the record.
template <auto Values, std::size_t I>
FieldReference Item(R& s) {
    return &(s.*Values)[I];
}

constexpr std::array<EditorField, kEditorFields> kTable{{
    {0, EditorTab::SingleValues, kGeneral, "molar mass /(kg/kmol)", "kg/kmol", true, Plain<&R::M>},
    {1, EditorTab::SingleValues, kGeneral, "normal boiling temp. /K", "K", true, Plain<&R::Tboil>},
    {2, EditorTab::SingleValues, kGeneral, "triple point temp. /K ", "K", true, Plain<&R::Ttriple>},
    {3, EditorTab::SingleValues, kGeneral, "triple point press. /kPa", "kPa", true,
     Plain<&R::ptriple>},
    {4, EditorTab::SingleValues, kCritical, "T(cr) /K", "K", true, Plain<&R::Tcrit>},
    {5, EditorTab::SingleValues, kCritical, "p(cr) /kPa", "kPa", true, Plain<&R::pcrit>},
    {6, EditorTab::SingleValues, kCritical, "rho(cr) /(kg/m^3)", "kg/m^3", true,
     Plain<&R::rhocrit>},
    {7, EditorTab::SingleValues, kCritical, "omega", "", true, Plain<&R::omega>},
    {8, EditorTab::VapourPressure, kAntoineLow, "A", "", true,
     Part<&R::ALP, &Declare::VPSetAntoine::A>},
    {9, EditorTab::VapourPressure, kAntoineLow, "B", "", true,
     Part<&R::ALP, &Declare::VPSetAntoine::B>},
    {10, EditorTab::VapourPressure, kAntoineLow, "C", "", true,
     Part<&R::ALP, &Declare::VPSetAntoine::C>},
    {11, EditorTab::VapourPressure, kAntoineLow, "T(low) /K", "K", true,
     Part<&R::ALP, &Declare::VPSetAntoine::TLo>},
    {12, EditorTab::VapourPressure, kAntoineLow, "T(high) /K", "K", true,
     Part<&R::ALP, &Declare::VPSetAntoine::THi>},
    {13, EditorTab::VapourPressure, kAntoineHigh, "A", "", true,
     Part<&R::AHP, &Declare::VPSetAntoine::A>},
    {14, EditorTab::VapourPressure, kAntoineHigh, "B", "", true,
     Part<&R::AHP, &Declare::VPSetAntoine::B>},
    {15, EditorTab::VapourPressure, kAntoineHigh, "C", "", true,
     Part<&R::AHP, &Declare::VPSetAntoine::C>},
    {16, EditorTab::VapourPressure, kAntoineHigh, "T(low) /K", "K", true,
     Part<&R::AHP, &Declare::VPSetAntoine::TLo>},
    {17, EditorTab::VapourPressure, kAntoineHigh, "T(high) /K", "K", true,
     Part<&R::AHP, &Declare::VPSetAntoine::THi>},
    {18, EditorTab::LDensity, kDensity, "A0", "", true, Item<&R::rhoLPar, 0>},
    {19, EditorTab::LDensity, kDensity, "A1", "", true, Item<&R::rhoLPar, 1>},
    {20, EditorTab::LDensity, kDensity, "A2", "", true, Item<&R::rhoLPar, 2>},
    {21, EditorTab::LDensity, kDensity, "A3", "", true, Item<&R::rhoLPar, 3>},
    {22, EditorTab::LDensity, kDensity, "A4", "", true, Item<&R::rhoLPar, 4>},
    {23, EditorTab::LDensity, kDensity, "A5", "", true, Item<&R::rhoLPar, 5>},
    {24, EditorTab::LDensity, kDensity, "A6", "", true, Item<&R::rhoLPar, 6>},
    {25, EditorTab::LDensity, kDensity, "T(cr) /K", "K", true, Plain<&R::rhoLTc>},
    {26, EditorTab::LDensity, kDensity, "T(low) /K", "K", true, Plain<&R::rhoLTLo>},
    {27, EditorTab::LDensity, kDensity, "T(high) /K", "K", true, Plain<&R::rhoLTHi>},
    {28, EditorTab::HeatCapacity, kCpPolynomial, "C0", "", true,
     Element<&R::cpPoly, &Declare::CpSet::c, 0>},
    {29, EditorTab::HeatCapacity, kCpPolynomial, "C1", "", true,
     Element<&R::cpPoly, &Declare::CpSet::c, 1>},
    {30, EditorTab::HeatCapacity, kCpPolynomial, "C2", "", true,
     Element<&R::cpPoly, &Declare::CpSet::c, 2>},
    {31, EditorTab::HeatCapacity, kCpPolynomial, "C3", "", true,
     Element<&R::cpPoly, &Declare::CpSet::c, 3>},
    {32, EditorTab::HeatCapacity, kCpPolynomial, "C4", "", true,
     Element<&R::cpPoly, &Declare::CpSet::c, 4>},
    {33, EditorTab::HeatCapacity, kCpPolynomial, "T(low) /K", "K", true,
     Part<&R::cpPoly, &Declare::CpSet::TLo>},
    {34, EditorTab::HeatCapacity, kCpPolynomial, "T(high) /K", "K", true,
     Part<&R::cpPoly, &Declare::CpSet::THi>},
    {35, EditorTab::HeatCapacity, kCpSinh, "C0", "", true,
     Element<&R::cpSinh, &Declare::CpSet::c, 0>},
    {36, EditorTab::HeatCapacity, kCpSinh, "C1", "", true,
     Element<&R::cpSinh, &Declare::CpSet::c, 1>},
    {37, EditorTab::HeatCapacity, kCpSinh, "Abs(C2)", "", true,
     Element<&R::cpSinh, &Declare::CpSet::c, 2>},
    {38, EditorTab::HeatCapacity, kCpSinh, "C3", "", true,
     Element<&R::cpSinh, &Declare::CpSet::c, 3>},
    {39, EditorTab::HeatCapacity, kCpSinh, "C4", "", true,
     Element<&R::cpSinh, &Declare::CpSet::c, 4>},
    {40, EditorTab::HeatCapacity, kCpSinh, "T(low) /K", "K", true,
     Part<&R::cpSinh, &Declare::CpSet::TLo>},
    {41, EditorTab::HeatCapacity, kCpSinh, "T(high) /K", "K", true,
     Part<&R::cpSinh, &Declare::CpSet::THi>},
    {42, EditorTab::Vaporisation, kWatson, "delta(LV)h(ref) /(kJ/kmol)", "kJ/kmol", true,
     Plain<&R::WatsonH>},
    {43, EditorTab::Vaporisation, kWatson, "T(ref) /K", "K", true, Plain<&R::WatsonT>},
    {44, EditorTab::SingleValues, kCaloric, "delta(F)h /(kJ/kmol)", "kJ/kmol", true,
     Plain<&R::dfh>},
    {45, EditorTab::SingleValues, kCaloric, "delta(F)g /(kJ/kmol)", "kJ/kmol", true,
     Plain<&R::dfg>},
    {46, EditorTab::VapourPressure, kAugust, "A", "", false,
     Part<&R::AUG, &Declare::VPSetAugust::A>},
    {47, EditorTab::VapourPressure, kAugust, "B", "", false,
     Part<&R::AUG, &Declare::VPSetAugust::B>},
    {48, EditorTab::VapourPressure, kThompson, "A", "", false,
     Part<&R::THO, &Declare::VPSetAntoine::A>},
    {49, EditorTab::VapourPressure, kThompson, "B", "", false,
     Part<&R::THO, &Declare::VPSetAntoine::B>},
    {50, EditorTab::VapourPressure, kThompson, "C", "", false,
     Part<&R::THO, &Declare::VPSetAntoine::C>},
    {51, EditorTab::VapourPressure, kFrost, "A", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 0>},
    {52, EditorTab::VapourPressure, kFrost, "B", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 1>},
    {53, EditorTab::VapourPressure, kFrost, "C", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 2>},
    {54, EditorTab::VapourPressure, kFrost, "D", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 3>},
    {55, EditorTab::VapourPressure, kFrost, "E", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 4>},
    {56, EditorTab::VapourPressure, kFrost, "F", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 5>},
    {57, EditorTab::VapourPressure, kFrost, "G", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 6>},
    {58, EditorTab::VapourPressure, kFrost, "H", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 7>},
    {59, EditorTab::VapourPressure, kFrost, "I", "", true,
     Element<&R::FRO, &Declare::VPSetFrost::a, 8>},
    {60, EditorTab::VapourPressure, kFrost, "T(low) /K", "K", true,
     Part<&R::FRO, &Declare::VPSetFrost::TLo>},
    {61, EditorTab::VapourPressure, kFrost, "T(high) /K", "K", true,
     Part<&R::FRO, &Declare::VPSetFrost::THi>},
    {62, EditorTab::VapourPressure, kWagner, "A1", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 0>},
    {63, EditorTab::VapourPressure, kWagner, "A2", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 1>},
    {64, EditorTab::VapourPressure, kWagner, "A3", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 2>},
    {65, EditorTab::VapourPressure, kWagner, "n3", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 3>},
    {66, EditorTab::VapourPressure, kWagner, "A4", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 4>},
    {67, EditorTab::VapourPressure, kWagner, "n4", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 5>},
    {68, EditorTab::VapourPressure, kWagner, "A5", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 6>},
    {69, EditorTab::VapourPressure, kWagner, "n5", "", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 7>},
    {70, EditorTab::VapourPressure, kWagner, "T(cr) /K", "K", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 8>},
    {71, EditorTab::VapourPressure, kWagner, "p(cr) /kPa", "kPa", true,
     Element<&R::WAG, &Declare::VPSetWagner::a, 9>},
    {72, EditorTab::VapourPressure, kWagner, "T(low) /K", "K", true,
     Part<&R::WAG, &Declare::VPSetWagner::TLo>},
    {73, EditorTab::VapourPressure, kWagner, "T(high) /K", "K", true,
     Part<&R::WAG, &Declare::VPSetWagner::THi>},
    {74, EditorTab::Vaporisation, kVaporisation, "A", "", true, Item<&R::hLVPar, 0>},
    {75, EditorTab::Vaporisation, kVaporisation, "B", "", true, Item<&R::hLVPar, 1>},
    {76, EditorTab::Vaporisation, kVaporisation, "C", "", true, Item<&R::hLVPar, 2>},
    {77, EditorTab::Vaporisation, kVaporisation, "D", "", true, Item<&R::hLVPar, 3>},
    {78, EditorTab::Vaporisation, kVaporisation, "E", "", true, Item<&R::hLVPar, 4>},
    {79, EditorTab::Vaporisation, kVaporisation, "F", "", true, Item<&R::hLVPar, 5>},
    {80, EditorTab::Vaporisation, kVaporisation, "T(cr) /K", "K", true, Plain<&R::hLVTc>},
    {81, EditorTab::Vaporisation, kVaporisation, "T(low) /K", "K", true, Plain<&R::hLVTLo>},
    {82, EditorTab::Vaporisation, kVaporisation, "T(high) /K", "K", true, Plain<&R::hLVTHi>},
    {83, EditorTab::Head, kHead, "Name", "", true, Plain<&R::Name>},
    {84, EditorTab::Head, kHead, "Formula", "", true, Plain<&R::Formula>},
    {85, EditorTab::Head, kHead, "CAS-RN", "", true, Plain<&R::CASRN>},
    {86, EditorTab::VapourPressure, kVanDerWaals, "A", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 0>},
    {87, EditorTab::VapourPressure, kVanDerWaals, "B", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 1>},
    {88, EditorTab::VapourPressure, kVanDerWaals, "C", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 2>},
    {89, EditorTab::VapourPressure, kVanDerWaals, "D", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 3>},
    {90, EditorTab::VapourPressure, kVanDerWaals, "E", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 4>},
    {91, EditorTab::VapourPressure, kVanDerWaals, "F", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 5>},
    {92, EditorTab::VapourPressure, kVanDerWaals, "G", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 6>},
    {93, EditorTab::VapourPressure, kVanDerWaals, "H", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 7>},
    {94, EditorTab::VapourPressure, kVanDerWaals, "I", "", false,
     Element<&R::KFW, &Declare::VPSetFrost::a, 8>},
    {95, EditorTab::VapourPressure, kVanDerWaals, "T(low) /K", "K", false,
     Part<&R::KFW, &Declare::VPSetFrost::TLo>},
    {96, EditorTab::VapourPressure, kVanDerWaals, "T(high) /K", "K", false,
     Part<&R::KFW, &Declare::VPSetFrost::THi>},
    {97, EditorTab::VapourPressure, kRedlich, "A", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 0>},
    {98, EditorTab::VapourPressure, kRedlich, "B", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 1>},
    {99, EditorTab::VapourPressure, kRedlich, "C", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 2>},
    {100, EditorTab::VapourPressure, kRedlich, "D", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 3>},
    {101, EditorTab::VapourPressure, kRedlich, "E", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 4>},
    {102, EditorTab::VapourPressure, kRedlich, "F", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 5>},
    {103, EditorTab::VapourPressure, kRedlich, "G", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 6>},
    {104, EditorTab::VapourPressure, kRedlich, "H", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 7>},
    {105, EditorTab::VapourPressure, kRedlich, "I", "", false,
     Element<&R::KFR, &Declare::VPSetFrost::a, 8>},
    {106, EditorTab::VapourPressure, kRedlich, "T(low) /K", "K", false,
     Part<&R::KFR, &Declare::VPSetFrost::TLo>},
    {107, EditorTab::VapourPressure, kRedlich, "T(high) /K", "K", false,
     Part<&R::KFR, &Declare::VPSetFrost::THi>},
    {108, EditorTab::HeatCapacity, kCpLiquid, "C0", "", true,
     Element<&R::cpL, &Declare::CpSet::c, 0>},
    {109, EditorTab::HeatCapacity, kCpLiquid, "C1", "", true,
     Element<&R::cpL, &Declare::CpSet::c, 1>},
    {110, EditorTab::HeatCapacity, kCpLiquid, "C2", "", true,
     Element<&R::cpL, &Declare::CpSet::c, 2>},
    {111, EditorTab::HeatCapacity, kCpLiquid, "C3", "", true,
     Element<&R::cpL, &Declare::CpSet::c, 3>},
    {112, EditorTab::HeatCapacity, kCpLiquid, "C4", "", true,
     Element<&R::cpL, &Declare::CpSet::c, 4>},
    {113, EditorTab::HeatCapacity, kCpLiquid, "T(low) /K", "K", true,
     Part<&R::cpL, &Declare::CpSet::TLo>},
    {114, EditorTab::HeatCapacity, kCpLiquid, "T(high) /K", "K", true,
     Part<&R::cpL, &Declare::CpSet::THi>},
    {115, EditorTab::HeatCapacity, kCpSolid, "C0", "", true,
     Element<&R::cpS, &Declare::CpSet::c, 0>},
    {116, EditorTab::HeatCapacity, kCpSolid, "C1", "", true,
     Element<&R::cpS, &Declare::CpSet::c, 1>},
    {117, EditorTab::HeatCapacity, kCpSolid, "C2", "", true,
     Element<&R::cpS, &Declare::CpSet::c, 2>},
    {118, EditorTab::HeatCapacity, kCpSolid, "C3", "", true,
     Element<&R::cpS, &Declare::CpSet::c, 3>},
    {119, EditorTab::HeatCapacity, kCpSolid, "C4", "", true,
     Element<&R::cpS, &Declare::CpSet::c, 4>},
    {120, EditorTab::HeatCapacity, kCpSolid, "T(low) /K", "K", true,
     Part<&R::cpS, &Declare::CpSet::TLo>},
    {121, EditorTab::HeatCapacity, kCpSolid, "T(high) /K", "K", true,
     Part<&R::cpS, &Declare::CpSet::THi>},
    {122, EditorTab::SingleValues, kCaloric, "s(conv) /(kJ/(kmol K))", "kJ/(kmol K)", true,
     Plain<&R::sconv>},
}};

}  // namespace

std::string_view EditorTabCaption(EditorTab tab) {
    constexpr std::array<std::string_view, 6> captions{
        "", "Single Values", "Vapour Pressure", "L-Density", "Heat Capacity", "delta(LV)h"};
    return captions[static_cast<std::size_t>(tab)];
}

std::span<const EditorField, kEditorFields> EditorFieldTable() {
    return kTable;
}

}  // namespace LoadSaveData
