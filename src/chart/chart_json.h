#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "chart/chart2d.h"
#include "chart/chart_style.h"

/// Writing and reading of records as JSON. A record has one function `describe(io, record)` that
/// names its fields; with `JsonWriter` it writes them, with `JsonReader` it reads them, so that
/// both ways always know the same fields. For the files of charts only.
namespace quor::chart::files {

using Json = nlohmann::json;

inline constexpr std::size_t kMaxText = 4000;       ///< bytes of one text
inline constexpr std::size_t kMaxList = 4000;       ///< series, labels
inline constexpr std::size_t kMaxValues = 2000000;  ///< numbers of a series or a grid
inline constexpr double kMaxNumber = 3.4e38;        ///< size of a number: that of a float

/// What is wrong with a file; its text goes to the user.
class BadField : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Names of an enumeration in files, in the order of its values.
template <class E>
struct EnumNames;

template <>
struct EnumNames<LinePattern> {
    static constexpr std::array<std::string_view, 5> kNames{"none", "solid", "dotted", "dashed",
                                                            "dash-dotted"};
};
template <>
struct EnumNames<SymbolShape> {
    static constexpr std::array<std::string_view, 15> kNames = kSymbolNames;
};
template <>
struct EnumNames<LegendAnchor> {
    static constexpr std::array<std::string_view, 12> kNames{
        "automatic", "north-west", "north", "north-east",   "east",          "south-east",
        "south",     "south-west", "west",  "outside-east", "outside-south", "free"};
};

/// A double that prints with few digits and narrows to the same float.
inline double few_digits(float value) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    double wide = 0;
    std::from_chars(buffer.data(), end, wide);
    return static_cast<float>(wide) == value ? wide : static_cast<double>(value);
}

class JsonWriter {
  public:
    Json take() { return std::move(json_); }

    void field(const char* name, bool& value) { json_[name] = value; }
    void field(const char* name, int& value) { json_[name] = value; }
    void field(const char* name, double& value) { json_[name] = holdable(value); }
    void field(const char* name, float& value) {
        json_[name] = std::isfinite(value) ? few_digits(value) : 0;
    }
    void field(const char* name, std::string& value) { json_[name] = value; }
    void field(const char* name, Colour& c) { json_[name] = Json::array({c.r, c.g, c.b, c.a}); }
    void field(const char* name, Group& value) { json_[name] = static_cast<int>(value); }
    void field(const char* name, std::vector<float>& values) {
        Json list = Json::array();
        list.get_ref<Json::array_t&>().reserve(values.size());
        for (const float value : values)
            list.push_back(is_shown(value) ? Json(few_digits(value)) : Json());
        json_[name] = std::move(list);
    }
    /// A number with limits. One beyond them is drawn at them, and so it is written.
    template <class T>
    void field(const char* name, T& value, double low, double high) {
        const auto number = static_cast<double>(value);
        T within = static_cast<T>(std::isfinite(number) ? std::clamp(number, low, high) : low);
        field(name, within);
    }
    template <class T>
    void field(const char* name, T& value) {
        if constexpr (std::is_enum_v<T>) {
            json_[name] = EnumNames<T>::kNames[static_cast<std::size_t>(value)];
        } else {
            JsonWriter inner;
            describe(inner, value);
            json_[name] = inner.take();
        }
    }
    template <class T>
    void field(const char* name, std::vector<T>& values) {
        Json list = Json::array();
        for (T& value : values) {
            JsonWriter inner;
            describe(inner, value);
            list.push_back(inner.take());
        }
        json_[name] = std::move(list);
    }

  private:
    static double holdable(double value) {
        return std::isfinite(value) ? std::clamp(value, -kMaxNumber, kMaxNumber) : 0;
    }

    Json json_ = Json::object();
};

class JsonReader {
  public:
    /// `path` names the place in messages.
    JsonReader(const Json& json, std::string path) : json_(json), path_(std::move(path)) {
        if (!json_.is_object()) throw BadField("\"" + path_ + "\" is not a group of fields.");
    }

    [[noreturn]] void bad(const char* name, const char* expected) const {
        throw BadField("\"" + place(name) + "\" is not " + expected + ".");
    }

