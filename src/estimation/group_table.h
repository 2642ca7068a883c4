#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quor::estimation {

inline constexpr int kGroups = 41;

/// An increment that was never published.
inline constexpr float kMissing = -1e30F;

/// The quantities that a group contributes to, in the order of a row of the table.
enum class Increment : std::uint8_t { Tc, pc, Vc, Tb, Tf, dfh, dfg, cpA, cpB, cpC, cpD, count };

/// One structural group of the Joback method.
struct Group {
    std::string_view name;
    std::string_view family;              ///< heading under which it stands
    std::array<std::uint8_t, 9> atoms{};  ///< C, H, O, N, S, F, Cl, Br, I
    std::array<float, static_cast<std::size_t>(Increment::count)> increment{};
};

/// All groups in the order of the view.
std::span<const Group, kGroups> all_groups();

/// Molar mass of a group in kg/kmol from its atoms.
float group_molar_mass(const Group& group);
/// Number of atoms of a group.
int group_atoms(const Group& group);

}  // namespace quor::estimation
