#include <QPainter>

#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "diagrams/surface_sheet.h"
#include "gui/chart/chart3d_paint.h"
#include "gui/surfaces/surface_window.h"
#include "screens/look.h"

using namespace quor;
using namespace quor::gui;

namespace {

constexpr QSize kCell(620, 480);
constexpr int kColumns = 3;

/// A way in which a surface is shown.
struct Look {
    const char* name;
    void (*apply)(chart::Chart3D&);
};

constexpr Look kLooks[] = {
    {"as it opens", [](chart::Chart3D&) {}},
    {"zones and contours",
     [](chart::Chart3D& c) {
         c.style.zoned = c.style.contoured = true;
         c.style.floor_contours = true;
         c.mesh.x = c.mesh.y = false;
         turn(c.view, 80, 8);
     }},
    {"transparent, ceiling",
     [](chart::Chart3D& c) {
         c.style.transparent = c.style.ceiling_contours = c.style.ceiling_zones = true;
         c.mesh.halved_x = c.mesh.halved_y = true;
         c.view.perspective = false;
         turn(c.view, 160, -5);
     }},
    {"mesh only",
     [](chart::Chart3D& c) {
         c.style.solid = false;
         turn(c.view, -110, 10);
     }},
    {"from below", [](chart::Chart3D& c) { c.view.elevation = -20; }},
    {"map", [](chart::Chart3D& c) { c.style.projection_2d = c.style.contoured = true; }},
};

/// Every surface of the menu for a fluid, in several views and styles.
class SurfaceSheets : public ActiveFluid {
  protected:
    void sheets(const std::string& substanceName, const QString& name,
                std::int16_t code = kPengRobinson) {
        activate(substanceName, code);
        for (const menu::Row& row : menu::graph_rows()) {
            if (row.action != "Diagram3D") continue;
            for (const bool s_curve : {false, true}) {
                if (s_curve && row.code != 1 && row.code != 4) continue;
                kind(row.code, s_curve,
                     QString("surface_%1_%2%3")
                         .arg(name)
                         .arg(row.code)
                         .arg(s_curve ? "_s_curve" : ""));
            }
        }
    }

    void kind(int code, bool s_curve, const QString& name) {
        constexpr int kRows = (static_cast<int>(std::size(kLooks)) + kColumns - 1) / kColumns;
        QImage picture(kCell.width() * kColumns, kCell.height() * kRows, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        int place = 0;
        for (const Look& look : kLooks) {
            diagrams::SurfaceSheet sheet =
                diagrams::open_surface(*diagrams::find_surface(code), basis(), s_curve);
            EXPECT_TRUE(diagrams::has_surface(sheet.chart.surface)) << code;
            if (code != 5) diagrams::add_critical_point(sheet);
            look.apply(sheet.chart);
            const QRect cell(
                QPoint(place % kColumns * kCell.width(), place / kColumns * kCell.height()), kCell);
            chart::paintChart3D(painter, cell, sheet.chart);
            painter.setPen(Qt::gray);
            painter.drawText(cell.adjusted(4, 0, 0, -2), Qt::AlignLeft | Qt::AlignBottom,
                             look.name);
            ++place;
        }
        painter.end();
        const QString folder = QStringLiteral(QUOR_SCREENS);
        QDir().mkpath(folder);
        EXPECT_TRUE(picture.save(folder + "/" + name + ".png"));
        EXPECT_GE(look::colours(picture), 12);
    }
};

TEST_F(SurfaceSheets, Water) {
    sheets("Water", "water");
}

TEST_F(SurfaceSheets, Propane) {
    sheets("Propane", "propane", kSoave);
}

TEST_F(SurfaceSheets, TheViewAndItsPanel) {
    activate("Carbon dioxide");
    Desk desk(session);
    SurfaceWindow* view = SurfaceWindow::openNew(
        desk, diagrams::open_surface(*diagrams::find_surface(1), basis(), false));
    ASSERT_NE(view, nullptr);
    view->resize(1100, 720);
    look::at(view, "frmGraph3D");
    for (const char* page : {"Surface", "Section", "Axes", "Text", "View"}) {
        view->findChild<QAction*>(QString("mnu%1Design").arg(page))->trigger();
        look::at(view, QString("frmGraph3D_%1").arg(page).toLower());
    }
    view->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // while there is a desk
}

}  // namespace
