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

namespace quor::gui {

namespace {

using diagrams::Axis;
using diagrams::SurfaceLimits;

struct LimitRow {
    const char* caption;
    const char* name;
    float SurfaceLimits::*limit;
};

constexpr std::array<LimitRow, 8> kLimits{{{"T(min)", "txtTMin", &SurfaceLimits::T_min},
                                           {"T(max)", "txtTMax", &SurfaceLimits::T_max},
                                           {"p(min)", "txtpMin", &SurfaceLimits::p_min},
                                           {"p(max)", "txtpMax", &SurfaceLimits::p_max},
                                           {"v(min)", "txtvMin", &SurfaceLimits::v_min},
                                           {"v(max)", "txtvMax", &SurfaceLimits::v_max},
                                           {"z(min)", "txtzMin", &SurfaceLimits::z_min},
                                           {"z(max)", "txtzMax", &SurfaceLimits::z_max}}};

Axis quantityOf(const LimitRow& row, const diagrams::SurfaceKind& kind) {
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
QString titleOf(const diagrams::SurfaceSheet& sheet, Axis axis) {
    const diagrams::SurfaceKind& kind = *sheet.kind;
    const diagrams::SurfaceTexts texts = diagrams::texts_of(kind, sheet.basis);
    const auto shown = [&](const std::string& label) {
        const models::UnitChoice& units = sheet.basis.units.choice;
        return QString::fromStdString(diagrams::window_text(label, units)).trimmed();
    };
    if (kind.x == axis) return shown(texts.x_label);
    if (kind.y == axis) return shown(texts.y_label);
    if (kind.z == axis) return shown(texts.z_label);
    return {};
}

/// Caloric surfaces have limits of z; the others have a quantity of their own there.
bool isUsed(const LimitRow& row, const diagrams::SurfaceSheet& sheet) {
    if (row.caption[0] == 'z') return diagrams::is_caloric(*sheet.kind);
    return !titleOf(sheet, quantityOf(row, *sheet.kind)).isEmpty();
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

SurfaceLimitsDialog::SurfaceLimitsDialog(diagrams::SurfaceSheet& sheet, QWidget* parent)
    : QDialog(parent), sheet_(sheet) {
    setObjectName("fraCoord3");
    setWindowTitle("Coordinates");
    auto* grid = form::grid();
    grid->setContentsMargins({});
    QVBoxLayout* layout = column(this);
    layout->addLayout(grid);
    const diagrams::SurfaceKind* kind = sheet.kind;
    for (const LimitRow& row : kLimits) {
        if (kind == nullptr || !isUsed(row, sheet)) continue;
        auto* edit = form::named(new NumberEdit, row.name);
        form::addRow(grid, static_cast<int>(fields_.size()), row.caption, edit,
                     titleOf(sheet, quantityOf(row, *kind)));
        fields_.push_back({edit, row.limit});
        if (const auto quantity = diagrams::quantity_of(sheet, quantityOf(row, *kind)))
            edit->setQuantity(quantity->dimension, quantity->scale, sheet.basis.fluid);
    }
    if (kind != nullptr && diagrams::is_caloric(*kind))
        layout->addWidget(form::note("z(min) = -0.01111 and z(max) = 0.01111: no clipping"));
    show(sheet.limits);

    QPushButton* ok = form::button("&OK", "cmdCoord3_OK");
    ok->setDefault(true);
    QPushButton* proposed = form::button("&Defaults", "cmdCoord3_Default");
    QPushButton* cancel = form::button("&Cancel", "cmdCoord3_Cancel");
    connect(ok, &QPushButton::clicked, this, &SurfaceLimitsDialog::confirm);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(proposed, &QPushButton::clicked, this, [this] {
        if (sheet_.kind != nullptr)
            show(diagrams::default_limits(*sheet_.kind, sheet_.basis, sheet_.s_curve));
    });
    QHBoxLayout* buttons = buttonRow();
    buttons->addWidget(proposed);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void SurfaceLimitsDialog::show(const SurfaceLimits& limits) {
    // The shortest text that gives the same 32-bit number.
    for (const Field& field : fields_)
        field.edit->setValue(
            QString::number(static_cast<double>(limits.*field.limit), 'g', 7).toDouble());
}

void SurfaceLimitsDialog::confirm() {
    std::vector<NumberEdit*> edits;
    for (const Field& field : fields_) edits.push_back(field.edit);
    if (markWrongNumber(edits, false)) return;
    SurfaceLimits limits = sheet_.limits;
    for (const Field& field : fields_)
        limits.*field.limit = static_cast<float>(field.edit->value());
    if (diagrams::set_limits(sheet_, limits)) return accept();
    if (!fields_.empty()) fields_.front().edit->setFocus();
}

MeshlinesDialog::MeshlinesDialog(diagrams::SurfaceSheet& sheet, QWidget* parent) : QDialog(parent) {
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
        diagrams::set_meshlines(sheet, nx->value(), ny->value());
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
