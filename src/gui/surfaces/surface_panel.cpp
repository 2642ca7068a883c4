#include "gui/surfaces/surface_panel.h"

#include <QFormLayout>
#include <QGroupBox>

#include "gui/widgets/form.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

SurfacePanel::SurfacePanel(diagrams::SurfaceSheet& sheet, QWidget* parent)
    : DesignControls(parent), sheet_(sheet) {
    surfacePage();
    sectionPage();
    axisPage();
    textPage();
    viewPage();
    follow();
}

void SurfacePanel::follow() {
    loading_ = true;
    for (const Load& load : loads_) load();
    loading_ = false;
}

QFormLayout* SurfacePanel::group(QFormLayout* into, const QString& title, const QString& name) {
    QGroupBox* box = form::frame(title, name);
    auto* layout = new QFormLayout(box);
    layout->setHorizontalSpacing(theme::kGap);
    layout->setVerticalSpacing(theme::kGap);
    layout->setLabelAlignment(Qt::AlignRight);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    into->addRow(box);
    return layout;
}

void SurfacePanel::surfacePage() {
    QFormLayout* into = page("surface", "Surface");
    chart::SurfaceStyle& s = sheet_.chart.style;
    chart::Mesh3D& m = sheet_.chart.mesh;
    QFormLayout* style = group(into, "Style", "fraStyle");
    check(style, "solid", "chkSolid", [&s] { return &s.solid; });
    check(style, "shaded", "chkShaded", [&s] { return &s.shaded; });
    check(style, "transparent", "chkTransparent", [&s] { return &s.transparent; });
    colour(style, "Upper side", "cmdTopColour", [&s] { return &s.top; });
    colour(style, "Lower side", "cmdBottomColour", [&s] { return &s.bottom; });

    QFormLayout* mesh = group(into, "Mesh lines", "fraMesh");
    check(mesh, "lines x = const", "chkXMesh", [&m] { return &m.x; });
    check(mesh, "lines y = const", "chkYMesh", [&m] { return &m.y; });
    // On the surfaces over v the lines x = const are isochores; over T the lines y = const are
    // isotherms.
    check(mesh, "every second line x = const", "chkIsochorenHalbe", [&m] { return &m.halved_x; });
    check(mesh, "every second line y = const", "chkIsothermenHalbe", [&m] { return &m.halved_y; });
    colour(mesh, "Colour", "cmdMeshColour", [&m] { return &m.colour; });
    number(
        mesh, "Width", "UpDown_MeshWidth", 0.2, 4, 0.2,
        [&m] { return static_cast<double>(m.width); },
        [&m](double value) { m.width = static_cast<float>(value); });
}

void SurfacePanel::sectionPage() {
    QFormLayout* into = page("sections", "Sections");
    chart::SurfaceStyle& s = sheet_.chart.style;
    chart::Sections3D& sections = sheet_.chart.sections;
    QFormLayout* levels = group(into, "Sections Z = const ", "fraSections");
    check(levels, "lines (contoured)", "chkContoured", [&s] { return &s.contoured; });
    check(levels, "colours (zoned)", "chkZoned", [&s] { return &s.zoned; });
    number(
        levels, "Number of sections", "UpDown_Sections", 1, 200, 1,
        [&sections] { return sections.number; },
        [&sections](double value) { sections.number = static_cast<int>(value); });
    colour(levels, "Line colour", "cmdSectionColour",
           [&sections] { return &sections.line.colour; });
    number(
        levels, "Line width", "UpDown_SectionWidth", 0.2, 6, 0.2,
        [&sections] { return static_cast<double>(sections.line.width); },
        [&sections](double value) { sections.line.width = static_cast<float>(value); });
    check(levels, "scale of colours", "chkLegend", [this] { return &sheet_.chart.scale_shown; });

    QFormLayout* projection = group(into, "Projection of the Z-sections", "fraProjection");
    check(projection, "lines on the ceiling", "chkCeilingCont",
          [&s] { return &s.ceiling_contours; });
    check(projection, "colours on the ceiling", "chkCeilingZon", [&s] { return &s.ceiling_zones; });
    check(projection, "lines on the floor", "chkFloorCont", [&s] { return &s.floor_contours; });
    check(projection, "colours on the floor", "chkFloorZon", [&s] { return &s.floor_zones; });
    check(projection, "2D projection only", "chk2Dprojection", [&s] { return &s.projection_2d; });
}

