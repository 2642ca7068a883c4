#include "chart/chart_file.h"

#include <set>
#include <tuple>
#include <type_traits>

#include "chart/chart_json.h"
#include "common/whole_file.h"

namespace quor::chart {

namespace files {

template <class Io>
void describe(Io& io, CurveLabel& l) {
    io.field("text", l.text);
    io.field("shown", l.shown);
    io.field("shift", l.shift, -1, 1);
    // Written where it says something: charts without such labels stay as they were.
    if (!std::is_same_v<Io, JsonWriter> || l.on_line) io.field("onLine", l.on_line);
}

template <class Io>
void describe(Io& io, Series& s) {
    io.field("legend", s.legend);
    io.field("inLegend", s.in_legend);
    io.field("visible", s.visible);
    io.field("isReference", s.is_reference);
    io.field("x", s.x);
    io.field("y", s.y);
    io.field("line", s.line);
    io.field("symbol", s.symbol);
    io.field("symbolSize", s.symbol_size, 0, 200);
    io.field("symbolColour", s.symbol_colour);
    io.field("label", s.label);
}

template <class Io>
void describe(Io& io, Axis& a) {
    io.field("min", a.min);
    io.field("max", a.max);
    io.field("automatic", a.automatic);
    io.field("logarithmic", a.logarithmic);
    io.field("origin", a.origin);
    io.field("automaticOrigin", a.automatic_origin);
    io.field("tickSpacing", a.tick_spacing, 0, kMaxNumber);
    io.field("gridSpacing", a.grid_spacing, 0, kMaxNumber);
    io.field("decimals", a.decimals, -1, 15);
    io.field("shown", a.shown);
    io.field("title", a.title);
    io.field("titleFont", a.title_font);
    io.field("titleColour", a.title_colour);
    io.field("titleRotation", a.title_rotation, -360, 360);
    io.field("numberFont", a.number_font);
    io.field("colour", a.colour);
    io.field("gridShown", a.grid_shown);
    io.field("grid", a.grid);
}

template <class Io>
void describe(Io& io, Legend& l) {
    io.field("shown", l.shown);
    io.field("anchor", l.anchor);
    io.field("place", l.place);
    io.field("vertical", l.vertical);
    io.field("font", l.font);
    io.field("textColour", l.text_colour);
    io.field("background", l.background);
    io.field("frame", l.frame);
}

template <class Io>
void describe(Io& io, Label& l) {
    io.field("index", l.index);
    io.field("onPoint", l.on_point);
    io.field("group", l.group);
    io.field("series", l.series);
    io.field("point", l.point);
    io.field("x", l.x);
    io.field("y", l.y);
    io.field("text", l.text);
    io.field("font", l.font);
    io.field("textColour", l.text_colour);
    io.field("background", l.background);
    io.field("frame", l.frame);
    io.field("dx", l.dx, -10000, 10000);
    io.field("dy", l.dy, -10000, 10000);
    io.field("rotation", l.rotation, -360, 360);
    io.field("connector", l.connector);
    io.field("shown", l.shown);
}

template <class Io>
void describe(Io& io, PlotArea& p) {
    io.field("automatic", p.automatic);
    io.field("left", p.left, 0, 1);
    io.field("top", p.top, 0, 1);
    io.field("width", p.width, 0, 1);
    io.field("height", p.height, 0, 1);
    io.field("background", p.background);
    io.field("sheet", p.sheet);
    io.field("border", p.border);
    io.field("sheetBorder", p.sheet_border);
}

template <class Io>
void describe(Io& io, Chart2D& c) {
    io.field("curves", c.curves);
    io.field("points", c.points);
    io.field("x", c.x);
    io.field("y", c.y);
    io.field("y2", c.y2);
    io.field("header", c.header);
    io.field("footer", c.footer);
    io.field("legend", c.legend);
    io.field("labelsShown", c.labels_shown);
    io.field("labels", c.labels);
    io.field("plotArea", c.plot_area);
    io.field("print", c.print);
    io.field("swapped", c.swapped);
}

template <class Io>
void describe(Io& io, SurfaceGrid& g) {
    io.field("nx", g.nx);
    io.field("ny", g.ny);
    io.field("x0", g.x0);
    io.field("dx", g.dx);
    io.field("y0", g.y0);
    io.field("dy", g.dy);
    io.field("hole", g.hole);
    io.field("z", g.z);
    io.field("zBehindHoles", g.z_behind_holes);
}

template <class Io>
void describe(Io& io, Axis3D& a) {
    io.field("min", a.min);
    io.field("max", a.max);
    io.field("automatic", a.automatic);
    io.field("title", a.title);
    io.field("decimals", a.decimals, -1, 15);
    io.field("gridXY", a.grid_xy);
    io.field("gridXZ", a.grid_xz);
    io.field("gridYZ", a.grid_yz);
}

template <class Io>
void describe(Io& io, View3D& v) {
    io.field("elevation", v.elevation, -90, 90);
    io.field("rotation", v.rotation, -360, 360);
    io.field("perspective", v.perspective);
    io.field("zoom", v.zoom, 0.2, 8);
}

template <class Io>
void describe(Io& io, Mesh3D& m) {
    io.field("x", m.x);
    io.field("y", m.y);
    io.field("halvedX", m.halved_x);
    io.field("halvedY", m.halved_y);
    io.field("colour", m.colour);
    io.field("width", m.width, 0, 50);
}

template <class Io>
void describe(Io& io, SurfaceStyle& s) {
    io.field("solid", s.solid);
    io.field("shaded", s.shaded);
    io.field("transparent", s.transparent);
    io.field("contoured", s.contoured);
    io.field("zoned", s.zoned);
    io.field("ceilingContours", s.ceiling_contours);
    io.field("ceilingZones", s.ceiling_zones);
    io.field("floorContours", s.floor_contours);
    io.field("floorZones", s.floor_zones);
    io.field("projection2D", s.projection_2d);
    io.field("top", s.top);
    io.field("bottom", s.bottom);
}

template <class Io>
void describe(Io& io, Sections3D& s) {
    io.field("number", s.number, 1, 200);
    io.field("line", s.line);
}

template <class Io>
void describe(Io& io, Marker3D& m) {
    io.field("x", m.x);
    io.field("y", m.y);
    io.field("z", m.z);
    io.field("text", m.text);
    io.field("colour", m.colour);
    io.field("size", m.size, 0, 200);
    io.field("shown", m.shown);
}

template <class Io>
void describe(Io& io, Chart3D& c) {
    io.field("surface", c.surface);
    io.field("x", c.x);
    io.field("y", c.y);
    io.field("z", c.z);
    io.field("view", c.view);
    io.field("mesh", c.mesh);
    io.field("style", c.style);
    io.field("sections", c.sections);
    io.field("markers", c.markers);
    io.field("header", c.header);
    io.field("footer", c.footer);
    io.field("subtitle", c.subtitle);
    io.field("titleFont", c.title_font);
    io.field("numberFont", c.number_font);
    io.field("scaleShown", c.scale_shown);
    io.field("heightRatio", c.height_ratio, 0.1, 5);
    io.field("sheet", c.sheet);
    io.field("planes", c.planes);
    io.field("grid", c.grid);
    io.field("print", c.print);
}

namespace {

/// What a chart holds altogether. A painting takes as long as there are points, texts and fonts to
/// measure, however they are spread over the chart.
class Census {
  public:
    void field(const char*, std::string& text) { text_ += text.size(); }
    void field(const char*, std::vector<float>& values) { values_ += values.size(); }
    void field(const char*, Font& font) {
        fonts_.insert({font.family, std::lround(font.size), font.bold, font.italic});
    }
    template <class T>
    void field(const char* name, T& value, double, double) {
        field(name, value);
    }
    template <class T>
    void field(const char* name, std::vector<T>& values) {
        for (T& value : values) field(name, value);
    }
    template <class T>
    void field(const char*, T& value) {
        if constexpr (kIsRecord<T>) describe(*this, value);
    }

