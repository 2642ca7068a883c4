#include "chart/chart_json.h"

#include <system_error>

#include "common/whole_file.h"

namespace quor::chart::files {

namespace {

constexpr std::uintmax_t kMaxBytes = 32U << 20U;
constexpr int kMaxDepth = 24;
constexpr std::size_t kMaxGroups = 200000;  // each takes far more memory than its two brackets

/// Deepest nesting of lists and groups, and how many there are; texts do not count.
struct Shape {
    int depth = 0;
    std::size_t groups = 0;
};
Shape shape_of(std::string_view text) {
    Shape shape;
    int depth = 0;
    bool in_text = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (in_text) {
            if (c == '\\') ++i;
            if (c == '"') in_text = false;
        } else if (c == '"') {
            in_text = true;
        } else if (c == '[' || c == '{') {
            shape.depth = std::max(shape.depth, ++depth);
            ++shape.groups;
        } else if (c == ']' || c == '}') {
            --depth;
        }
    }
    return shape;
}

int whole_number(const Json& group, const char* name) {
    const auto it = group.find(name);
    if (it == group.end() || !it->is_number_integer()) return -1;
    const auto value = it->get<std::int64_t>();
    return value < 0 || value > 1000000 ? -1 : static_cast<int>(value);
}

void check_version(const Format& format, const Json& document) {
    const auto version = document.find("version");
    const bool present = version != document.end() && version->is_object();
    const int major = present ? whole_number(*version, "major") : -1;
    const int minor = present ? whole_number(*version, "minor") : -1;
    if (major < 1 || minor < 0) throw BadField("The file is damaged: it names no version.");
    if (major <= format.major) return;
    throw BadField("The file was written by a newer version of the program (file version " +
                   std::to_string(major) + "." + std::to_string(minor) + ", readable up to " +
                   std::to_string(format.major) + ").");
}

}  // namespace

std::string document(const Format& format, Json content) {
    const Json document{{"format", format.mark},
                        {"version", {{"major", format.major}, {"minor", format.minor}}},
                        {"chart", std::move(content)}};
    const auto text = [&](int indent) {
        return document.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
    };
    std::string readable = text(1);
    // One of very many points keeps to the size of files only without a line for each.
    return readable.size() > kMaxBytes ? text(-1) : readable;
}

Json content_of(const Format& format, std::string_view text) {
    if (text.size() > kMaxBytes) throw BadField("The file is too large for a saved diagram.");
    const Shape shape = shape_of(text);
    if (shape.depth > kMaxDepth || shape.groups > kMaxGroups)
        throw BadField("The file is no saved diagram.");
    const Json document = Json::parse(text, nullptr, false);
    if (document.is_discarded())
        throw BadField("The file is damaged or incomplete, or no saved diagram.");
    if (!document.is_object()) throw BadField("The file is no saved diagram.");
    const auto mark = document.find("format");
    if (mark == document.end() || !mark->is_string())
        throw BadField("The file is no saved diagram.");
    if (mark->get_ref<const std::string&>() != format.mark)
        throw BadField("The file holds another kind of diagram.");
    check_version(format, document);
    const auto content = document.find("chart");
    if (content == document.end()) throw BadField("The file is damaged: it holds no diagram.");
    return *content;
}

std::string read_whole(const std::filesystem::path& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    if (error) throw BadField("The file cannot be opened.");
    if (size > kMaxBytes) throw BadField("The file is too large for a saved diagram.");
    Result<std::string> text = quor::files::read_whole(file, kMaxBytes);
    if (!text || text->size() != size) throw BadField("The file cannot be read.");
    return *std::move(text);
}

}  // namespace quor::chart::files
