#include "gui/surfaces/surface_dialogs.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <array>

#include "gui/widgets/form.h"
#include "gui/widgets/number_edit.h"
#include "gui/widgets/theme.h"
#include "session/module2.h"

namespace quor::gui {

namespace {

using diagrams::Grid3D;
using Module9::Axis;

struct LimitRow {
    const char* caption;
    const char* name;
    float Grid3D::*limit;
};

constexpr std::array<LimitRow, 8> kLimits{{{"T(min)", "txtTMin", &Grid3D::TMin},
                                           {"T(max)", "txtTMax", &Grid3D::TMax},
                                           {"p(min)", "txtpMin", &Grid3D::pMin},
                                           {"p(max)", "txtpMax", &Grid3D::pMax},
                                           {"v(min)", "txtvMin", &Grid3D::vMin},
                                           {"v(max)", "txtvMax", &Grid3D::vMax},
                                           {"z(min)", "txtzMin", &Grid3D::zMin},
                                           {"z(max)", "txtzMax", &Grid3D::zMax}}};

Axis quantity_of(const LimitRow& row, const Module9::SurfaceKind& kind) {
    switch (row.caption[0]) {
        case 'T':
            return Axis::T;
        case 'p':
            return Axis::p;
        case 'v':
            return Axis::v;
        default:
            return kind.z;
    }
}

/// The title of the axis that shows a quantity; nothing when the surface has no such axis.
QString title_of(const Module9::SurfaceKind& kind, Axis axis) {
    const Module9::SurfaceTexts texts = Module9::TextsOf(kind);
    if (kind.x == axis) return QString::fromStdString(texts.xLabel).trimmed();
    if (kind.y == axis) return QString::fromStdString(texts.yLabel).trimmed();
    if (kind.z == axis) return QString::fromStdString(texts.zLabel).trimmed();
    return {};
}

/// Caloric surfaces have limits of z; the others have a quantity of their own there.
bool is_used(const LimitRow& row, const Module9::SurfaceKind& kind) {
    if (row.caption[0] == 'z') return Module9::IsCaloric(kind);
    return !title_of(kind, quantity_of(row, kind)).isEmpty();
}

QVBoxLayout* column(QDialog* dialog) {
    auto* layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(theme::kMargin, theme::kMargin, theme::kMargin, theme::kMargin);
    layout->setSpacing(theme::kGroupGap);
    return layout;
}

QHBoxLayout* buttonRow() {
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(theme::kGap);
    return buttons;
}

}  // namespace

SurfaceLimitsDialog::SurfaceLimitsDialog(Module9::SurfaceSheet& sheet, QWidget* parent)
    : QDialog(parent), sheet_(sheet) {
    setObjectName("fraCoord3");
    setWindowTitle("Coordinates");
    auto* grid = form::grid();
    grid->setContentsMargins({});
    QVBoxLayout* layout = column(this);
    layout->addLayout(grid);
    const Module9::SurfaceKind* kind = Module9::find_surface(sheet.Diagram3DKind);
    for (const LimitRow& row : kLimits) {
        if (kind == nullptr || !is_used(row, *kind)) continue;
        auto* edit = form::named(new NumberEdit, row.name);
        form::addRow(grid, static_cast<int>(fields_.size()), row.caption, edit,
                     title_of(*kind, quantity_of(row, *kind)));
        fields_.push_back({edit, row.limit});
    }
    if (kind != nullptr && Module9::IsCaloric(*kind))
        layout->addWidget(form::note("z(min) = -0.01111 and z(max) = 0.01111: no clipping"));
    show(sheet.limits);

    QPushButton* ok = form::button("&OK", "cmdCoord3_OK");
    ok->setDefault(true);
    QPushButton* proposed = form::button("&Defaults", "cmdCoord3_Default");
    QPushButton* cancel = form::button("&Cancel", "cmdCoord3_Cancel");
    connect(ok, &QPushButton::clicked, this, &SurfaceLimitsDialog::confirm);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(proposed, &QPushButton::clicked, this, [this] {
        session::refresh_units();
        show(Module9::default_grid(sheet_.Diagram3DKind, sheet_.SCurve3D));
    });
    QHBoxLayout* buttons = buttonRow();
    buttons->addWidget(proposed);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void SurfaceLimitsDialog::show(const Grid3D& limits) {
    // The shortest text that gives the same 32-bit number.
    for (const Field& field : fields_)
        field.edit->setValue(
            QString::number(static_cast<double>(limits.*field.limit), 'g', 7).toDouble());
}

void SurfaceLimitsDialog::confirm() {
    std::vector<NumberEdit*> edits;
    for (const Field& field : fields_) edits.push_back(field.edit);
    if (markWrongNumber(edits, false)) return;
    Grid3D limits = sheet_.limits;
    for (const Field& field : fields_)
        limits.*field.limit = static_cast<float>(field.edit->value());
    if (Module9::SetLimits(sheet_, limits)) return accept();
    if (!fields_.empty()) fields_.front().edit->setFocus();
}

MeshlinesDialog::MeshlinesDialog(Module9::SurfaceSheet& sheet, QWidget* parent) : QDialog(parent) {
    setObjectName("fraIXIY");
    setWindowTitle("x-y meshlines");
    auto* grid = form::grid();
    grid->setContentsMargins({});
    const auto spin = [&](int row, const char* caption, const char* name, int value) {
        auto* box = form::named(new QSpinBox, name);
        box->setRange(diagrams::kFewestNodes, diagrams::kMostNodes);
        box->setValue(value);
        form::addRow(grid, row, caption, box);
        return box;
    };
    QSpinBox* nx = spin(0, "Lines x = const", "txtIX", sheet.nx);
    QSpinBox* ny = spin(1, "Lines y = const", "txtIY", sheet.ny);
    QPushButton* ok = form::button("&OK", "cmdIXIY_OK");
    ok->setDefault(true);
    QPushButton* cancel = form::button("&Cancel", "cmdIXIY_Cancel");
    connect(ok, &QPushButton::clicked, this, [this, &sheet, nx, ny] {
        Module9::set_meshlines(sheet, nx->value(), ny->value());
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    QHBoxLayout* buttons = buttonRow();
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    QVBoxLayout* layout = column(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

}  // namespace quor::gui
