#pragma once

#include <cstring>
#include <string>

namespace quor {

/// What an error number of the system means, in the language of the program, whatever that of the
/// desktop is: "No space left on device".
inline std::string system_reason(int error) {
    const char* const words = strerrordesc_np(error);
    return words == nullptr ? "error " + std::to_string(error) : words;
}

}  // namespace quor
