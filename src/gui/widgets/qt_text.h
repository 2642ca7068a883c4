#pragma once

#include <QString>
#include <string_view>

namespace quor::gui {

/// A text of the core, which is UTF-8, for Qt.
inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace quor::gui
