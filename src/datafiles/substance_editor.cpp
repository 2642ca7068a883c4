#include "datafiles/substance_editor.h"

#include <cmath>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/substance_slots.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/commands.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

using constants::kPresent;
using models::SubstanceRecord;

constexpr const char* kEmpty = "<>";
constexpr const char* kZero = " 0";
constexpr const char* kStoredZeroText = "1E-37";
/// Up to this a value is the real zero of the files, 1E-37; 0 itself means that there is no value.
constexpr double kLargestStoredZero = 2e-37;

constexpr int kTboil = 1;
constexpr int kTcrit = 4;
constexpr int kPcrit = 5;
constexpr int kCpSinhC2 = 37;

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

template <class Real>
std::string ShownNumber(Real value) {
    if (value == 0) return kEmpty;
    if (std::fabs(static_cast<double>(value)) < kLargestStoredZero) return kZero;
    const std::string general = numbers::GeneralPoint(value);
    const bool whole = static_cast<Real>(numbers::Val(general)) == value;
    return Signed(whole ? general : Exact(value));
}

/// A value of the record as the editor shows it.
struct Shown {
    std::string operator()(float value) const { return EditorText(value); }
    std::string operator()(double value) const { return EditorText(value); }
    std::string operator()(std::int16_t value) const {
        return EditorText(static_cast<float>(value));
    }
    std::string operator()(bool) const { return {}; }
    std::string operator()(const std::string& value) const { return text::TrimRight(value); }
};

std::string ShownText(const EditorField& field, const SubstanceRecord& s) {
    return std::visit(Shown{}, ValueOf(s, PlaceOf(field)));
}

