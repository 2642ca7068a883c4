#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

/// What the system asks or tells its user. The core never shows anything itself: it calls the
/// functions of a record that each thread has of its own, and that the program, quorcalc and the
/// tests install.
namespace quor::dialogs {

enum class Icon { None, Information, Exclamation, Question, Stop };
enum class Buttons { Ok, YesNo, OkCancel, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct Message {
    std::string text{};
    std::string title{};
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    Answer default_answer = Answer::Ok;  ///< what Enter gives
};

struct Input {
    std::string text{};
    std::string title{};
    std::string proposal{};
};

struct FileChoice {
    bool save = false;
    std::string title{};
    std::string filter{};             ///< "Caption|*.EXT|Caption|*.EXT"
    std::string folder{};             ///< where the dialog starts
    std::string name{};               ///< name first shown
    std::string default_extension{};  ///< ".EXT", appended to a name without one
    bool overwrite_prompt = false;
};

struct PrintJob {
    std::string title{};
    std::string font{};     ///< fixed-pitch family asked for
    std::string text{};     ///< whole text, lines separated by '\n'
    std::string drawing{};  ///< SVG, printed above the text; empty for none
};

/// The functions that stand between the system and its user. No answer (nullopt) is a cancel.
struct Functions {
    std::function<Answer(const Message&)> message;
    std::function<std::optional<std::string>(const Input&)> input;
    std::function<std::optional<std::string>(const FileChoice&)> file;
    std::function<bool(const PrintJob&)> print;  ///< false when the user cancels
    std::function<void(const std::string&)> set_clipboard;
    std::function<std::string()> clipboard;
    std::function<void(bool busy)> pointer;  ///< true shows the busy pointer
    /// Begins the wait for a program: what it gives is called again and again, lets a little time
    /// pass, and is false when the user gives the wait up.
    std::function<std::function<bool()>(const std::string& program,
                                        std::chrono::milliseconds limit)>
        patience;
    std::function<void()> beep;
};

/// The functions in use by this thread. Each thread starts with silent ones: a session in a worker
/// must neither open a box, which only the thread of the windows may do, nor put its questions to
/// the user of a session beside it.
Functions& current();
/// The silent functions that `current` starts with.
Functions silent();

Answer show(const Message& message);
/// A box with one OK button.
void tell(const std::string& text, const std::string& title, Icon icon = Icon::Exclamation);
/// Title of the boxes that refuse a command.
inline constexpr auto kNotPossible = "Execution not possible";
/// A box that says why a command cannot be carried out.
void refuse(const std::string& text);
/// A Yes/No box; true for Yes.
bool ask(const std::string& text, const std::string& title, Icon icon = Icon::Question,
         bool default_yes = true);
std::optional<std::string> ask_input(const Input& input);
std::optional<std::string> choose_file(const FileChoice& choice);
/// False when the user cancels.
bool print_out(const PrintJob& job);
void set_clipboard(const std::string& text);
std::string clipboard();
void beep();
/// The wait for a program that works for this one; see `Functions::patience`.
std::function<bool()> patience(const std::string& program, std::chrono::milliseconds limit);

/// Shows the busy pointer while it lives.
class BusyPointer {
  public:
    BusyPointer() { current().pointer(true); }
    ~BusyPointer() { current().pointer(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace quor::dialogs