    void field(const char* name, bool& value) {
        if (const Json* j = find(name)) {
            if (!j->is_boolean()) bad(name, "true or false");
            value = j->get<bool>();
        }
    }
    void field(const char* name, int& value) {
        if (const Json* j = find(name)) {
            const double number = finite(name, *j);
            if (std::abs(number) > 1e9 || number != std::floor(number)) bad(name, "a whole number");
            value = static_cast<int>(number);
        }
    }
    void field(const char* name, double& value) {
        if (const Json* j = find(name)) value = finite(name, *j);
    }
    void field(const char* name, float& value) {
        if (const Json* j = find(name)) value = single(name, *j);
    }
    void field(const char* name, std::string& value) {
        if (const Json* j = find(name)) {
            if (!j->is_string()) bad(name, "a text");
            const auto& text = j->get_ref<const std::string&>();
            if (text.size() > kMaxText) bad(name, "a text of a length that a chart holds");
            value = text;
        }
    }
    void field(const char* name, Colour& value) {
        const Json* j = find(name);
        if (!j) return;
        if (!j->is_array() || j->size() != 4) bad(name, "a colour");
        std::array<std::uint8_t, 4> channels{};
        for (std::size_t i = 0; i < 4; ++i) {
            const double number = finite(name, (*j)[i]);
            if (number < 0 || number > 255) bad(name, "a colour");
            channels[i] = static_cast<std::uint8_t>(number);
        }
        value = {channels[0], channels[1], channels[2], channels[3]};
    }
    void field(const char* name, Group& value) {
        int number = static_cast<int>(value);
        field(name, number);
        if (number != 1 && number != 2) bad(name, "a group of series");
        value = static_cast<Group>(number);
    }
    void field(const char* name, std::vector<float>& values) {
        const Json* j = find(name);
        if (!j) return;
        if (!j->is_array()) bad(name, "a list of numbers");
        if (j->size() > kMaxValues) bad(name, "a list of a length that a chart holds");
        values.clear();
        values.reserve(j->size());
        for (const Json& item : *j) values.push_back(item.is_null() ? kHole : single(name, item));
    }
    /// A number with limits, which no file of the program exceeds.
    template <class T>
    void field(const char* name, T& value, double low, double high) {
        field(name, value);
        const auto number = static_cast<double>(value);
        // A float may be rounded a little over the limit that was written.
        constexpr double kSlack = 1e-6;
        if (!(number >= low - kSlack * std::abs(low) && number <= high + kSlack * std::abs(high)))
            bad(name, ("a number from " + text_of(low) + " to " + text_of(high)).c_str());
        value = static_cast<T>(std::clamp(number, low, high));
    }
    template <class T>
    void field(const char* name, T& value) {
        const Json* j = find(name);
        if (!j) return;
        if constexpr (std::is_enum_v<T>) {
            if (!j->is_string()) bad(name, "a text");
            // A name that this version does not know keeps the default.
            const auto& names = EnumNames<T>::kNames;
            for (std::size_t i = 0; i < names.size(); ++i)
                if (j->get_ref<const std::string&>() == names[i]) value = static_cast<T>(i);
        } else {
            JsonReader inner(*j, place(name));
            describe(inner, value);
        }
    }
    template <class T>
    void field(const char* name, std::vector<T>& values) {
        const Json* j = find(name);
        if (!j) return;
        if (!j->is_array()) bad(name, "a list");
        if (j->size() > kMaxList) bad(name, "a list of a length that a chart holds");
        values.clear();
        for (const Json& item : *j) {
            JsonReader inner(item, place(name) + " " + std::to_string(values.size() + 1));
            T value{};
            describe(inner, value);
            values.push_back(std::move(value));
        }
    }

  private:
    const Json* find(const char* name) const {
        const auto it = json_.find(name);
        return it == json_.end() ? nullptr : &*it;
    }
    std::string place(const char* name) const { return path_.empty() ? name : path_ + ", " + name; }
    double finite(const char* name, const Json& j) const {
        if (!j.is_number()) bad(name, "a number");
        const double number = j.get<double>();
        if (!(std::abs(number) <= kMaxNumber)) bad(name, "a number of a size that a chart holds");
        return number;
    }
    static std::string text_of(double limit) {
        std::array<char, 40> buffer{};
        return {buffer.data(),
                std::to_chars(buffer.data(), buffer.data() + buffer.size(), limit).ptr};
    }
    float single(const char* name, const Json& j) const {
        return static_cast<float>(finite(name, j));
    }

    const Json& json_;
    std::string path_;
};

/// Fields shared by both kinds of charts.
template <class Io>
void describe(Io& io, Font& f) {
    io.field("family", f.family);
    io.field("size", f.size, 1, 200);
    io.field("bold", f.bold);
    io.field("italic", f.italic);
}

template <class Io>
void describe(Io& io, Frame& f) {
    io.field("shown", f.shown);
    io.field("colour", f.colour);
    io.field("width", f.width, 0, 50);
}

template <class Io>
void describe(Io& io, LineStyle& s) {
    io.field("pattern", s.pattern);
    io.field("colour", s.colour);
    io.field("width", s.width, 0, 50);
}

template <class Io>
void describe(Io& io, SheetPlace& p) {
    io.field("x", p.x, -1, 2);
    io.field("y", p.y, -1, 2);
}

template <class Io>
void describe(Io& io, Caption& c) {
    io.field("text", c.text);
    io.field("font", c.font);
    io.field("colour", c.colour);
    io.field("automatic", c.automatic);
    io.field("place", c.place);
}

template <class Io>
void describe(Io& io, PrintPlace& p) {
    io.field("left", p.left, 0, 200);
    io.field("top", p.top, 0, 200);
    io.field("width", p.width, 1, 200);
    io.field("height", p.height, 1, 200);
}

/// The kind and version of a file.
struct Format {
    const char* mark;
    int major, minor;
};

/// The text of a file with this content.
std::string document(const Format& format, Json content);

/// The content of a file's text; throws `BadField` when it is none of this format.
Json content_of(const Format& format, std::string_view text);

/// Reads a whole file; throws `BadField` when it cannot be read or is too large.
std::string read_whole(const std::filesystem::path& file);

}  // namespace quor::chart::files
