#include "datafiles/substance_editor.h"

#include <cmath>
#include <cstdio>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"

namespace LoadSaveData {

namespace {

using constants::kPresent;
using Declare::CpSet;
using Declare::SubstanceRecord;

constexpr const char* kEmpty = "<>";
constexpr const char* kZero = " 0";
constexpr const char* kStoredZeroText = "1E-37";
/// A real zero as the files hold it; 0 itself means that there is no value.
constexpr double kStoredZero = 1e-37;
constexpr double kLargestStoredZero = 2e-37;

constexpr int kTboil = 1;
constexpr int kTcrit = 4;
constexpr int kPcrit = 5;
constexpr int kCpSinhC2 = 37;
constexpr std::size_t kCasrnLength = 12;

/// The first field of a correlated set and its number of fields.
struct FieldBlock {
    int first, count;
};
constexpr FieldBlock kAugustBlock{46, 2};
constexpr FieldBlock kThompsonBlock{48, 3};
constexpr FieldBlock kVanDerWaalsBlock{86, 11};
constexpr FieldBlock kRedlichBlock{97, 11};

constexpr std::int16_t kIndexKFW = 6;
constexpr std::int16_t kIndexKFR = 7;
constexpr std::int16_t kIndexTHO = 8;

const EditorField& Field(int DD) {
    return EditorFieldTable()[static_cast<std::size_t>(DD)];
}

/// Numbers carry a blank where a minus sign would stand.
std::string Signed(std::string number) {
    return number.front() == '-' ? number : " " + number;
}

std::string SignedText(double value, std::string (*general)(double)) {
    if (value == 0) return kEmpty;
    if (std::fabs(value) < kLargestStoredZero) return kZero;
    return Signed(general(value));
}

/// The shortest of 7, 8 or 9 digits that reads back as the same 32-bit value.
std::string SingleDigits(double value) {
    constexpr int kAlwaysEnough = 9;
    char digits[32];
    for (int count = 7; count <= kAlwaysEnough; ++count) {
        std::snprintf(digits, sizeof digits, "%.*G", count, value);
        if (static_cast<float>(numbers::Val(digits)) == static_cast<float>(value)) break;
    }
    return digits;
}

std::string FieldText(const EditorField& field, SubstanceRecord& s) {
    return std::visit(
        [](auto* value) -> std::string {
            using Value = std::remove_pointer_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::string>)
                return text::TrimRight(*value);
            else if constexpr (std::is_same_v<Value, std::int16_t>)
                return EditorText(static_cast<float>(*value));
            else
                return EditorText(*value);
        },
        field.in(s));
}

void ShowBlock(const FieldBlock& block, SubstanceRecord& s, EditorTexts& texts) {
    for (int i = block.first; i < block.first + block.count; ++i)
        texts[static_cast<std::size_t>(i)] = FieldText(Field(i), s);
}

void ClearBlock(const FieldBlock& block, EditorTexts& texts) {
    for (int i = block.first; i < block.first + block.count; ++i)
        texts[static_cast<std::size_t>(i)].clear();
}

bool HasCriticalData(const SubstanceRecord& s) {
    return s.Tcrit >= kPresent && s.pcrit >= kPresent;
}

void CorrelateSets(SubstanceRecord& s) {
    for (const std::int16_t index : {kIndexKFW, kIndexKFR, kIndexTHO})
        Calc::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

void ShowCorrelatedSets(SubstanceRecord& s, EditorTexts& texts) {
    for (const FieldBlock& block : {kThompsonBlock, kVanDerWaalsBlock, kRedlichBlock})
        ShowBlock(block, s, texts);
}

/// The user's zeros become 1E-37, empty fields "<>".
void NormaliseTexts(EditorTexts& texts) {
    for (const EditorField& field : EditorFieldTable()) {
        std::string& content = texts[static_cast<std::size_t>(field.DD)];
        const std::string trimmed = text::Trim(content);
        if (trimmed.empty()) {
            content = kEmpty;
        } else if (!field.IsText() && trimmed != kEmpty && numbers::ValInput(trimmed) == 0) {
            content = kStoredZeroText;
        }
    }
}

/// Reads one field. A text that still shows the value leaves it, so that no digit is lost.
void ReadField(const EditorField& field, const std::string& content, SubstanceRecord& s) {
    if (content == FieldText(field, s)) return;
    const std::string trimmed = text::Trim(content);
    const double number = trimmed == kEmpty ? 0 : numbers::ValInput(trimmed);
    std::visit(
        [&](auto* value) {
            using Value = std::remove_pointer_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::string>)
                *value = trimmed == kEmpty ? "" : trimmed;
            else if constexpr (std::is_same_v<Value, std::int16_t>)
                *value = numbers::ToInt16(number);
            else if constexpr (std::is_same_v<Value, float>)
                *value = numbers::ToSingle(number);
            else
                *value = number;
        },
        field.in(s));
}

bool HasIdealGasCp(const CpSet& set) {
    return std::fabs(static_cast<double>(set.TLo) * static_cast<double>(set.c[0]) *
                     static_cast<double>(set.THi)) > kPresent;
}

bool HasCondensedCp(const CpSet& set) {
    const bool coefficients = std::fabs(static_cast<double>(set.c[0])) > kPresent ||
                              std::fabs(static_cast<double>(set.c[1])) > kPresent;
    return coefficients && set.TLo > 0 && set.THi > 0;
}

/// The measured equations that a substance without an active one is searched for.
void ChooseEquation(const SubstanceRecord& s, Declare::ModelSelection& models) {
    if (models.VPCode != "000") return;
    if (s.AHP.TLo > 0) models.VPCode = "AHP";
    if (s.ALP.TLo > 0) models.VPCode = "ALP";
    models.VPModel = Calc::VPIndex(models.VPCode);
}

}  // namespace

