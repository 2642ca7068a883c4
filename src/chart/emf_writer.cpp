#include <algorithm>
#include <cmath>

#include "chart/metafile_bytes.h"
#include "chart/metafile_writer.h"

namespace quor::chart::metafile {

namespace {

/// Record types of [MS-EMF] 2.1.1.
enum Record : std::uint32_t {
    kHeader = 1,
    kPolyline = 4,
    kPolyPolygon = 8,
    kSetWindowExt = 9,
    kSetWindowOrg = 10,
    kSetViewportExt = 11,
    kSetViewportOrg = 12,
    kEof = 14,
    kSetMapMode = 17,
    kSetBkMode = 18,
    kSetPolyFillMode = 19,
    kSetRop2 = 20,
    kSetTextAlign = 22,
    kSetTextColor = 24,
    kIntersectClipRect = 30,
    kSaveDc = 33,
    kRestoreDc = 34,
    kSelectObject = 37,
    kCreateBrush = 39,
    kDeleteObject = 40,
    kCreateFont = 82,
    kExtTextOut = 84,
    kExtCreatePen = 95
};

constexpr std::uint32_t kStockNullPen = 0x80000008;
constexpr std::uint32_t kGeometricPen = 0x00010000;
constexpr std::uint32_t kAdvancedGraphics = 2;
constexpr std::size_t kHeaderBytes = 108;

/// The objects of the picture live in pairs of handles, so that a new one is selected before the
/// old one goes.
enum class Object : std::uint32_t { Pen = 1, Brush = 3, Font = 5 };
constexpr std::uint32_t kHandles = 7;

std::uint32_t pen_style(const MetaPen& pen) {
    const std::uint32_t cap = pen.cap == Cap::Round ? 0U : pen.cap == Cap::Square ? 0x100U : 0x200U;
    const std::uint32_t join = pen.join == Join::Round   ? 0U
                               : pen.join == Join::Bevel ? 0x1000U
                                                         : 0x2000U;
    return kGeometricPen | cap | join;
}

std::u16string widened(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

void put_name(Bytes& out, const std::u16string& name, std::size_t characters) {
    for (std::size_t i = 0; i < characters; ++i)
        out.u16(i < name.size() && i + 1 < characters ? name[i] : 0U);
}

MetaRect bounds_of(std::span<const MetaPoint> points) {
    MetaRect box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const MetaPoint& p : points) {
        box.left = std::min(box.left, p.x);
        box.top = std::min(box.top, p.y);
        box.right = std::max(box.right, p.x);
        box.bottom = std::max(box.bottom, p.y);
    }
    return box;
}

class EmfWriter : public Writer {
  public:
    EmfWriter(const MetaSize& size, std::string title) : size_(size), title_(std::move(title)) {
        put(kSetMapMode, [](Bytes& b) { b.u32(kAnisotropic); });
        put_pair(kSetWindowOrg, 0, 0);
        put_pair(kSetWindowExt, size.width, size.height);
        put_pair(kSetViewportOrg, 0, 0);
        put_pair(kSetViewportExt, size.width, size.height);
        put(kSetBkMode, [](Bytes& b) { b.u32(kTransparentBackground); });
        put(kSetTextAlign, [](Bytes& b) { b.u32(kAlignBaseline); });
        put(kSaveDc, [](Bytes&) {});
    }

    void polyline(std::span<const MetaPoint> points, const MetaPen& pen) override {
        if (points.size() < 2) return;
        use_pen(pen);
        put(kPolyline, [&](Bytes& b) {
            put_rect(b, bounds_of(points));
            b.u32(static_cast<std::uint32_t>(points.size()));
            for (const MetaPoint& p : points) put_point(b, p);
        });
    }

    void fill(const std::vector<Polygon>& polygons, bool winding, Colour colour) override {
        std::size_t count = 0;
        Polygon all;
        for (const Polygon& polygon : polygons) {
            if (polygon.size() < 3) continue;
            ++count;
            all.insert(all.end(), polygon.begin(), polygon.end());
        }
        if (count == 0) return;
        use_no_pen();
        use_brush(on_paper(colour));
        use_mode(kSetPolyFillMode, winding ? kFillWinding : kFillAlternate, fill_mode_);
        const bool translucent = colour.a < 255;
        if (translucent) use_mode(kSetRop2, kMaskPen, rop_);
        put(kPolyPolygon, [&](Bytes& b) {
            put_rect(b, bounds_of(all));
            b.u32(static_cast<std::uint32_t>(count));
            b.u32(static_cast<std::uint32_t>(all.size()));
            for (const Polygon& polygon : polygons)
                if (polygon.size() >= 3) b.u32(static_cast<std::uint32_t>(polygon.size()));
            for (const MetaPoint& p : all) put_point(b, p);
        });
        if (translucent) use_mode(kSetRop2, kCopyPen, rop_);
    }

