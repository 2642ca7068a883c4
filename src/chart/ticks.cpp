#include "chart/ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "common/numbers.h"

namespace quor::chart {

namespace {

constexpr std::size_t kFewestNumbers = 3;
constexpr int kMaxTicks = 200;
constexpr std::size_t kMaxMultiples = 2000;
constexpr int kMaxDecimals = 15;
constexpr double kMostIndex = 4503599627370496;  // 2^52: further whole numbers step by more than 1

/// Next of 1, 2, 5 times a power of ten above `step`.
double next_step(double step) {
    return nice_step(step * 1.5);
}

int exponent_of(double value) {
    return static_cast<int>(std::floor(std::log10(value) + 1e-9));
}

/// Digits behind the mark that a multiple of `step` needs.
int decimals_of(double step) {
    for (int digits = 0; digits < kMaxDecimals; ++digits) {
        const double scaled = step * std::pow(10.0, digits);
        if (std::abs(scaled - std::round(scaled)) < 1e-6 * scaled) return digits;
    }
    return kMaxDecimals;
}

std::string printed(double value, int decimals, char conversion) {
    const auto form = conversion == 'e' ? std::chars_format::scientific : std::chars_format::fixed;
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form, decimals).ptr;
    return {buffer.data(), end};
}

/// "1.500e+06" becomes "1.5e6"; digits given by the user stay.
std::string power_text(double value, double step, int decimals) {
    const int exponent = exponent_of(std::abs(value));
    const int digits = decimals >= 0 ? decimals : decimals_of(step / std::pow(10.0, exponent));
    std::string text = printed(value, std::min(digits, kMaxDecimals), 'e');
    const auto mark = text.find('e');
    int power = 0;
    const std::size_t digits_at = mark + (text[mark + 1] == '+' ? 2 : 1);
    std::from_chars(text.data() + digits_at, text.data() + text.size(), power);
    std::string mantissa = text.substr(0, mark);
    if (decimals < 0 && mantissa.find('.') != std::string::npos) {
        mantissa.erase(mantissa.find_last_not_of('0') + 1);
        if (mantissa.back() == '.') mantissa.pop_back();
    }
    return mantissa + "e" + std::to_string(power);
}

std::string with_locale_mark(std::string text) {
    std::replace(text.begin(), text.end(), '.', numbers::decimal_mark());
    return text;
}

class Scale {
  public:
    explicit Scale(const TickRequest& r) : r_(r) {}

    double pixel(double value) const {
        const double t = r_.logarithmic ? std::log(value / r_.min) / std::log(r_.max / r_.min)
                                        : (value - r_.min) / (r_.max - r_.min);
        return t * r_.length;
    }
    double room(const std::string& text) const { return r_.room ? r_.room(text) : 40.0; }

    /// True when no two numbers of the ticks come closer than their room.
    bool fits(const std::vector<Tick>& ticks) const {
        const Tick* last = nullptr;
        for (const Tick& tick : ticks) {
            if (tick.text.empty()) continue;
            if (last) {
                const double gap = pixel(tick.value) - pixel(last->value);
                if (gap < (room(last->text) + room(tick.text)) / 2) return false;
            }
            last = &tick;
        }
        return true;
    }

