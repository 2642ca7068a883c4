#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/result.h"
#include "datafiles/record_fields.h"
#include "models/model_selection.h"

namespace quor::datafiles {

inline constexpr int kEditorFields = 123;  ///< fields of the substance editor, index 0 to 122

/// Tabs of the substance editor in their order; Head stands above them.
enum class EditorTab : std::uint8_t {
    Head,
    SingleValues,
    VapourPressure,
    LDensity,
    HeatCapacity,
    Vaporisation
};
std::string_view editor_tab_caption(EditorTab tab);

/// One field of the editor.
struct EditorField {
    int index = 0;  ///< its index
    EditorTab tab = EditorTab::Head;
    std::string_view frame;    ///< caption of its frame
    std::string_view caption;  ///< of the field itself, with its unit where there is one
    std::string_view unit;     ///< empty for numbers without a unit
    std::string_view name;     ///< of the record's field, as `find_field` reads it
    bool editable = true;

    bool is_text() const { return index >= 83 && index <= 85; }
};

/// All fields, ordered by their index.
std::span<const EditorField, kEditorFields> editor_field_table();
/// The place of a field in a record.
FieldPlace place_of(const EditorField& field);

/// The part of the data that a group contribution method estimates.
enum class GroupFrame : std::uint8_t { Critical, Formation, HeatCapacity };

/// The texts of all fields by their index (`index`).
using EditorTexts = std::array<std::string, kEditorFields>;

/// The data as a list for the printer: all fields by tab and frame.
std::string editor_report(const EditorTexts& texts);

/// A value as the editor shows it: "<>" for none, " 0" for the stored zero 1E-37; a positive number
/// has a blank in front. 32-bit values read back as the same value.
std::string editor_text(float value);
std::string editor_text(double value);

/// Texts of all fields of a record. The correlated sets are computed from its critical data and
/// boiling point; they stay empty where the critical data are missing.
EditorTexts show_record(const models::SubstanceRecord& substance);

/// The character that a field takes for a typed one ("," becomes "."), nothing for one that it
/// swallows. Names take every character.
std::optional<char> filter_key(const EditorField& field, char typed);

/// True for what a field can be read from: a name, nothing ("<>"), or one number.
bool holds_value(const EditorField& field, std::string_view typed);

/// Values of a record that follow from others: the compact formula, |C2| of the sinh/cosh function,
/// the cp flags, the critical volume and the entropy of formation.
void form_derived_values(models::SubstanceRecord& substance);

/// What an application of the editor to a record did beside reading the fields.
struct EditorApplied {
    bool watson_dropped = false;  ///< the Watson method lost its reference point
};
/// Reads the fields into a record and completes it; texts take their shown form. A field that
/// cannot be read leaves its value.
EditorApplied apply_editor(EditorTexts& texts, models::SubstanceRecord& substance,
                           models::ModelSelection& models);
/// A correlation that the editor computes from its fields without touching the record.
enum class EditorCorrelation : std::uint8_t { August, Antoine, KFW, KFR };
/// Writes the fields of the correlation; they stay as they are without critical data.
void recalculate(EditorCorrelation correlation, EditorTexts& texts);

/// Text of the triple point pressure from a vapour pressure equation at the triple point; refused
/// when the equation has no value there.
Result<std::string> triple_point_pressure(const models::SubstanceRecord& substance,
                                          models::VapourPressureEquation equation);

inline constexpr std::string_view kEditorNote = " Note: Any changes are lost without \"Apply\" ";
inline constexpr std::string_view kEditorLegend = "<> = empty";

}  // namespace quor::datafiles
