#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "models/fluid.h"

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

/// The same with all correlated vapour pressure sets.
models::SubstanceRecord correlated_row(std::string_view name);

/// A choice of models for a substance: the equation, the correlated vapour pressure equation of
/// Redlich/Kwong, the sinh/cosh form of cp where there is one, given Ji/Torvik parameters and
/// manual virial coefficients of the size of a fluid's own.
models::ModelSelection selection(const models::SubstanceRecord& substance, models::Eos eos);

/// The fluid of a record and a choice; throws where there is none.
models::Fluid fluid(const models::SubstanceRecord& substance, const models::ModelSelection& models);
/// The fluid of a record, or of a row of the table with all correlated sets, with `selection`.
models::Fluid fluid(const models::SubstanceRecord& substance, models::Eos eos);
models::Fluid fluid(std::string_view name, models::Eos eos);

/// The fluid after `edit(substance, models)`, its constants made anew.
template <class Edit>
models::Fluid changed(const models::Fluid& fluid_, Edit edit) {
    models::SubstanceRecord substance = fluid_.substance();
    models::ModelSelection models = fluid_.models();
    edit(substance, models);
    return fluid(substance, models);
}

}  // namespace fluids