void SurfacePanel::axisPage() {
    QFormLayout* into = page("axes", "Axes");
    struct Plane {
        const char* caption;
        const char* name;
        bool chart::Axis3D::*flag;
    };
    struct Row {
        const char* letter;
        chart::Axis3D chart::Chart3D::*axis;
        std::array<Plane, 2> planes;
    };
    using chart::Axis3D;
    using chart::Chart3D;
    const std::array<Row, 3> rows{
        {{"X",
          &Chart3D::x,
          {{{"grid on the plane X-Y", "ChkXGrid_XY", &Axis3D::grid_xy},
            {"grid on the plane X-Z", "chkXGrid_XZ", &Axis3D::grid_xz}}}},
         {"Y",
          &Chart3D::y,
          {{{"grid on the plane X-Y", "chkYGrid_XY", &Axis3D::grid_xy},
            {"grid on the plane Y-Z", "chkYGrid_YZ", &Axis3D::grid_yz}}}},
         {"Z",
          &Chart3D::z,
          {{{"grid on the plane X-Z", "chkZGrid_XZ", &Axis3D::grid_xz},
            {"grid on the plane Y-Z", "chkZGrid_YZ", &Axis3D::grid_yz}}}}}};
    for (const Row& row : rows) {
        const QString letter = row.letter;
        Axis3D& axis = sheet_.chart.*row.axis;
        QFormLayout* box = group(into, letter + " axis", "fra" + letter + "Axis");
        text(box, "Title", "txt" + letter + "Title", [&axis] { return &axis.title; });
        for (const Plane& plane : row.planes)
            check(box, plane.caption, plane.name,
                  [&axis, flag = plane.flag] { return &(axis.*flag); });
        choice(
            box, "Decimals", "cmb" + letter + "Digits",
            {"automatic", "0", "1", "2", "3", "4", "5", "6"},
            [&axis] { return std::clamp(axis.decimals, -1, 6) + 1; },
            [&axis](int index) { axis.decimals = index - 1; });
    }
    chart::Chart3D& c = sheet_.chart;
    font(into, "Titles", "cmdTitleFont", [&c] { return &c.title_font; });
    font(into, "Numbers", "cmdNumberFont", [&c] { return &c.number_font; });
    colour(into, "Grid", "cmdGridColour", [&c] { return &c.grid.colour; });
}

void SurfacePanel::textPage() {
    QFormLayout* into = page("texts", "Texts");
    struct Row {
        const char* caption;
        const char* name;
        chart::Caption chart::Chart3D::*text;
    };
    for (const Row& row : {Row{"Header", "Header", &chart::Chart3D::header},
                           Row{"Subtitle", "Subtitle", &chart::Chart3D::subtitle},
                           Row{"Footer", "Footer", &chart::Chart3D::footer}}) {
        chart::Caption& caption = sheet_.chart.*row.text;
        const QString name = row.name;
        text(
            into, row.caption, "txt" + name, [&caption] { return &caption.text; }, true);
        font(into, "", "cmd" + name + "Font", [&caption] { return &caption.font; });
        colour(into, "", "cmd" + name + "Colour", [&caption] { return &caption.colour; });
    }
}

void SurfacePanel::viewPage() {
    QFormLayout* into = page("view", "View");
    chart::Chart3D& c = sheet_.chart;
    check(into, "perspective", "chkPerspective", [&c] { return &c.view.perspective; });
    const auto angle = [&](const char* caption, const char* name, double limit,
                           double chart::View3D::*field) {
        number(
            into, caption, name, -limit, limit, 5, [&c, field] { return c.view.*field; },
            [&c, field](double value) { c.view.*field = value; });
    };
    angle("Elevation", "UpDown_Elevation", 90, &chart::View3D::elevation);
    angle("Rotation", "UpDown_Rotation", 180, &chart::View3D::rotation);
    number(
        into, "Zoom", "UpDown_Zoom", 0.2, 8, 0.1, [&c] { return c.view.zoom; },
        [&c](double value) { c.view.zoom = value; });
    number(
        into, "Height of the box", "UpDown_Height", 0.1, 5, 0.1, [&c] { return c.height_ratio; },
        [&c](double value) { c.height_ratio = value; });
    colour(into, "Sheet", "cmdSheetColour", [&c] { return &c.sheet; });
    colour(into, "Planes", "cmdPlaneColour", [&c] { return &c.planes; });
    printPlace(into, [&c] { return &c.print; });
}

}  // namespace quor::gui
