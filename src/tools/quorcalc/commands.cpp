#include "tools/quorcalc/commands.h"

#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

std::span<const Command> commands() {
    static const std::vector<Command> table = [] {
        std::vector<Command> all;
        for (const auto& part :
             {state_commands(), flash_commands(), property_commands(), calculation_commands(),
              curve_commands(), chart_commands(), surface_commands(), estimation_commands()})
            all.insert(all.end(), part.begin(), part.end());
        all.push_back({"run", "each line of a file is one call; one JSON object a line", {"FILE"}});
        return all;
    }();
    return table;
}

const Command* find_command(std::string_view name) {
    for (const Command& c : commands())
        if (c.name == name) return &c;
    return nullptr;
}

}  // namespace quor::quorcalc
