#pragma once

#include <string>

#include "chart/text_measure.h"
#include "diagrams/diagram_sheet.h"

/// The labels of a sheet: what each belongs to, and where it stands.
namespace quor::diagrams {

/// What a label of the chart belongs to; its index in the chart says it, in files as well.
enum class LabelKind : std::uint8_t { none, marker, criticalEx, criticalCalc, curve, text };

/// Markers by the index of their labels.
namespace marker_label {
inline constexpr int kFirstT = 1;  ///< T(cr), T(triple), T(LV) at p, T(LV) at normal pressure
inline constexpr int kFirstP = 1;  ///< p(cr), p(LV) at T, normal p
inline constexpr int kVolume = 5, kCovolume = 6;
}  // namespace marker_label

LabelKind kind_of(const chart::Label& label);
/// The index of the label of the curve at a place; -1 for any other label.
int curve_place_of(const chart::Label& label);
/// The index in the chart of the label of a curve, or of a critical point.
int label_index_of_curve(int place);
int label_index(LabelKind critical_point);

/// Labels of the curves, placed for a sheet of this size.
void place_labels(DiagramSheet& sheet, double width, double height,
                  const chart::MeasureText& measure);

/// Shows or hides the labels of all curves.
void show_curve_labels(DiagramSheet& sheet, bool shown);

/// Labels that still have the colour that their curve had in `before` take its present one.
void follow_colours(DiagramSheet& sheet, const chart::Chart2D& before);

/// A free text in the middle of the window.
void add_text(DiagramSheet& sheet, const std::string& text);

}  // namespace quor::diagrams
