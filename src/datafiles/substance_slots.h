#pragma once

#include <string>

#include "datafiles/substance_file.h"
#include "models/substance_record.h"

namespace quor::datafiles {

/// What a database record becomes in memory.
struct LoadedSubstance {
    models::SubstanceRecord record;
    std::string vapour_pressure =
        "000";                      ///< the best vapour pressure set: WAG, FRO, ALP, AHP or "000"
    bool no_critical_data = false;  ///< Tcrit or pcrit is missing
};

/// Fills a record from the slots of a database record, with all rules of reading: rounding of M,
/// Tcrit and pcrit, fallbacks of Ttriple and Tboil, choice of the Watson point, AUG constants and
/// the flags of the cp functions. `english` chooses the name field. `dfs` becomes
/// `former_entropy` where `dfh` or `dfg` is missing. The correlated sets KFW, KFR and THO come out
/// empty. A slot that holds no finite number, or a bound beyond 16 bits, counts as absent.
LoadedSubstance record_from_slots(const SubstanceFileRecord& file, bool english,
                                  float former_entropy = 0);

/// Makes C2 of the sinh/cosh function absolute, and not zero where C0 is there.
void mend_sinh(models::CpSet& set);
/// Sets `dfs` from `dfh` and `dfg`, or to the former value where one of them is missing.
void form_entropy(models::SubstanceRecord& record, float former);
/// Sets the four flags of the cp functions by the rules of reading.
void form_cp_flags(models::SubstanceRecord& record);
/// The code of the best vapour pressure set: WAG goes before FRO, ALP and AHP; "000" without any.
std::string best_vapour_pressure_code(const models::SubstanceRecord& record);

/// Puts a substance into a file record: formula, name (in the field of the language), CASRN,
/// number 1, and the slots that a private file takes over. All else stays as it is.
void slots_from_record(const models::SubstanceRecord& record, bool english,
                       SubstanceFileRecord& file);

}  // namespace quor::datafiles
