#include <QApplication>
#include <QFontMetrics>
#include <QLocale>
#include <QStandardPaths>
#include <filesystem>
#include <iostream>

#include "app/main_window.h"
#include "app/open_file.h"
#include "app/wiring.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/data/editor_views.h"
#include "gui/widgets/progress_box.h"
#include "gui/widgets/qt_dialogs.h"
#include "gui/widgets/theme.h"
#include "session/session.h"

using namespace quor;
using namespace quor::app;

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setOrganizationName("QUOR");
    QApplication::setApplicationName("QUOR-6");
    QApplication::setApplicationVersion(QUOR_VERSION);
    gui::theme::install(app);
    // No window could say it.
    if (!QFontMetrics(QFont()).inFontUcs4('a'))
        std::cerr << "QUOR-6: this machine has no fonts; the windows show no texts.\n";

    const auto folder = [](const QString& path) {
        return std::filesystem::path(path.toStdString());
    };
    numbers::set_decimal_mark(QLocale().decimalPoint() == "," ? ',' : '.');
    dialogs::current() = dialogs::desktop();
    progress::current() = progress::desktop();

    session::Session session(
        Places(folder(QApplication::applicationDirPath()),
               folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))));
    gui::Desk desk(session);
    Commands commands;
    wiring::connectViews(desk, commands);
    gui::editor_views::installFileView(desk);
    MainWindow frame(desk, commands);
    frame.show();
    frame.startUp();
    frame.inviteFirstUser();
    for (const QString& file : QApplication::arguments().mid(1))
        open_file::open(desk, commands, file.toStdString());
    return QApplication::exec();
}