  private:
    const TickRequest& r_;
};

double largest(const TickRequest& r) {
    return std::max(std::abs(r.min), std::abs(r.max));
}

std::vector<Tick> linear_ticks(const TickRequest& r, double step) {
    std::vector<Tick> ticks;
    for (const double value : multiples(r.min, r.max, step))
        ticks.push_back({value, axis_number(value, step, largest(r), r.decimals)});
    return ticks;
}

/// Takes numbers away, leaving those at every 2nd, 5th, 10th ... tick, until none overlap.
void thin_numbers(std::vector<Tick>& ticks, double step, const Scale& scale) {
    const std::vector<Tick> all = ticks;
    for (double every = 2; !scale.fits(ticks) && every < 1e5; every = next_step(every)) {
        for (std::size_t i = 0; i < all.size(); ++i) {
            const double index = std::round(all[i].value / step);
            ticks[i].text = std::fmod(index, every) == 0 ? all[i].text : std::string();
        }
    }
    if (scale.fits(ticks)) return;
    for (std::size_t i = 1; i < ticks.size(); ++i) ticks[i].text.clear();
}

std::vector<double> linear_minor(const TickRequest& r, double step) {
    const double mantissa = step / std::pow(10.0, exponent_of(step));
    const double parts = std::abs(mantissa - 2) < 0.01 ? 4 : 5;
    std::vector<double> minor;
    for (const double value : multiples(r.min, r.max, step / parts)) {
        const double position = value / step;
        if (std::abs(position - std::round(position)) > 1e-6) minor.push_back(value);
    }
    return minor;
}

Ticks make_linear(const TickRequest& r) {
    const Scale scale(r);
    const double wanted = r.spacing;
    const double count = wanted > 0 ? (r.max - r.min) / wanted : 0;
    if (wanted > 0 && count <= kMaxTicks) {
        Ticks ticks{linear_ticks(r, wanted), linear_minor(r, wanted)};
        thin_numbers(ticks.major, wanted, scale);
        return ticks;
    }
    const double parts = std::clamp(r.length / r.distance, 2.0, 10.0);
    double step = nice_step((r.max - r.min) / parts);
    std::vector<Tick> ticks = linear_ticks(r, step);
    while (!scale.fits(ticks) && step < r.max - r.min) {
        step = next_step(step);
        ticks = linear_ticks(r, step);
    }
    // A number or two tell no scale, so they may stand closer than is comfortable.
    for (int tries = 0; tries < 3 && ticks.size() < kFewestNumbers; ++tries) {
        const double finer = nice_step(step / 2.5);
        std::vector<Tick> closer = linear_ticks(r, finer);
        if (!scale.fits(closer)) break;
        ticks = std::move(closer);
        step = finer;
    }
    thin_numbers(ticks, step, scale);
    return {std::move(ticks), linear_minor(r, step)};
}

std::string log_number(const TickRequest& r, double value, int exponent) {
    // Powers only where plain numbers grow long; the whole axis then shows powers.
    const bool powers = r.max >= 1e6 || r.min < 0.9e-4;
    if (powers) return with_locale_mark(power_text(value, std::pow(10.0, exponent), r.decimals));
    const int digits = r.decimals >= 0 ? r.decimals : std::max(0, -exponent);
    return with_locale_mark(printed(value, std::min(digits, kMaxDecimals), 'f'));
}

/// Ticks at `factors` times every `every`-th power of ten.
std::vector<Tick> decade_ticks(const TickRequest& r, std::initializer_list<int> factors,
                               int every) {
    std::vector<Tick> ticks;
    const int first = exponent_of(r.min) - 1, last = exponent_of(r.max) + 1;
    for (int exponent = first; exponent <= last; ++exponent) {
        if (exponent % every != 0) continue;
        for (const int factor : factors) {
            const double value = factor * std::pow(10.0, exponent);
            if (value < r.min * (1 - 1e-9) || value > r.max * (1 + 1e-9)) continue;
            ticks.push_back({value, log_number(r, value, exponent)});
        }
    }
    return ticks;
}

std::vector<double> log_minor(const TickRequest& r, int every) {
    std::vector<double> minor;
    for (int exponent = exponent_of(r.min) - 1; exponent <= exponent_of(r.max); ++exponent) {
        for (int factor = 1; factor < 10; ++factor) {
            if (factor == 1 && exponent % every == 0) continue;
            if (factor > 1 && every > 1) continue;
            const double value = factor * std::pow(10.0, exponent);
            if (value > r.min && value < r.max) minor.push_back(value);
        }
    }
    return minor;
}

/// Over less than about a decade: linear multiples, as fine as their room on the axis allows.
Ticks make_short_logarithmic(const TickRequest& r) {
    const Scale scale(r);
    const double parts = std::clamp(r.length / r.distance, 2.0, 8.0);
    double step = nice_step((r.max - r.min) / parts / 2);
    std::vector<Tick> ticks = linear_ticks(r, step);
    while (!scale.fits(ticks) && step < r.max - r.min) {
        step = next_step(step);
        ticks = linear_ticks(r, step);
    }
    thin_numbers(ticks, step, scale);
    return {std::move(ticks), {}};
}

Ticks make_logarithmic(const TickRequest& r) {
    const double decades = std::log10(r.max / r.min);
    if (decades < 1.2) return make_short_logarithmic(r);
    const Scale scale(r);
    std::vector<Tick> fine = decade_ticks(r, {1, 2, 5}, 1);
    if (fine.size() <= 10 && scale.fits(fine)) return {std::move(fine), log_minor(r, 1)};
    for (int every = 1; every <= 700; ++every) {
        std::vector<Tick> ticks = decade_ticks(r, {1}, every);
        if (ticks.size() <= 12 && scale.fits(ticks)) return {std::move(ticks), log_minor(r, every)};
    }
    return make_short_logarithmic(r);
}

bool usable(const TickRequest& r) {
    return is_drawable(r.min, r.max, r.logarithmic) && r.length > 0 && std::isfinite(r.length);
}

}  // namespace

