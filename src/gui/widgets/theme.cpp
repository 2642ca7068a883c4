#include "gui/widgets/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

// The pictures stand in a static library: the linker keeps them only when they are named, and that
// has to happen outside any namespace.
static void namePictures() {
    Q_INIT_RESOURCE(icons);
}

namespace quor::gui {

namespace theme {

namespace {

constexpr int kDarkest = 128;  // a window lighter than this is light

// The bare style of a desktop without a theme of its own.
bool isBareStyle(const QString& name) {
    return name == "windows" || name.isEmpty();
}

}  // namespace

void install(QApplication& app) {
    namePictures();
    if (isBareStyle(app.style()->name())) QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setWindowIcon(icon("app"));
}

QIcon icon(const QString& name) {
    return QIcon(":/icons/" + name + ".svg");
}

QFont fixedPitch() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}

bool isDark() {
    return QApplication::palette().color(QPalette::Window).lightness() < kDarkest;
}

QColor errorColour() {
    return isDark() ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20);
}

QColor quietColour() {
    return QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
}

}  // namespace theme

}  // namespace quor::gui
