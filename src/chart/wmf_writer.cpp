#include <algorithm>
#include <array>

#include "chart/metafile_bytes.h"
#include "chart/metafile_writer.h"
#include "common/text.h"

namespace quor::chart::metafile {

namespace {

/// Record functions of [MS-WMF] 2.1.1.1.
enum Record : std::uint16_t {
    kEof = 0x0000,
    kSaveDc = 0x001E,
    kSetBkMode = 0x0102,
    kSetMapMode = 0x0103,
    kSetRop2 = 0x0104,
    kSetPolyFillMode = 0x0106,
    kRestoreDc = 0x0127,
    kSelectObject = 0x012D,
    kSetTextAlign = 0x012E,
    kDeleteObject = 0x01F0,
    kSetTextColor = 0x0209,
    kSetWindowOrg = 0x020B,
    kSetWindowExt = 0x020C,
    kCreatePen = 0x02FA,
    kCreateFont = 0x02FB,
    kCreateBrush = 0x02FC,
    kPolyline = 0x0325,
    kIntersectClipRect = 0x0416,
    kPolyPolygon = 0x0538,
    kExtTextOut = 0x0A32
};

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kMostPoints = 32000;  // of one record
constexpr std::size_t kObjects = 8;

std::int32_t short16(std::int32_t value) {
    return std::clamp(value, -32768, 32767);
}

std::string utf8(const std::u16string& text) {
    std::string out;
    for (const char16_t c : text) {
        const auto u = static_cast<std::uint32_t>(c);
        if (u < 0x80) {
            out += static_cast<char>(u);
        } else if (u < 0x800) {
            out += static_cast<char>(0xC0 | u >> 6);
            out += static_cast<char>(0x80 | (u & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | u >> 12);
            out += static_cast<char>(0x80 | (u >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (u & 0x3F));
        }
    }
    return out;
}

class WmfWriter : public Writer {
  public:
    explicit WmfWriter(const MetaSize& size) : size_(size) {
        put(kSetMapMode, [](Bytes& b) { b.u16(kAnisotropic); });
        put_pair(kSetWindowOrg, 0, 0);
        put_pair(kSetWindowExt, size.height, size.width);
        put(kSetBkMode, [](Bytes& b) { b.u16(kTransparentBackground); });
        put(kSetTextAlign, [](Bytes& b) { b.u16(kAlignBaseline); });
        put(kSaveDc, [](Bytes&) {});
    }

    void polyline(std::span<const MetaPoint> points, const MetaPen& pen) override {
        use_pen(pen);
        // A line longer than a record goes on in the next one from the same point.
        for (std::size_t first = 0; first + 1 < points.size(); first += kMostPoints - 1) {
            const auto part = points.subspan(first, std::min(kMostPoints, points.size() - first));
            put(kPolyline, [&](Bytes& b) {
                b.u16(static_cast<std::uint32_t>(part.size()));
                for (const MetaPoint& p : part) put_point(b, p);
            });
        }
    }

    void fill(const std::vector<Polygon>& polygons, bool winding, Colour colour) override {
        std::vector<const Polygon*> used;
        for (const Polygon& polygon : polygons)
            if (polygon.size() >= 3 && polygon.size() <= kMostPoints) used.push_back(&polygon);
        if (used.empty()) return;
        use_no_pen();
        use_brush(on_paper(colour));
        use_mode(kSetPolyFillMode, winding ? kFillWinding : kFillAlternate, fill_mode_);
        const bool translucent = colour.a < 255;
        if (translucent) use_mode(kSetRop2, kMaskPen, rop_);
        put(kPolyPolygon, [&](Bytes& b) {
            b.u16(static_cast<std::uint32_t>(used.size()));
            for (const Polygon* polygon : used) b.u16(static_cast<std::uint32_t>(polygon->size()));
            for (const Polygon* polygon : used)
                for (const MetaPoint& p : *polygon) put_point(b, p);
        });
        if (translucent) use_mode(kSetRop2, kCopyPen, rop_);
    }

    void text(const MetaText& t) override {
        const std::string bytes = text::to_ansi(utf8(t.text));
        if (bytes.empty()) return;
        use_font(t.font);
        const std::uint32_t colour = color_ref(on_paper(t.colour));
        if (text_colour_ != colour) {
            text_colour_ = colour;
            put(kSetTextColor, [&](Bytes& b) { b.u32(colour); });
        }
        put(kExtTextOut, [&](Bytes& b) {
            b.i16(short16(t.baseline.y));
            b.i16(short16(t.baseline.x));
            b.u16(static_cast<std::uint32_t>(bytes.size()));
            b.u16(0);  // options
            for (const char c : bytes) b.u8(static_cast<std::uint8_t>(c));
            b.pad_to(2);
            for (const std::int32_t advance : t.advances) b.i16(short16(advance));
        });
    }

    void clip(const std::optional<MetaRect>& rect) override {
        put(kRestoreDc, [](Bytes& b) { b.i16(-1); });
        put(kSaveDc, [](Bytes&) {});
        forget_state();
        if (!rect) return;
        put(kIntersectClipRect, [&](Bytes& b) {
            b.i16(short16(rect->bottom));
            b.i16(short16(rect->right));
            b.i16(short16(rect->top));
            b.i16(short16(rect->left));
        });
    }

    /// Only characters of the code page 1252, one byte each.
    bool holds(const std::u16string& text) const override {
        const std::string bytes = text::to_ansi(utf8(text));
        const auto marks = [](const auto& s) { return std::count(s.begin(), s.end(), '?'); };
        return bytes.size() == text.size() && marks(bytes) == marks(text);
    }

    std::vector<std::uint8_t> finish() override {
        put(kRestoreDc, [](Bytes& b) { b.i16(-1); });
        put(kEof, [](Bytes&) {});
        Bytes file = placeable_header();
        constexpr std::uint32_t kHeaderWords = 9;
        file.u16(1);
        file.u16(kHeaderWords);
        file.u16(0x0300);
        file.u32(static_cast<std::uint32_t>(body_.size() / 2) + kHeaderWords);
        file.u16(kObjects);
        file.u32(largest_record_);
        file.u16(0);
        file.append(body_);
        return file.data();
    }

  private:
    template <class Fill>
    void put(Record function, Fill fill_in) {
        Bytes data;
        fill_in(data);
        data.pad_to(2);
        const auto words = static_cast<std::uint32_t>((data.size() + 6) / 2);
        largest_record_ = std::max(largest_record_, words);
        body_.u32(words);
        body_.u16(function);
        body_.append(data);
    }

    static void put_point(Bytes& b, const MetaPoint& p) {
        b.i16(short16(p.x));
        b.i16(short16(p.y));
    }
    void put_pair(Record function, std::int32_t first, std::int32_t second) {
        put(function, [&](Bytes& b) {
            b.i16(short16(first));
            b.i16(short16(second));
        });
    }
    void use_mode(Record function, std::uint32_t value, std::optional<std::uint32_t>& current) {
        if (current == value) return;
        current = value;
        put(function, [&](Bytes& b) { b.u16(value); });
    }

    /// A new object gets the lowest free place of the table, by which it is then known.
    template <class Fill>
    void exchange(std::optional<std::size_t>& place, Record create, Fill fill_in) {
        put(create, fill_in);
        const auto free = std::find(taken_.begin(), taken_.end(), false);
        const auto fresh = static_cast<std::size_t>(free - taken_.begin());
        taken_[fresh] = true;
        put(kSelectObject, [&](Bytes& b) { b.u16(static_cast<std::uint32_t>(fresh)); });
        if (place) {
            put(kDeleteObject, [&](Bytes& b) { b.u16(static_cast<std::uint32_t>(*place)); });
            taken_[*place] = false;
        }
        place = fresh;
    }

    void create_pen(std::uint32_t style, std::int32_t width, Colour colour) {
        exchange(pen_place_, kCreatePen, [&](Bytes& b) {
            b.u16(style);
            b.i16(short16(width));
            b.i16(0);
            b.u32(color_ref(colour));
        });
    }
    void use_pen(const MetaPen& pen) {
        if (pen_ == pen && !null_pen_) return;
        pen_ = pen;
        null_pen_ = false;
        create_pen(0, std::max(pen.width, 1), on_paper(pen.colour));
    }
    void use_no_pen() {
        if (null_pen_) return;
        null_pen_ = true;
        create_pen(kPenNull, 0, kWhite);
    }
    void use_brush(Colour colour) {
        if (brush_ == colour) return;
        brush_ = colour;
        exchange(brush_place_, kCreateBrush, [&](Bytes& b) {
            b.u16(kBrushSolid);
            b.u32(color_ref(colour));
            b.u16(0);  // hatch
        });
    }
    void use_font(const MetaFont& font) {
        if (font_ == font) return;
        font_ = font;
        exchange(font_place_, kCreateFont, [&](Bytes& b) {
            b.i16(short16(-font.height));
            b.i16(0);  // width of its own accord
            b.i16(font.tenth_degrees);
            b.i16(font.tenth_degrees);
            b.u16(font.bold ? kBoldWeight : kNormalWeight);
            b.u8(font.italic ? 1 : 0);
            b.zeros(7);  // no lines, character set 0, precisions, quality, pitch
            const std::string name = text::to_ansi(font.family).substr(0, 31);
            for (const char c : name) b.u8(static_cast<std::uint8_t>(c));
            b.u8(0);
        });
    }

    /// After a restore of the device context its initial objects are selected.
    void forget_state() {
        pen_.reset();
        null_pen_ = false;
        brush_.reset();
        font_.reset();
        fill_mode_.reset();
        rop_.reset();
        text_colour_.reset();
    }

    Bytes placeable_header() const {
        Bytes b;
        b.u32(kPlaceableKey);
        b.u16(0);
        b.i16(0);
        b.i16(0);
        b.i16(short16(size_.width));
        b.i16(short16(size_.height));
        b.u16(static_cast<std::uint32_t>(size_.units_per_inch));
        b.u32(0);
        // The check sum is the exclusive or of the ten words before it.
        std::uint32_t sum = 0;
        for (std::size_t i = 0; i < 20; i += 2)
            sum ^= static_cast<std::uint32_t>(b.data()[i] | b.data()[i + 1] << 8);
        b.u16(sum);
        return b;
    }

    MetaSize size_;
    Bytes body_;
    std::uint32_t largest_record_ = 0;
    std::array<bool, kObjects> taken_{};
    std::optional<std::size_t> pen_place_, brush_place_, font_place_;
    std::optional<MetaPen> pen_;
    bool null_pen_ = false;
    std::optional<Colour> brush_;
    std::optional<MetaFont> font_;
    std::optional<std::uint32_t> fill_mode_, rop_, text_colour_;
};

}  // namespace

std::unique_ptr<Writer> make_wmf_writer(const MetaSize& size) {
    return std::make_unique<WmfWriter>(size);
}

}  // namespace quor::chart::metafile