    void text(const MetaText& t) override {
        if (t.text.empty()) return;
        use_font(t.font);
        use_mode(kSetTextColor, color_ref(on_paper(t.colour)), text_colour_);
        put(kExtTextOut, [&](Bytes& b) {
            // Bounds of -1 leave them to the reader.
            put_rect(b, {0, 0, -1, -1});
            b.u32(kAdvancedGraphics);
            put_float(b, 1);
            put_float(b, 1);
            put_point(b, t.baseline);
            const auto characters = static_cast<std::uint32_t>(t.text.size());
            b.u32(characters);
            constexpr std::uint32_t kFixedPart = 76;
            b.u32(kFixedPart);
            b.u32(0);  // options
            put_rect(b, {0, 0, -1, -1});
            const std::uint32_t text_bytes = (characters * 2 + 3) / 4 * 4;
            b.u32(kFixedPart + text_bytes);
            for (const char16_t c : t.text) b.u16(c);
            b.pad_to(4);
            for (const std::int32_t advance : t.advances) b.i32(advance);
        });
    }

    void clip(const std::optional<MetaRect>& rect) override {
        put(kRestoreDc, [](Bytes& b) { b.i32(-1); });
        put(kSaveDc, [](Bytes&) {});
        forget_state();
        if (rect) put(kIntersectClipRect, [&](Bytes& b) { put_rect(b, *rect); });
    }

    bool holds(const std::u16string&) const override { return true; }

    std::vector<std::uint8_t> finish() override {
        put(kRestoreDc, [](Bytes& b) { b.i32(-1); });
        put(kEof, [](Bytes& b) {
            b.u32(0);   // palette entries
            b.u32(16);  // their offset
            b.u32(20);  // size of this record, again
        });
        Bytes file = header();
        file.append(body_);
        return file.data();
    }

  private:
    template <class Fill>
    void put(Record type, Fill fill_in) {
        Bytes data;
        fill_in(data);
        body_.u32(type);
        body_.u32(static_cast<std::uint32_t>(data.size() + 8));
        body_.append(data);
        ++records_;
    }

    static void put_point(Bytes& b, const MetaPoint& p) {
        b.i32(p.x);
        b.i32(p.y);
    }
    static void put_rect(Bytes& b, const MetaRect& r) {
        b.i32(r.left);
        b.i32(r.top);
        b.i32(r.right);
        b.i32(r.bottom);
    }
    static void put_float(Bytes& b, float value) {
        std::uint32_t bits = 0;
        static_assert(sizeof bits == sizeof value);
        std::copy_n(reinterpret_cast<const char*>(&value), sizeof bits,
                    reinterpret_cast<char*>(&bits));
        b.u32(bits);
    }
    void put_pair(Record type, std::int32_t x, std::int32_t y) {
        put(type, [&](Bytes& b) {
            b.i32(x);
            b.i32(y);
        });
    }

    void use_mode(Record type, std::uint32_t value, std::optional<std::uint32_t>& current) {
        if (current == value) return;
        current = value;
        put(type, [&](Bytes& b) { b.u32(value); });
    }

    /// Creates an object under the free handle of its pair, selects it and deletes the other.
    template <class Fill>
    void exchange(Object object, Record create, Fill fill_in) {
        const auto first = static_cast<std::uint32_t>(object);
        const std::size_t pair = (first - 1) / 2;
        const std::uint32_t old = handle_[pair];
        const std::uint32_t fresh = old == first ? first + 1 : first;
        put(create, [&](Bytes& b) {
            b.u32(fresh);
            fill_in(b);
        });
        select(fresh);
        if (old != 0) put(kDeleteObject, [&](Bytes& b) { b.u32(old); });
        handle_[pair] = fresh;
    }

    void select(std::uint32_t handle) {
        put(kSelectObject, [&](Bytes& b) { b.u32(handle); });
    }

