#include "common/text.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace quor::text {

namespace {

bool is_blank(char c) {
    return c == ' ' || c == '\t' || c == '\0';
}

bool is_ascii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// A conversion of iconv, opened once a thread: opening one is dearer than converting a name, and
/// two threads must not use one at the same time.
class Converter {
  public:
    Converter(const char* from, const char* to)
        : handle_(iconv_open(to, from)), from_utf8_(std::string_view(from) == "UTF-8") {}
    ~Converter() {
        if (usable()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// A byte or character without counterpart becomes '?'.
    std::string operator()(std::string_view s) const {
        // ASCII is the same in all the pages.
        if (!usable() || std::all_of(s.begin(), s.end(), is_ascii)) return std::string(s);
        std::string in(s), out;
        char* source = in.data();
        std::size_t left = in.size();
        std::array<char, 512> buffer{};
        while (left > 0) {
            char* target = buffer.data();
            std::size_t space = buffer.size();
            const std::size_t result = iconv(handle_, &source, &left, &target, &space);
            out.append(buffer.data(), buffer.size() - space);
            if (result != static_cast<std::size_t>(-1) || errno == E2BIG) continue;
            out += '?';
            // Skip the whole character: in UTF-8 the bytes that continue it as well.
            do {
                ++source;
                --left;
            } while (left > 0 && from_utf8_ && continues_character(*source));
        }
        return out;
    }

    /// True when the conversion meets nothing that it cannot read.
    bool takes(std::string_view s) const {
        std::string in(s);
        char* source = in.data();
        std::size_t left = in.size();
        std::array<char, 512> buffer{};
        bool taken = usable();
        while (taken && left > 0) {
            char* target = buffer.data();
            std::size_t space = buffer.size();
            taken =
                iconv(handle_, &source, &left, &target, &space) != static_cast<std::size_t>(-1) ||
                errno == E2BIG;
        }
        return taken;
    }

  private:
    bool usable() const { return handle_ != iconv_t(-1); }
    static bool continues_character(char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    }

    iconv_t handle_;
    bool from_utf8_;
};

/// A page in UTF-8, byte by byte: a database has tens of thousands of fields. Threads share it.
class Page {
  public:
    explicit Page(const char* name) {
        const Converter convert(name, "UTF-8");
        for (std::size_t i = 0; i < characters_.size(); ++i) {
            const std::string utf8 = convert(std::string(1, static_cast<char>(i)));
            characters_[i].length = utf8.copy(characters_[i].bytes.data(), kLongest);
        }
    }

    std::string operator()(std::string_view page) const {
        if (std::all_of(page.begin(), page.end(), is_ascii)) return std::string(page);
        std::string out(page.size() * kLongest, '\0');
        std::size_t length = 0;
        for (const char c : page) {
            const Character& character = characters_[static_cast<unsigned char>(c)];
            std::copy(character.bytes.begin(), character.bytes.end(), out.data() + length);
            length += character.length;
        }
        out.resize(length);
        return out;
    }

  private:
    static constexpr std::size_t kLongest = 4;  ///< bytes of a character
    struct Character {
        std::array<char, kLongest> bytes{};
        std::size_t length = 0;
    };
    std::array<Character, 256> characters_;
};

}  // namespace

std::string_view without_end_blanks(std::string_view s) {
    while (!s.empty() && is_blank(s.back())) s.remove_suffix(1);
    return s;
}

std::string trim_right(std::string_view s) {
    return std::string(without_end_blanks(s));
}

std::string trim_left(std::string_view s) {
    while (!s.empty() && is_blank(s.front())) s.remove_prefix(1);
    return std::string(s);
}

std::string trim(std::string_view s) {
    return trim_left(trim_right(s));
}

std::string remove_blanks(std::string_view s) {
    std::string r;
    for (const char c : s)
        if (!is_blank(c)) r += c;
    return r;
}

std::string replace_all(std::string s, std::string_view from, std::string_view to) {
    std::size_t found = from.empty() ? std::string::npos : s.find(from);
    if (found == std::string::npos) return s;
    std::string replaced;
    std::size_t taken = 0;
    for (; found != std::string::npos; found = s.find(from, taken)) {
        replaced.append(s, taken, found - taken).append(to);
        taken = found + from.size();
    }
    return replaced.append(s, taken);
}

std::string to_upper(std::string_view s) {
    std::string r(s);
    for (std::size_t i = 0; i < r.size(); ++i) {
        auto c = static_cast<unsigned char>(r[i]);
        if (c >= 'a' && c <= 'z') {
            r[i] = static_cast<char>(c - 'a' + 'A');
        } else if (c == 0xC3 && i + 1 < r.size()) {
            // Latin-1 letters U+00E0 to U+00FE, without the division sign, lie 0x20 apart.
            c = static_cast<unsigned char>(r[++i]);
            if (c >= 0xA0 && c <= 0xBE && c != 0xB7) r[i] = static_cast<char>(c - 0x20);
        }
    }
    return r;
}

namespace {

bool is_letter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool is_letter_or_digit(char c) {
    return is_letter(c) || (c >= '0' && c <= '9');
}

/// What is printed in the place of a part of a unit. A word of `before` and of `after` may have to
/// stand around it.
struct UnitSign {
    std::string_view written, printed;
    std::string_view before{}, after{};
};
constexpr UnitSign kUnitSigns[] = {{"^2", "²"},
                                   {"^3", "³"},
                                   {"degC", "°C"},
                                   {"degF", "°F"},
                                   {"degR", "°R"},
                                   {" ", "·", "(kmol", "K"},
                                   {" ", "·", "(mol", "K"},
                                   {" ", "·", "(kg", "K"},
                                   {" ", "·", "(lb", "degR"},
                                   {"*", "·", "", "m^3"},
                                   {"*", "·", "", "cm^3"},
                                   {"*", "·", "", "ft^3"},
                                   {"*", "·", "", "l/"}};

/// A word ends where no letter or digit goes on.
bool ends_word(std::string_view s, std::size_t end) {
    return end >= s.size() || !is_letter_or_digit(s[end]);
}

bool stands_at(const UnitSign& sign, std::string_view s, std::size_t at) {
    const std::size_t end = at + sign.written.size();
    if (s.substr(at, sign.written.size()) != sign.written) return false;
    if (sign.written == "*")
        return at > 0 && is_letter_or_digit(s[at - 1]) && s.substr(end).starts_with(sign.after);
    if (!sign.before.empty())
        return s.substr(0, at).ends_with(sign.before) && s.substr(end).starts_with(sign.after) &&
               ends_word(s, end + sign.after.size());
    const bool is_power = sign.written.front() == '^';
    const bool begins =
        is_power ? at > 0 && is_letter(s[at - 1]) : at == 0 || !is_letter_or_digit(s[at - 1]);
    return begins && ends_word(s, end);
}

}  // namespace

std::string with_unit_signs(std::string_view s) {
    std::string printed;
    for (std::size_t at = 0; at < s.size();) {
        const auto sign = std::find_if(std::begin(kUnitSigns), std::end(kUnitSigns),
                                       [&](const UnitSign& u) { return stands_at(u, s, at); });
        if (sign == std::end(kUnitSigns)) {
            printed += s[at++];
        } else {
            printed += sign->printed;
            at += sign->written.size();
        }
    }
    return printed;
}

std::vector<std::string> split(std::string_view s, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t i = s.find(separator);
        parts.emplace_back(s.substr(0, i));
        if (i == std::string_view::npos) return parts;
        s.remove_prefix(i + 1);
    }
}

std::size_t length(std::string_view s) {
    std::size_t n = 0;
    for (const char c : s)
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++n;
    return n;
}

std::string pad_right(std::string_view s, std::size_t width) {
    std::string r;
    std::size_t n = 0;
    for (const char c : s) {
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U && ++n > width) {
            --n;
            break;
        }
        r += c;
    }
    r.append(width - n, ' ');
    return r;
}

