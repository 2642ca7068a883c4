#include "common/save_file.h"

#include <filesystem>

#include "common/paths.h"
#include "common/whole_file.h"

namespace quor::saving {

namespace {

bool exists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

/// What became of one attempt.
struct Attempt {
    bool refused = false;  ///< a file is there that the user does not want to lose
    Result<void> written{};
};

Attempt write(const Saved& saved, const std::string& path) {
    const bool replaces = exists(path);
    if (replaces && !saved.choice.overwrite_prompt && !may_replace(path)) return {.refused = true};
    const Result<std::string> content = saved.content(path);
    if (!content) return {.written = content.failure()};
    if (!replaces) {
        const files::NewFile made = files::write_new(path, *content);
        if (!made.exists) return {.written = made.written};
        if (!may_replace(path)) return {.refused = true};
    }
    return {.written = files::write_whole(path, *content)};
}

std::string place_of(const Saved& saved, const std::string& name) {
    if (saved.place) return saved.place(name);
    return paths::target_path(name, saved.choice.folder, saved.choice.default_extension);
}

constexpr auto kOffer = "\n\nSave it in another place?";

}  // namespace

bool may_replace(const std::string& path) {
    if (!exists(path)) return true;
    return dialogs::ask("such a file is already existing\nOverwright?", "WARNING",
                        dialogs::Icon::Exclamation);
}

std::optional<std::string> save_where_chosen(const Saved& saved) {
    for (;;) {
        const std::optional<std::string> name = dialogs::choose_file(saved.choice);
        if (!name || name->empty()) return std::nullopt;
        const std::string path = place_of(saved, *name);
        const Attempt attempt = write(saved, path);
        if (attempt.refused) return std::nullopt;
        if (attempt.written) return path;
        if (!dialogs::ask(attempt.written.reason() + kOffer, saved.failure_title,
                          dialogs::Icon::Stop))
            return std::nullopt;
    }
}

Elsewhere save_elsewhere(const std::string& reason, const Saved& saved, std::string& path) {
    using dialogs::Answer;
    const Answer answer = dialogs::show({.text = reason + kOffer,
                                         .title = saved.failure_title,
                                         .icon = dialogs::Icon::Stop,
                                         .buttons = dialogs::Buttons::YesNoCancel,
                                         .default_answer = Answer::Yes});
    if (answer == Answer::No) return Elsewhere::leftAlone;
    if (answer != Answer::Yes) return Elsewhere::cancelled;
    const std::optional<std::string> chosen = save_where_chosen(saved);
    if (!chosen) return Elsewhere::cancelled;
    path = *chosen;
    return Elsewhere::saved;
}

}  // namespace quor::saving
