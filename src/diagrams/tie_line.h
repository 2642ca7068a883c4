#pragma once

#include "legacy/declare.h"

namespace quor::diagrams {

/// Ends of the tie-line of a diagram in displayed units: at p/kPa for an isobaric section, else at
/// T/K. They do not exist at and above the critical point, and for a V-only EOS.
diagrams::TieLine tie_line_ends(std::int16_t DiagramType, std::int16_t sectionKind, double T,
                                double p);

/// True when an equilibrium exists at the parameter that the section holds.
bool has_tie_line(std::int16_t sectionKind, double T, double p);

}  // namespace quor::diagrams