void ShowBlock(const FieldBlock& block, const SubstanceRecord& s, EditorTexts& texts) {
    for (int i = block.first; i < block.first + block.count; ++i)
        texts[static_cast<std::size_t>(i)] = ShownText(Field(i), s);
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
        models::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

void ShowCorrelatedSets(const SubstanceRecord& s, EditorTexts& texts) {
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

/// Stores the text of a field, empty for none; throws `faults::Fault` beyond the field's range.
struct Read {
    std::string content;

    double Number() const { return numbers::ValInput(content); }
    void operator()(float* field) const { *field = numbers::ToSingle(Number()); }
    void operator()(double* field) const { *field = CellNumberInput(content); }
    void operator()(std::int16_t* field) const { *field = numbers::ToInt16(Number()); }
    void operator()(bool*) const {}
    void operator()(std::string* field) const { *field = content; }
};

/// Reads one field. A text that still shows the value leaves it, so that no digit is lost.
void ReadField(const EditorField& field, const std::string& content, SubstanceRecord& s) {
    if (content == ShownText(field, s)) return;
    const std::string trimmed = text::Trim(content);
    std::visit(Read{trimmed == kEmpty ? "" : trimmed}, Locate(s, PlaceOf(field)));
}

/// The measured equations that a substance without an active one is searched for.
void ChooseEquation(const SubstanceRecord& s, models::ModelSelection& models) {
    if (models.VPCode != "000") return;
    if (s.AHP.TLo > 0) models.VPCode = "AHP";
    if (s.ALP.TLo > 0) models.VPCode = "ALP";
    models.VPModel = models::VPIndex(models.VPCode);
}

}  // namespace

std::string EditorText(float value) {
    return ShownNumber(value);
}

std::string EditorText(double value) {
    const float single = SingleOrZero(value);
    return static_cast<double>(single) == value ? ShownNumber(single) : ShownNumber(value);
}

EditorTexts ShowRecord(const SubstanceRecord& substance) {
    SubstanceRecord s = substance;
    if (HasCriticalData(s)) CorrelateSets(s);
    EditorTexts texts;
    for (const EditorField& field : EditorFieldTable())
        texts[static_cast<std::size_t>(field.DD)] = ShownText(field, s);
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

void FormDerivedValues(SubstanceRecord& s) {
    s.FormulaCompact = text::RemoveBlanks(s.Formula);
    s.vcritExp = s.rhocrit > kPresent ? static_cast<double>(s.M) / s.rhocrit : 0;
    mend_sinh(s.cpSinh);
    form_cp_flags(s);
    form_entropy(s, s.dfs);
}

EditorApplied apply_editor(EditorTexts& texts, SubstanceRecord& s, models::ModelSelection& models) {
    EditorApplied applied;
    NormaliseTexts(texts);
    for (const EditorField& field : EditorFieldTable()) {
        if (!field.editable) continue;
        try {
            ReadField(field, texts[static_cast<std::size_t>(field.DD)], s);
        } catch (const faults::Fault&) {
            texts[static_cast<std::size_t>(field.DD)] = ShownText(field, s);
        }
    }
    s.CASRN = text::PadRight(s.CASRN, kCasrnLength);
    FormDerivedValues(s);
    ChooseEquation(s, models);

    if (!(static_cast<double>(s.Tboil) > kPresent) && models.VPCode != "000") {
        const models::BoilingTemperatureResult boiling =
            models::boiling_temperature(s, constants::kNormalPressure, models.VPCode);
        if (boiling.status == kSuccess) s.Tboil = static_cast<float>(boiling.T);
    }
    if (std::fabs(static_cast<double>(s.Tboil) * s.Tcrit * s.pcrit) > kPresent)
        models::correlate_august(s);
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
            numbers::Val(ShownText(Field(computed), s)))
            texts[static_cast<std::size_t>(computed)] = ShownText(Field(computed), s);
    return applied;
}

void ApplyEditor(EditorTexts& texts) {
    constexpr std::int16_t kManualVirial = 10;  // its coefficients were typed in and stay
    models::ModelSelection& models = legacy::the_models;
    if (apply_editor(texts, legacy::the_substance, models).watsonDropped) dialogs::Beep();
    if (HasCriticalData(legacy::the_substance) && models.EOSModel >= 0 &&
        models.EOSModel != kManualVirial)
        models::CalcEOSParameters(models.EOSModel);
    if (HasCriticalData(legacy::the_substance) && legacy::the_session.CurrentSubstance > 0 &&
        !legacy::the_session.SubstanceSet) {
        legacy::the_session.SubstanceSet = true;
        session::SetCommands({session::Command::mnuModel}, true);
    }
    session::RefreshUnits();
    legacy::the_session.ResultsOutdated = true;
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
        models::correlate_vapour_pressure(s, index, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
        ShowBlock(block, s, texts);
    };
    switch (correlation) {
        case EditorCorrelation::August:
            models::correlate_august(s);
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
    const SubstanceRecord& s = legacy::the_substance;
    if (!fromEquation) return EditorText(s.ptriple);
    const models::VapourPressureResult result =
        models::vapour_pressure(s, static_cast<double>(s.Ttriple), legacy::the_models.VPCode);
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
    return "actual vapour-pressure equation: " +
           text::Trim(models::VPName(legacy::the_models.VPModel));
}

std::string DatabaseCaption() {
    return "Database loaded:  " +
           text::ToUpper(session::FileTitle(legacy::the_session.DatabaseFile));
}

std::string EditorReport(const EditorTexts& texts) {
    constexpr std::size_t kCaption = 34, kValue = 20;
    std::string report;
    EditorTab tab = EditorTab::Head;
    std::string_view frame;
    for (const EditorField& field : EditorFieldTable()) {
        if (field.tab != tab) report += "\n" + text::Trim(EditorTabCaption(field.tab)) + "\n";
        if (field.tab != tab || field.frame != frame)
            if (!field.frame.empty()) report += "  " + text::Trim(field.frame) + "\n";
        tab = field.tab;
        frame = field.frame;
        std::string line =
            "    " + text::PadRight(text::Trim(field.caption), kCaption) +
            text::PadLeft(text::Trim(texts[static_cast<std::size_t>(field.DD)]), kValue);
        if (!field.unit.empty()) line += " " + text::Trim(field.unit);
        report += line + "\n";
    }
    return report;
}

}  // namespace quor::datafiles