std::string EditorText(float value) {
    return EditorText(static_cast<double>(value));
}

std::string EditorText(double value) {
    const bool single = static_cast<double>(static_cast<float>(value)) == value;
    return SignedText(
        value, single ? SingleDigits : +[](double v) { return numbers::GeneralPoint(v); });
}

EditorTexts ShowRecord(const SubstanceRecord& substance) {
    SubstanceRecord s = substance;
    if (HasCriticalData(s)) CorrelateSets(s);
    EditorTexts texts;
    for (const EditorField& field : EditorFieldTable())
        texts[static_cast<std::size_t>(field.DD)] = FieldText(field, s);
    if (!HasCriticalData(s))
        for (const FieldBlock& block : {kThompsonBlock, kVanDerWaalsBlock, kRedlichBlock})
            ClearBlock(block, texts);
    return texts;
}

std::optional<char> FilterKey(const EditorField& field, char typed) {
    constexpr std::string_view accepted = "0123456789Ee-.\r\n\b\x7f";
    if (field.IsText()) return typed;
    if (typed == ',') return '.';
    return accepted.find(typed) == std::string_view::npos ? std::nullopt : std::optional(typed);
}

void FormCpFlags(SubstanceRecord& s) {
    constexpr float kLeastC2 = 0.1F;
    float& C2 = s.cpSinh.c[2];
    C2 = std::fabs(C2);
    // C2 stands in a denominator.
    if (std::fabs(static_cast<double>(s.cpSinh.c[0])) > kPresent &&
        static_cast<double>(C2) < kPresent)
        C2 = kLeastC2;
    s.hasCpPoly = HasIdealGasCp(s.cpPoly);
    s.hasCpSinh = HasIdealGasCp(s.cpSinh);
    s.hasCpL = HasCondensedCp(s.cpL);
    s.hasCpS = HasCondensedCp(s.cpS);
}

void FormDerivedValues(SubstanceRecord& s) {
    constexpr double kReferenceT = 298.15;  // K, of the quantities of formation
    FormCpFlags(s);
    s.FormulaCompact = text::RemoveBlanks(s.Formula);
    s.vcritExp = s.rhocrit > kPresent ? static_cast<double>(s.M) / s.rhocrit : 0;
    const double dfh = static_cast<double>(s.dfh);
    const double dfg = static_cast<double>(s.dfg);
    if (std::fabs(dfh * dfg) > kPresent) s.dfs = static_cast<float>((dfh - dfg) / kReferenceT);
}

