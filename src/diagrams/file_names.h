#pragma once

#include <string>

namespace quor::diagrams {

/// Position behind the last "/" or "\" of a name; 0 without one.
inline std::size_t behind_folder(const std::string& name) {
    const std::size_t last = name.find_last_of("/\\");
    return last == std::string::npos ? 0 : last + 1;
}

/// The folder of a name with its closing separator, empty when there is none.
inline std::string folder_of(const std::string& name) {
    return name.substr(0, behind_folder(name));
}

/// A name in a folder, unless it has one of its own; `extension` where it has none.
inline std::string target_path(const std::string& name, const std::string& folder,
                               const std::string& extension) {
    const std::size_t title = behind_folder(name);
    const std::string path = title > 0 ? name : folder + name;
    return name.find('.', title) == std::string::npos ? path + extension : path;
}

}  // namespace quor::diagrams