    void use_pen(const MetaPen& pen) {
        if (pen_ == pen && !null_pen_) return;
        null_pen_ = false;
        pen_ = pen;
        exchange(Object::Pen, kExtCreatePen, [&](Bytes& b) {
            b.zeros(16);  // no bitmap
            b.u32(pen_style(pen));
            b.i32(std::max(pen.width, 1));
            b.u32(kBrushSolid);
            b.u32(color_ref(on_paper(pen.colour)));
            b.u32(0);  // hatch
            b.u32(0);  // style entries
        });
    }

    void use_no_pen() {
        if (null_pen_) return;
        null_pen_ = true;
        select(kStockNullPen);
    }

    void use_brush(Colour colour) {
        if (brush_ == colour) return;
        brush_ = colour;
        exchange(Object::Brush, kCreateBrush, [&](Bytes& b) {
            b.u32(kBrushSolid);
            b.u32(color_ref(colour));
            b.u32(0);  // hatch
        });
    }

    void use_font(const MetaFont& font) {
        if (font_ == font) return;
        font_ = font;
        exchange(Object::Font, kCreateFont, [&](Bytes& b) {
            b.i32(-font.height);
            b.i32(0);  // width of its own accord
            b.i32(font.tenth_degrees);
            b.i32(font.tenth_degrees);
            b.u32(font.bold ? kBoldWeight : kNormalWeight);
            b.u8(font.italic ? 1 : 0);
            b.u8(0);     // underline
            b.u8(0);     // strike out
            b.u8(1);     // default character set
            b.zeros(4);  // precisions, quality, pitch
            const std::u16string name = widened(font.family);
            put_name(b, name, 32);
            put_name(b, name, 64);
            b.zeros(64 + 24 + 12);  // style name, numbers, panose
        });
    }

    /// After a restore of the device context its initial objects are selected.
    void forget_state() {
        pen_.reset();
        brush_.reset();
        font_.reset();
        fill_mode_.reset();
        rop_.reset();
        text_colour_.reset();
        null_pen_ = false;
    }

    Bytes header() const {
        // The reference device has as many dots an inch as the picture has units: 15 inches.
        constexpr std::int32_t kDeviceMillimetres = 381;
        const std::int32_t device_pixels = 15 * size_.units_per_inch;
        const auto hundredths = [&](std::int32_t units) {
            return static_cast<std::int32_t>(std::lround(units * 2540.0 / size_.units_per_inch));
        };
        std::u16string description = u"QUOR-6";
        description += u'\0';
        description += widened(title_);
        description += u'\0';
        description += u'\0';
        const std::size_t description_bytes = (description.size() * 2 + 3) / 4 * 4;
        const std::size_t header_size = kHeaderBytes + description_bytes;
        Bytes b;
        b.u32(kHeader);
        b.u32(static_cast<std::uint32_t>(header_size));
        put_rect(b, {0, 0, size_.width - 1, size_.height - 1});
        put_rect(b, {0, 0, hundredths(size_.width), hundredths(size_.height)});
        b.u32(0x464D4520);  // " EMF"
        b.u32(0x00010000);
        b.u32(static_cast<std::uint32_t>(header_size + body_.size()));
        b.u32(records_ + 1);
        b.u16(kHandles);
        b.u16(0);
        b.u32(static_cast<std::uint32_t>(description.size()));
        b.u32(static_cast<std::uint32_t>(kHeaderBytes));
        b.u32(0);  // palette entries
        b.i32(device_pixels);
        b.i32(device_pixels);
        b.i32(kDeviceMillimetres);
        b.i32(kDeviceMillimetres);
        b.zeros(12);  // no pixel format, no OpenGL records
        b.i32(kDeviceMillimetres * 1000);
        b.i32(kDeviceMillimetres * 1000);
        for (const char16_t c : description) b.u16(c);
        b.pad_to(4);
        return b;
    }

    MetaSize size_;
    std::string title_;
    Bytes body_;
    std::uint32_t records_ = 0;
    std::uint32_t handle_[3] = {0, 0, 0};
    std::optional<MetaPen> pen_;
    bool null_pen_ = false;
    std::optional<Colour> brush_;
    std::optional<MetaFont> font_;
    std::optional<std::uint32_t> fill_mode_, rop_, text_colour_;
};

}  // namespace

std::unique_ptr<Writer> make_emf_writer(const MetaSize& size, const std::string& title) {
    return std::make_unique<EmfWriter>(size, title);
}

}  // namespace quor::chart::metafile
