#pragma once

#include <functional>
#include <optional>

class QLineEdit;

namespace quor::gui {

/// Copying all of a field that shows a rounded number copies the number itself, with as many
/// digits as it takes to read it back. `value` gives that number, or nothing while the field shows
/// something else; then, and for a part of the text, the text is copied as it stands.
void copyExactly(QLineEdit* field, std::function<std::optional<double>()> value);

}  // namespace quor::gui
