#include <QPainter>

#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"
#include "diagrams/curve.h"
#include "diagrams/parameter_input.h"
#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_readout.h"
#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart_qt.h"
#include "screens/look.h"

using namespace quor;

namespace {

constexpr QSize kCell(480, 340);
constexpr int kColumns = 4, kRowsOfSheet = 4;

/// Every diagram of the catalogue for a fluid, with the curves a user draws first.
class ContactSheet : public ActiveFluid {
  protected:
    ContactSheet() { Module9::views2_d() = {}; }  // the sheets are painted, no window opens

    static std::vector<const menu::Row*> rows() {
        std::vector<const menu::Row*> all;
        for (const menu::Row& row : menu::graph_rows())
            if (row.action == "Diagram2D") all.push_back(&row);
        return all;
    }

    /// False when the menu refuses the row for this fluid.
    bool openRow(const menu::Row& row) {
        legacy::the_diagram.DiagramType = row.code;
        legacy::the_diagram.sectionKind = row.sectionKind;
        legacy::the_diagram.axisPair = row.axisPair;
        const bool opens = Module9::AnswerOf(legacy::the_diagram).opens;
        Module9::open_diagram2_d();
        if (opens) Module9::open_sheet(sheet, legacy::the_diagram);
        return opens;
    }

    /// Sub- and supercritical curves, the coexistence curve where it is offered, and a legend.
    void drawRow(const menu::Row& row) {
        const models::SubstanceRecord& s = legacy::the_substance;
        const diagrams::CoordinateDefaults& d = legacy::the_coordinates;
        if (row.sectionKind == Module9::kProjection || row.sectionKind == Module9::kDatabase) {
            Module9::Draw(sheet);
        } else {
            for (const double reduced : {0.85, 1.05}) {
                legacy::the_session.DiagramT = reduced * s.Tcrit;
                legacy::the_session.DiagramP = (reduced < 1 ? 0.5 : 1.3) * s.pcrit;
                legacy::the_session.DiagramV =
                    (reduced < 1 ? 2.5 : 0.8) * legacy::the_eosParameters.vcritCalc;
                const bool overT = row.sectionKind == Module9::kIsobaric;
                legacy::the_processLine.RangeStart = static_cast<double>(overT ? d.TMin : d.pMin);
                legacy::the_processLine.RangeEnd = static_cast<double>(overT ? d.TMax : d.pMax);
                Module9::Draw(sheet);
            }
            if (Module9::offers_mark(sheet, Module9::Mark::Coexistence))
                Module9::mark_coexistence(sheet);
        }
        Module9::add_legend(sheet);
    }

    void paint(QPainter& painter, const QRect& cell) {
        Module9::place_labels(sheet, cell.width(), cell.height(), chart::qtTextMeasure());
        chart::paintChart2D(painter, cell, sheet.chart);
    }

    void checkTexts(const QSize& size, const std::string& what) {
        const chart::Sheet2D laid =
            chart::lay_out(sheet.chart, size.width(), size.height(), chart::qtTextMeasure());
        for (const chart::SheetText* text :
             {&laid.header, &laid.footer, &laid.x.title, &laid.y.title}) {
            if (!text->shown) continue;
            EXPECT_GE(text->rect.left, -0.5) << what;
            EXPECT_GE(text->rect.top, -0.5) << what;
            EXPECT_LE(text->rect.right(), size.width() + 0.5) << what;
            EXPECT_LE(text->rect.bottom(), size.height() + 0.5) << what;
        }
    }

    void contactSheets(const std::string& fluid, const QString& name) {
        activate(fluid);
        const auto all = rows();
        const auto perSheet = static_cast<std::size_t>(kColumns * kRowsOfSheet);
        for (std::size_t first = 0; first < all.size(); first += perSheet) {
            QImage picture(kCell.width() * kColumns, kCell.height() * kRowsOfSheet,
                           QImage::Format_RGB32);
            picture.fill(Qt::white);
            QPainter painter(&picture);
            for (std::size_t i = first; i < std::min(first + perSheet, all.size()); ++i) {
                const int place = static_cast<int>(i - first);
                const QRect cell(place % kColumns * kCell.width(),
                                 place / kColumns * kCell.height(), kCell.width(), kCell.height());
                const std::string what = fluid + ", code " + std::to_string(all[i]->code);
                user.messages.clear();
                painter.setPen(Qt::black);
                if (openRow(*all[i])) {
                    drawRow(*all[i]);
                    EXPECT_GE(sheet.CurveCount, 1) << what << ": " << user.lastText();
                    checkTexts(kCell, what);
                    paint(painter, cell);
                } else {
                    painter.drawText(cell, Qt::AlignCenter,
                                     QString::fromStdString(user.lastText()));
                }
                painter.setPen(Qt::gray);
                painter.drawRect(cell.adjusted(0, 0, -1, -1));
                painter.drawText(cell.adjusted(4, 0, 0, -2), Qt::AlignLeft | Qt::AlignBottom,
                                 QString::number(all[i]->code));
            }
            painter.end();
            const QString folder = QStringLiteral(QUOR_SCREENS);
            QDir().mkpath(folder);
            const QString file =
                QString("%1/diagrams_%2_%3.png").arg(folder, name).arg(first / perSheet + 1);
            EXPECT_TRUE(picture.save(file));
            EXPECT_GE(look::colours(picture), 8);
        }
    }

    Module9::DiagramSheet sheet;
};

TEST_F(ContactSheet, Water) {
    contactSheets("Water", "water");
}

TEST_F(ContactSheet, CarbonDioxide) {
    contactSheets("Carbon dioxide", "carbon_dioxide");
}

TEST_F(ContactSheet, Tetrafluoroethane) {
    contactSheets("1,1,1,2-Tetrafluoroethane", "r134a");
}

}  // namespace
