#include "app/open_file.h"

#include <array>
#include <filesystem>
#include <string_view>

#include "common/dialogs.h"
#include "common/text.h"
#include "gui/data/xy_editor.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/shell.h"
#include "session/actions.h"
#include "session/commands.h"
#include "session/measured_data_session.h"
#include "session/module2.h"

namespace quor::app {

namespace open_file {

namespace {

constexpr auto kRefusal = "Execution not possible";

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

void open_database(const std::string& file) {
    const OneAnswer answer(file);
    actions::Run("mnuData_OpenBank");
}

void open_project(const std::string& file) {
    const OneAnswer answer(file);
    actions::Run("mnuData_LoadProject");
}

void open_data(const std::string& file) {
    // An open table asks about its changes first, and may stay.
    gui::shell::closeViews({"frmTpvEdit"});
    if (gui::shell::findView("frmTpvEdit") == nullptr && session::load_measured_data(file, false))
        actions::Run("mnuData_BatchEdit");
}

void open_points(const std::string& file) {
    actions::Run("mnuData_EditXY");
    const OneAnswer answer(file);
    if (auto* editor = qobject_cast<gui::XyEditor*>(gui::shell::findView("frmManuInput")))
        editor->load();
}

void open_diagram(const std::string& file) {
    if (!session::is_enabled(session::Command::mnu2D)) {
        dialogs::tell("Load a substance!", "WARNING");
        return;
    }
    gui::graph2d_views::openEmpty();
    const OneAnswer answer(file);
    gui::DiagramWindow::current()->load();
}

struct Kind {
    std::string_view extension;
    void (*open)(const std::string& file);
};
constexpr std::array<Kind, 5> kKinds{{{".Q05", open_database},
                                      {".QCF", open_project},
                                      {".BAQ", open_data},
                                      {".XY", open_points},
                                      {".OC2", open_diagram}}};

}  // namespace

void Open(const std::string& file) {
    std::error_code ignored;
    const std::filesystem::path path = std::filesystem::absolute(file, ignored);
    if (!std::filesystem::is_regular_file(path, ignored)) {
        gui::settings::forgetFile(QString::fromStdString(file));
        dialogs::tell("File not found:\n" + path.string(), kRefusal, dialogs::Icon::Stop);
        return;
    }
    const std::string extension =
        QString::fromStdString(path.extension().string()).toUpper().toStdString();
    for (const Kind& kind : kKinds)
        if (kind.extension == extension) {
            kind.open(path.string());
            gui::shell::Refresh();
            return;
        }
    dialogs::tell("This is no file of QUOR-6:\n" + path.string(), kRefusal);
}

}  // namespace open_file

}  // namespace quor::app