bool is_drawable(double min, double max, bool logarithmic) {
    if (!(min < max)) return false;
    return logarithmic ? min > 0 && std::isfinite(max / min) : std::isfinite(max - min);
}

Ticks make_ticks(const TickRequest& request) {
    if (!usable(request)) return {};
    return request.logarithmic ? make_logarithmic(request) : make_linear(request);
}

double nice_step(double rough) {
    if (!(rough > 0) || !std::isfinite(rough)) return 1;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= rough * (1 - 1e-9)) return factor * power;
    return 10 * power;
}

std::vector<double> multiples(double min, double max, double step) {
    std::vector<double> values;
    if (!(step > 0) || !(min < max)) return values;
    const double first = std::ceil(min / step - 1e-6), last = std::floor(max / step + 1e-6);
    // Beyond the whole numbers that doubles tell apart the next index is the same one for ever.
    if (!(std::abs(first) <= kMostIndex && std::abs(last) <= kMostIndex)) return values;
    if (!(last - first < static_cast<double>(kMaxMultiples))) return values;
    for (double index = first; index <= last; ++index)
        values.push_back(index == 0 ? 0.0 : index * step);
    return values;
}

std::string axis_number(double value, double step, double largest, int decimals) {
    if (!std::isfinite(value)) return {};
    const int digits = decimals >= 0 ? std::min(decimals, kMaxDecimals) : decimals_of(step);
    const bool powers = largest >= 1e6 || (decimals < 0 && digits > 5);
    if (powers && value == 0) return "0";
    if (powers) return with_locale_mark(power_text(value, step, decimals));
    return with_locale_mark(printed(value, digits, 'f'));
}

NiceWindow make_nice_window(double min, double max, bool logarithmic) {
    if (logarithmic && min > 0 && max > 0) {
        if (max / min < 1.0001) return {min / 2, max * 2};
        const double decades = std::log10(max / min);
        if (decades < 1) {
            const NiceWindow linear = make_nice_window(min, max, false);
            return {linear.min > 0 ? linear.min : min, linear.max};
        }
        return {std::pow(10.0, std::floor(std::log10(min) + 1e-9)),
                std::pow(10.0, std::ceil(std::log10(max) - 1e-9))};
    }
    double span = max - min;
    if (!(span > 1e-9 * std::max(std::abs(min), std::abs(max)))) {
        span = min == 0 ? 1 : std::abs(min) * 0.2;
        min -= span / 2;
        max += span / 2;
    }
    const double step = nice_step(span / 10);
    return {std::floor(min / step + 1e-9) * step, std::ceil(max / step - 1e-9) * step};
}

}  // namespace quor::chart
