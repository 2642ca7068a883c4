#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "common/paths.h"
#include "session/session.h"
#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

/// quorcalc as an object: a session, what its calls have in common, and what draws pictures.
class Program {
  public:
    /// Files are looked for in `places`. Without a drawer no picture can be made.
    explicit Program(const Places& places, PictureDrawer pictures = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// The whole program: words behind the program's name, exit code back. Results go to `out`,
    /// messages to `err`. Fails where the results cannot be written.
    int main(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
             std::ostream& err);

  private:
    struct Outcome {
        Json result;
        bool wrong_call = false;
    };
    /// The exit code as far as it does not depend on `out`.
    int answer(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
               std::ostream& err);
    /// Runs one parsed call from a fresh session; never throws. A calculation that cannot be done
    /// has status -1.
    Outcome execute(const Arguments& arguments);
    /// Everything that was told goes to standard error, a line each.
    void tell(const Json& result, std::ostream& err) const;
    Json call_of_line(const std::vector<std::string>& words);
    int run_file(const Arguments& arguments, std::istream& in, std::ostream& out,
                 std::ostream& err);

    session::Session session_;
    session::SessionState start_;  ///< of the session, where every call begins
    PictureDrawer pictures_;
    Parser parser_;
    Kept kept_;
    std::vector<std::string> messages_;  ///< of the core during one call
};

}  // namespace quor::quorcalc