std::string pad_left(std::string_view s, std::size_t width) {
    const std::size_t n = length(s);
    return (n < width ? std::string(width - n, ' ') : std::string()) + std::string(s);
}

std::string from_ansi(std::string_view bytes) {
    static const Page page("CP1252");
    return page(bytes);
}
std::string to_ansi(std::string_view s) {
    thread_local const Converter convert("UTF-8", "CP1252");
    return convert(s);
}
std::string from_oem(std::string_view bytes) {
    static const Page page("CP850");
    return page(bytes);
}
std::string to_oem(std::string_view s) {
    thread_local const Converter convert("UTF-8", "CP850");
    return convert(s);
}

bool is_utf8(std::string_view bytes) {
    thread_local const Converter convert("UTF-8", "UTF-32LE");
    return convert.takes(bytes);
}

std::vector<std::string> lines(std::string_view s) {
    std::vector<std::string> lines;
    while (!s.empty()) {
        const std::size_t i = s.find_first_of("\r\n");
        lines.emplace_back(s.substr(0, i));
        if (i == std::string_view::npos) break;
        const bool pair = s[i] == '\r' && i + 1 < s.size() && s[i + 1] == '\n';
        s.remove_prefix(i + (pair ? 2 : 1));
    }
    return lines;
}

}  // namespace quor::text
