#include "app/open_file.h"

#include <array>
#include <filesystem>
#include <string_view>

#include "common/dialogs.h"
#include "common/text.h"
#include "gui/data/xy_editor.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/widgets/settings.h"
#include "session/measured_data_session.h"

namespace quor::app {

namespace open_file {

namespace {

/// What opening a file works with.
struct Place {
    gui::Desk& desk;
    Commands& commands;
};

/// Answers the next question for a file with a name.
class OneAnswer {
  public:
    explicit OneAnswer(std::string file) : before_(dialogs::current().file) {
        dialogs::current().file = [this, file = std::move(file)](const dialogs::FileChoice& c) {
            if (given_) return before_(c);
            given_ = true;
            return std::optional<std::string>(file);
        };
    }
    ~OneAnswer() { dialogs::current().file = before_; }
    OneAnswer(const OneAnswer&) = delete;
    OneAnswer& operator=(const OneAnswer&) = delete;

  private:
    std::function<std::optional<std::string>(const dialogs::FileChoice&)> before_;
    bool given_ = false;
};

void openDatabase(const Place& place, const std::string& file) {
    const OneAnswer answer(file);
    place.commands.run("mnuData_OpenBank");
}

void openProject(const Place& place, const std::string& file) {
    const OneAnswer answer(file);
    place.commands.run("mnuData_LoadProject");
}

void openData(const Place& place, const std::string& file) {
    session::Session& session = place.desk.session();
    if (session::may_leave_measured_data(session) &&
        session::load_measured_data(session, file, false))
        place.commands.run("mnuData_BatchEdit");
}

void openPoints(const Place& place, const std::string& file) {
    place.commands.run("mnuData_EditXY");
    const OneAnswer answer(file);
    if (auto* editor = place.desk.find<gui::XyEditor>("frmManuInput")) editor->load();
}

void openDiagram(const Place& place, const std::string& file) {
    gui::diagram_views::openSaved(place.desk, file);
}

struct Kind {
    std::string_view extension;
    void (*open)(const Place& place, const std::string& file);
};
constexpr std::array<Kind, 5> kKinds{{{".Q05", openDatabase},
                                      {".QCF", openProject},
                                      {".BAQ", openData},
                                      {".XY", openPoints},
                                      {".OC2", openDiagram}}};

}  // namespace

void open(gui::Desk& desk, Commands& commands, const std::string& file) {
    std::error_code ignored;
    const std::filesystem::path path = std::filesystem::absolute(file, ignored);
    if (!std::filesystem::is_regular_file(path, ignored)) {
        gui::settings::forgetFile(QString::fromStdString(file));
        dialogs::tell("File not found:\n" + path.string(), dialogs::kNotPossible,
                      dialogs::Icon::Stop);
        return;
    }
    const std::string extension =
        QString::fromStdString(path.extension().string()).toUpper().toStdString();
    for (const Kind& kind : kKinds)
        if (kind.extension == extension) {
            kind.open({desk, commands}, path.string());
            desk.refresh();
            return;
        }
    dialogs::tell("This is no file of QUOR-6:\n" + path.string(), dialogs::kNotPossible);
}

}  // namespace open_file

}  // namespace quor::app