EditorApplied apply_editor(EditorTexts& texts, SubstanceRecord& s,
                           Declare::ModelSelection& models) {
    EditorApplied applied;
    NormaliseTexts(texts);
    for (const EditorField& field : EditorFieldTable()) {
        if (!field.editable) continue;
        try {
            ReadField(field, texts[static_cast<std::size_t>(field.DD)], s);
        } catch (const faults::Fault&) {
            texts[static_cast<std::size_t>(field.DD)] = FieldText(field, s);
        }
    }
    s.CASRN = text::PadRight(s.CASRN, kCasrnLength);
    FormDerivedValues(s);
    ChooseEquation(s, models);

    if (!(static_cast<double>(s.Tboil) > kPresent) && models.VPCode != "000") {
        const Calc::BoilingTemperatureResult boiling =
            Calc::boiling_temperature(s, constants::kNormalPressure, models.VPCode);
        if (boiling.status == kSuccess) s.Tboil = static_cast<float>(boiling.T);
    }
    if (std::fabs(static_cast<double>(s.Tboil) * s.Tcrit * s.pcrit) > kPresent)
        Calc::correlate_august(s);
    if (std::fabs(static_cast<double>(s.WatsonT) * static_cast<double>(s.WatsonH)) < kPresent &&
        models.HLVModel == 4) {
        models.HLVModel = 2;
        applied.watsonDropped = true;
    }
    if (HasCriticalData(s)) {
        CorrelateSets(s);
        ShowCorrelatedSets(s, texts);
    }
    ShowBlock(kAugustBlock, s, texts);
    for (std::string& content : texts)
        if (content == kStoredZeroText) content = kZero;
    for (const int computed : {kTboil, kCpSinhC2})
        if (numbers::ValInput(texts[static_cast<std::size_t>(computed)]) !=
            numbers::Val(FieldText(Field(computed), s)))
            texts[static_cast<std::size_t>(computed)] = FieldText(Field(computed), s);
    return applied;
}

void ApplyEditor(EditorTexts& texts) {
    constexpr std::int16_t kManualVirial = 10;  // its coefficients were typed in and stay
    Declare::ModelSelection& models = Declare::models;
    if (apply_editor(texts, Declare::substance, models).watsonDropped) dialogs::Beep();
    if (HasCriticalData(Declare::substance) && models.EOSModel >= 0 &&
        models.EOSModel != kManualVirial)
        Calc::CalcEOSParameters(models.EOSModel);
    Module2::RefreshUnits();
    Declare::session.ResultsOutdated = true;
}

void Recalculate(EditorCorrelation correlation, EditorTexts& texts) {
    const auto number = [&](int DD) {
        const std::string content = text::Trim(texts[static_cast<std::size_t>(DD)]);
        return content == kEmpty ? 0.0 : numbers::ValInput(content);
    };
    SubstanceRecord s;
    s.Tcrit = number(kTcrit);
    s.pcrit = number(kPcrit);
    s.Tboil = static_cast<float>(number(kTboil));
    if (!HasCriticalData(s)) return;
    const auto correlate = [&](std::int16_t index, const FieldBlock& block) {
        Calc::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
        ShowBlock(block, s, texts);
    };
    switch (correlation) {
        case EditorCorrelation::August:
            Calc::correlate_august(s);
            ShowBlock(kAugustBlock, s, texts);
            break;
        case EditorCorrelation::Antoine:
            correlate(kIndexTHO, kThompsonBlock);
            break;
        case EditorCorrelation::KFW:
            correlate(kIndexKFW, kVanDerWaalsBlock);
            break;
        case EditorCorrelation::KFR:
            correlate(kIndexKFR, kRedlichBlock);
            break;
    }
}

std::optional<std::string> TriplePointPressure(bool fromEquation) {
    const SubstanceRecord& s = Declare::substance;
    if (!fromEquation) return EditorText(s.ptriple);
    const Calc::VapourPressureResult result =
        Calc::vapour_pressure(s, static_cast<double>(s.Ttriple), Declare::models.VPCode);
    if (result.status != kSuccess) {
        dialogs::Tell("Error while calculating vapour pressure", "Execution not possible",
                      dialogs::Icon::Stop);
        return std::nullopt;
    }
    return EditorText(static_cast<float>(result.p));
}

bool MayCloseEditor(const EditorTexts& shown, const EditorTexts& now) {
    if (shown == now) return true;
    return dialogs::Ask("Your changes are lost here (use \"Apply\")\n\nClose nevertheless?",
                        "WARNING", dialogs::Icon::Exclamation, false);
}

std::string ActiveEquationCaption() {
    return "actual vapour-pressure equation:" + std::string(Calc::VPName(Declare::models.VPModel));
}

std::string DatabaseCaption() {
    return "Database loaded:  " + text::ToUpper(Module2::FileTitle(Declare::session.DatabaseFile));
}

}  // namespace LoadSaveData
