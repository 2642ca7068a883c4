#pragma once

#include <string>

#include "diagrams/diagram_sheet.h"

/// Taking back what was done on a sheet, and doing it again.
namespace quor::diagrams {

/// Keeps the present content as what the next undo brings back.
void remember(DiagramSheet& sheet, const std::string& step);
/// The content as it is now.
SheetContent content_of(const DiagramSheet& sheet);
/// True when more than the window has changed since.
bool differs(const SheetContent& before, const DiagramSheet& sheet);
/// Keeps the content before a change of texts and styles that was made on the chart itself, unless
/// nothing but the window has changed. Further changes of the same `step` belong to the first.
void remember_design(DiagramSheet& sheet, const SheetContent& before, const std::string& step);
/// Takes the last step back, or makes it again; false when there is none.
bool undo(DiagramSheet& sheet);
bool redo(DiagramSheet& sheet);

}  // namespace quor::diagrams
