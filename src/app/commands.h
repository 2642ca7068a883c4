#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quor::app {

/// What the rows of the menus and the buttons of the tool bar run, by the action id that stands in
/// the row. A row without a command stays disabled.
class Commands {
  public:
    using Command = std::function<void()>;

    /// In place of an earlier command of that id.
    void add(std::string_view id, Command command);
    bool has(std::string_view id) const;
    /// Runs the command; false when there is none.
    bool run(std::string_view id) const;

  private:
    std::map<std::string, Command, std::less<>> all_;
};

}  // namespace quor::app
