#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/result.h"
#include "report/result.h"

namespace quor::report {

/// Where and when a protocol is written.
struct ProtocolPlace {
    std::filesystem::path folder;           ///< for a file name without one
    std::string date;                       ///< dd.mm.yyyy
    char separator = ';';                   ///< of the cells
    std::function<std::string()> new_name;  ///< a name that no file has yet
};

/// The CSV protocol: rows of results, each with what it was made with. A new head begins where the
/// substance, the models, the units or the reference state change.
class Protocol {
  public:
    /// A result as 32-bit values.
    struct Row {
        Made made;
        std::array<float, 42> values{};
    };

    std::string file;       ///< the file that is written next
    std::vector<Row> rows;  ///< of that file
    bool pending = false;   ///< rows wait for being written at the end

    /// Adds a row. Fails for a value beyond 32 bits.
    Result<void> add(const Made& made, const ResultNumbers& values);
    /// Writes all rows when some are pending. The first time the file's name is taken exclusively:
    /// where a file of that name exists, another program's, a new name is taken, and so it is when
    /// another program has written to the file since. The reason of a failure names the file; no
    /// row is then lost.
    Result<void> write(const ProtocolPlace& place);
    /// What the file holds with all rows.
    std::string content(const ProtocolPlace& place) const;
    /// All rows were written to another file, which is the protocol's from now on.
    void written_to(const std::string& path);
    /// Starts a new file without rows.
    void begin(const std::string& name);

    std::filesystem::path path(const ProtocolPlace& place) const;
    /// True when the file is this program's own.
    bool is_own() const { return own_; }

  private:
    Result<void> take_name(const ProtocolPlace& place, const std::string& bytes);

    bool own_ = false;                                          ///< the file has been written here
    std::optional<std::filesystem::file_time_type> written_{};  ///< when that was
};

/// The file's lines.
std::vector<std::string> protocol_lines(const std::vector<Protocol::Row>& rows,
                                        const std::string& date, char separator);

/// The delimiters by the entries of `cmbSep`, and the entry of one.
inline constexpr const char* kSeparatorNames[] = {"semicolon", "comma", "Tab"};
inline constexpr char kSeparators[] = {';', ',', '\t'};
int separator_index(char separator);

}  // namespace quor::report
