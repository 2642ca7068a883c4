#pragma once

#include "diagrams/diagram_sheet.h"

/// Deleting what is on a sheet, and whether there is something of a kind. Each deletion is a step
/// that can be taken back. Numbers count from 1 as the menus do, 0 means all.
namespace quor::diagrams {

void delete_curve(DiagramSheet& sheet, int number);
void delete_point_set(DiagramSheet& sheet, int number);
/// Everything but texts of the axes, header and footer.
void delete_total(DiagramSheet& sheet);
void delete_reference_lines(DiagramSheet& sheet);
void delete_marker_labels(DiagramSheet& sheet);
void delete_critical_point(DiagramSheet& sheet, bool experimental);
void delete_curve_labels(DiagramSheet& sheet);
void delete_texts(DiagramSheet& sheet);
void delete_legend(DiagramSheet& sheet);
/// Deletes a point of a curve that shows single points, after a question.
bool delete_single_point(DiagramSheet& sheet, int place, int point);

bool has_reference_lines(const DiagramSheet& sheet);
bool has_marker_labels(const DiagramSheet& sheet);
bool has_critical_point(const DiagramSheet& sheet, bool experimental);
bool has_curve_labels(const DiagramSheet& sheet);
bool has_texts(const DiagramSheet& sheet);
bool has_anything(const DiagramSheet& sheet);

}  // namespace quor::diagrams
