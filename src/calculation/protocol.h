#pragma once

#include <string>

namespace quor::calculation {

/// `cmdProtokoll`: adds the present `Fu` to the protocol store as a column.
void add_to_protocol();

/// Writes the store to the protocol file when columns are pending. False, after a message, when
/// that fails; nothing of the store is then lost.
bool write_protocol();

/// `cmdOpenNew`: writes what is pending, copies the file to the clipboard as a table with tabs, and
/// takes a new protocol file. False, after a message, when the pending columns could not be
/// written; all stays as it was.
bool open_new_protocol();

/// The file that the next protocol is written to, for `lblProtText2`.
std::string protocol_file_title();

/// At the program's end: pending columns are written, a protocol file of length 0 is deleted.
void close_protocol();

/// `cmbSep`: the delimiter of an entry, 0 semicolon, 1 comma, 2 tab.
void choose_separator(int index);

}  // namespace quor::calculation
