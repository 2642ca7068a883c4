#include "tools/quorcalc/commands.h"

#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

std::span<const Command> Commands() {
    static const std::vector<Command> table = [] {
        std::vector<Command> all;
        for (const auto& part : {StateCommands(), PropertyCommands(), CalculationCommands(),
                                 CurveCommands(), SurfaceCommands(), EstimationCommands()})
            all.insert(all.end(), part.begin(), part.end());
        all.push_back({"run", "each line of a file is one call; one JSON object a line", {"FILE"}});
        return all;
    }();
    return table;
}

const Command* FindCommand(std::string_view name) {
    for (const Command& c : Commands())
        if (c.name == name) return &c;
    return nullptr;
}

}  // namespace quor::quorcalc
