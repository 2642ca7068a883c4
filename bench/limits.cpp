// Does one thing at one size, for tools/measure-limits, which takes the time and the memory:
//   measure_limits CASE N
#include <QApplication>
#include <QImage>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include "chart/chart_file.h"
#include "datafiles/database.h"
#include "datafiles/database_table.h"
#include "datafiles/measured_data.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"
#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/data/substance_list_model.h"
#include "gui/data/xy_editor.h"
#include "gui/widgets/desk.h"
#include "session/session.h"

using namespace quor;

namespace {

std::vector<datafiles::FitPoint> points_of(std::size_t n) {
    std::vector<datafiles::FitPoint> points(n);
    for (std::size_t i = 0; i < n; ++i) {
        points[i].x = 200 + 1e-3F * static_cast<float>(i);
        points[i].y = 0.5F * points[i].x;
    }
    return points;
}

std::size_t xy_file(std::size_t n) {
    const std::string text = datafiles::xy_text("comment", points_of(n), ';');
    return datafiles::read_xy_text(text, ';').data.points.size();
}

std::size_t baq_file(std::size_t n) {
    datafiles::MeasuredData data;
    data.points.resize(n);
    for (std::size_t i = 0; i < n; ++i) data.points[i].T = 200 + 1e-3 * static_cast<double>(i);
    const std::string text = datafiles::measured_data_text(data, "01.01.2030");
    const auto read = datafiles::read_measured_data(text, "limits.BAQ");
    return read ? read->data.points.size() : 0;
}

datafiles::Database database_of(std::size_t n) {
    std::vector<datafiles::SubstanceFileRecord> records(n);
    for (std::size_t i = 0; i < n; ++i)
        datafiles::set_field_text(records[i].name_english, "Substance " + std::to_string(i));
    const auto file = std::filesystem::temp_directory_path() / "quor-limits.Q05";
    const std::string bytes = datafiles::database_bytes(records);
    std::ofstream(file, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    auto database = datafiles::Database::open(file);
    std::filesystem::remove(file);
    return database ? *database : datafiles::Database();
}

std::size_t database(std::size_t n) {
    const datafiles::Database opened = database_of(n);
    std::size_t found = 0;
    for (std::size_t i = 0; i < opened.size(); ++i)
        found += opened.place_of_name("Substance " + std::to_string(i)) == i;
    return found;
}

/// A sheet of that many curves of 1,000 points: painted, saved and loaded.
chart::Chart2D sheet_of(std::size_t curves) {
    chart::Chart2D sheet;
    sheet.x.automatic = sheet.y.automatic = true;
    for (std::size_t k = 0; k < curves; ++k) {
        sheet.curves.push_back(chart::default_curve(static_cast<int>(k)));
        for (int i = 0; i < 1000; ++i) {
            const double x = 0.01 * i;
            sheet.curves.back().x.push_back(static_cast<float>(x));
            sheet.curves.back().y.push_back(
                static_cast<float>(std::sin(x) + 0.01 * static_cast<double>(k)));
        }
    }
    return sheet;
}

std::size_t paint_sheet(std::size_t n) {
    const chart::Chart2D sheet = sheet_of(n);
    QImage image(900, 650, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    chart::paintChart2D(painter, QRectF(0, 0, 900, 650), sheet);
    return sheet.curves.size();
}

std::size_t save_sheet(std::size_t n) {
    const chart::Chart2D sheet = sheet_of(n);
    chart::Chart2D read;
    return chart::from_text(chart::to_text(sheet), read) && read == sheet ? n : 0;
}

std::size_t xy_editor(std::size_t n) {
    session::Session session;
    session.change()->xy.points = points_of(n);
    gui::Desk desk(session);
    gui::XyEditor editor(desk);
    editor.resize(900, 600);
    editor.show();
    QApplication::processEvents();
    return n;
}

std::size_t substance_list(std::size_t n) {
    const datafiles::Database opened = database_of(n);
    const gui::SubstanceListModel model(opened);
    std::size_t rows = 0;
    for (int row = 0; row < model.rowCount({}); ++row)
        rows += model.index(row, 0).data().toString().isEmpty() ? 0 : 1;
    return rows;
}

std::size_t windows(std::size_t n) {
    QMdiArea area;
    area.resize(1600, 1000);
    std::vector<chart::Chart2D> sheets(n, sheet_of(10));
    for (chart::Chart2D& sheet : sheets) {
        auto* window = area.addSubWindow(new chart::Chart2DWidget(sheet));
        window->resize(700, 500);
        window->show();
    }
    area.show();
    QApplication::processEvents();
    return static_cast<std::size_t>(area.subWindowList().size());
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication program(argc, argv);
    const std::map<std::string, std::function<std::size_t(std::size_t)>> cases{
        {"xy", xy_file},          {"baq", baq_file},      {"database", database},
        {"list", substance_list}, {"paint", paint_sheet}, {"sheet", save_sheet},
        {"editor", xy_editor},    {"windows", windows}};
    const std::string name = argc == 3 ? argv[1] : "", size = argc == 3 ? argv[2] : "";
    std::size_t n = 0;
    std::from_chars(size.data(), size.data() + size.size(), n);
    const auto found = cases.find(name);
    if (found == cases.end() || n == 0) {
        std::fputs("usage: measure_limits CASE N\n", stderr);
        return 2;
    }
    if (found->second(n) == n) return 0;
    std::fputs("not all of it came back\n", stderr);
    return 1;
}
