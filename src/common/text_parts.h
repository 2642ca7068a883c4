#pragma once

#include <optional>
#include <string_view>

/// Parts of a text one after the other, seen in place: a file of many megabytes is read without a
/// copy of each of its lines and cells.
namespace quor::text {

/// Lines with CR LF, LF or CR ends; a last line end gives no further line.
class LineCursor {
  public:
    explicit LineCursor(std::string_view text) : rest_(text) {}

    /// The next line without its end; nothing behind the last one.
    std::optional<std::string_view> next() {
        if (rest_.empty()) return std::nullopt;
        const std::size_t end = rest_.find_first_of("\r\n");
        const std::string_view line = rest_.substr(0, end);
        if (end == std::string_view::npos) {
            rest_ = {};
        } else {
            const bool pair = rest_.substr(end, 2) == "\r\n";
            rest_.remove_prefix(end + (pair ? 2 : 1));
        }
        return line;
    }
    /// Bytes behind the last line.
    std::size_t left() const { return rest_.size(); }

  private:
    std::string_view rest_;
};

/// Parts between separators; an empty text has one empty part.
class CellCursor {
  public:
    CellCursor(std::string_view line, char separator) : rest_(line), separator_(separator) {}

    /// The next part; nothing behind the last one.
    std::optional<std::string_view> next() {
        if (!more_) return std::nullopt;
        const std::size_t end = rest_.find(separator_);
        const std::string_view cell = rest_.substr(0, end);
        more_ = end != std::string_view::npos;
        if (more_) rest_.remove_prefix(end + 1);
        return cell;
    }

  private:
    std::string_view rest_;
    char separator_;
    bool more_ = true;
};

}  // namespace quor::text