    void check() const {
        if (values_ > kMostValues)
            throw BadField("The diagram has more than " + std::to_string(kMostValues / 2) +
                           " points.");
        if (text_ > kMostText)
            throw BadField("The texts of the diagram are longer than " + std::to_string(kMostText) +
                           " characters together.");
        if (fonts_.size() > kMostFonts)
            throw BadField("The diagram uses more than " + std::to_string(kMostFonts) +
                           " different fonts.");
    }

  private:
    static constexpr std::size_t kMostValues = 2000000, kMostText = 60000, kMostFonts = 60;
    template <class T>
    static constexpr bool kIsRecord =
        std::is_class_v<T> && !std::is_same_v<T, Colour> && !std::is_same_v<T, std::string>;

    std::size_t text_ = 0, values_ = 0;
    std::set<std::tuple<std::string, long, bool, bool>> fonts_;
};

}  // namespace

}  // namespace files

namespace {

using files::BadField;

constexpr files::Format kFormat2D{"QUOR-6 2D diagram", 1, 0};
constexpr std::size_t kMostMarkers = 20;  // each is looked for behind the whole surface

constexpr files::Format kFormat3D{"QUOR-6 3D diagram", 1, 0};

const files::Format& format_of(const Chart2D&) {
    return kFormat2D;
}
const files::Format& format_of(const Chart3D&) {
    return kFormat3D;
}

template <class Chart>
void check_amount(Chart& chart) {
    files::Census census;
    files::describe(census, chart);
    census.check();
}

/// A distance of ticks or grid lines must be one that numbers of the axis' window tell apart.
void check_spacing(const Axis& axis, const char* name) {
    constexpr double kFinest = 1e-12;  // of the window's limits
    if (axis.automatic) return;
    const double largest = std::max(std::abs(axis.min), std::abs(axis.max));
    const auto check = [&](double spacing, const char* field) {
        if (spacing > 0 && spacing < kFinest * largest)
            throw BadField("\"" + std::string(name) + ", " + field +
                           "\" is too small for the limits of its axis.");
    };
    check(axis.tick_spacing, "tickSpacing");
    check(axis.grid_spacing, "gridSpacing");
}

void check_series(const std::vector<Series>& group) {
    for (const Series& series : group)
        if (series.x.size() != series.y.size())
            throw BadField("The file is damaged: a series has not as many x as y values.");
}

void check(Chart2D& chart) {
    check_series(chart.curves);
    check_series(chart.points);
    check_spacing(chart.x, "x");
    check_spacing(chart.y, "y");
    check_spacing(chart.y2, "y2");
    check_amount(chart);
}

void check(Chart3D& chart) {
    check_amount(chart);
    if (chart.markers.size() > kMostMarkers)
        throw BadField("The diagram has more than " + std::to_string(kMostMarkers) + " markers.");
    const SurfaceGrid& grid = chart.surface;
    const bool sized = grid.nx >= 0 && grid.ny >= 0 && grid.nx <= SurfaceGrid::kMaxNodes &&
                       grid.ny <= SurfaceGrid::kMaxNodes;
    if (!sized) throw BadField("The file is damaged: the grid has no size that a chart holds.");
    const auto nodes = static_cast<std::size_t>(grid.nx) * static_cast<std::size_t>(grid.ny);
    if (grid.z.size() != nodes ||
        (!grid.z_behind_holes.empty() && grid.z_behind_holes.size() != nodes))
        throw BadField("The file is damaged: the grid has not as many values as nodes.");
    if (nodes > 0 && !(grid.dx > 0 && grid.dy > 0))
        throw BadField("The file is damaged: the steps of the grid are not above 0.");
}

template <class Chart>
std::string text_of(Chart chart) {
    files::JsonWriter writer;
    describe(writer, chart);
    return files::document(format_of(chart), writer.take());
}

template <class Chart>
void read_text(std::string_view text, Chart& chart) {
    const files::Json content = files::content_of(format_of(chart), text);
    Chart read;
    files::JsonReader reader(content, "");
    describe(reader, read);
    check(read);
    chart = std::move(read);
}

/// Runs an action on a file and turns what goes wrong into an outcome with the file's name.
template <class Action>
Result<void> guarded(Action action, const std::filesystem::path& file = {}) {
    const auto failed = [&](const std::string& reason) {
        const std::string name = file.empty() ? "" : file.filename().string() + ": ";
        return Result<void>(Failure{name + reason});
    };
    try {
        action();
        return {};
    } catch (const BadField& fault) {
        return failed(fault.what());
    } catch (const std::bad_alloc&) {
        return failed("Not enough memory for the diagram.");
    } catch (const std::exception&) {
        return failed("The file is damaged.");
    }
}

template <class Chart>
Result<void> load(const std::filesystem::path& file, Chart& chart) {
    return guarded([&] { read_text(files::read_whole(file), chart); }, file);
}

/// A file that could not be read again would lose what is in it.
template <class Chart>
Result<std::string> readable(const Chart& chart) {
    std::string text = text_of(chart);
    Chart again;
    if (const Result<void> read = guarded([&] { read_text(text, again); }); !read)
        return Failure{"The diagram cannot be saved as a file. " + read.reason()};
    return text;
}

}  // namespace

std::string to_text(const Chart2D& chart) {
    return text_of(chart);
}
std::string to_text(const Chart3D& chart) {
    return text_of(chart);
}

Result<void> from_text(std::string_view text, Chart2D& chart) {
    return guarded([&] { read_text(text, chart); });
}
Result<void> from_text(std::string_view text, Chart3D& chart) {
    return guarded([&] { read_text(text, chart); });
}

Result<std::string> file_text(const Chart2D& chart) {
    return readable(chart);
}
Result<std::string> file_text(const Chart3D& chart) {
    return readable(chart);
}

Result<void> load_chart(const std::filesystem::path& file, Chart2D& chart) {
    return load(file, chart);
}
Result<void> load_chart(const std::filesystem::path& file, Chart3D& chart) {
    return load(file, chart);
}

}  // namespace quor::chart
