#include "models/model_grid.h"

#include "models/model_codes.h"
#include "support/fluids.h"

namespace grid {

void ForAll(std::span<const models::Eos> equations,
            const std::function<void(const models::Fluid&, const std::string&)>& test) {
    for (const std::string& name : fluids::AllNames()) {
        const models::SubstanceRecord substance = fluids::correlated_row(name);
        for (const models::Eos eos : equations)
            test(fluids::fluid(substance, eos),
                 name + ", model " + std::to_string(models::code_of(eos)));
    }
}

}  // namespace grid
