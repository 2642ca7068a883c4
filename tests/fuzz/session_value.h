#pragma once

#include <filesystem>

#include "common/dialogs.h"
#include "session/session.h"

namespace fuzz {

/// True when two states of a session are the same in every field. A new field of the state does
/// not build before it is compared as well.
bool same(const quor::session::SessionState& a, const quor::session::SessionState& b);

/// The small database of the targets, made once: methane, and propane with its number, CASRN and a
/// vapour pressure set.
const std::filesystem::path& database_file();

/// A session with this database open and propane chosen. Its user gives each question its default
/// answer and has nothing else to say.
class PropaneSession {
  public:
    PropaneSession();

    quor::session::Session session;
};

}  // namespace fuzz
