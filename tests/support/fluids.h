#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "legacy/declare.h"

using namespace quor;

/// Fluids for tests, without any file of the system: the propane record of
/// tests/data/reference_propane.json and the rows of data/substances.csv.
namespace fluids {

/// The propane record that the reference values belong to, with all correlated sets as given.
models::SubstanceRecord ReferencePropane();

/// Names of all rows of the table.
std::vector<std::string> AllNames();

/// A row of the table by English name as a record: 32-bit values, TLo and THi rounded, flags and
/// rules of loading applied; correlated vapour pressure sets are left empty.
models::SubstanceRecord Row(std::string_view name);

}  // namespace fluids
