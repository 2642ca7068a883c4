#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <filesystem>

#include "app/main_window.h"
#include "app/open_file.h"
#include "app/wiring.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "gui/data/editor_views.h"
#include "gui/widgets/qt_dialogs.h"
#include "gui/widgets/theme.h"
#include "session/module2.h"

using namespace quor;
using namespace quor::app;

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setOrganizationName("QUOR");
    QApplication::setApplicationName("QUOR-6");
    QApplication::setApplicationVersion(QUOR_VERSION);
    gui::theme::install(app);

    const auto folder = [](const QString& path) {
        return std::filesystem::path(path.toStdString());
    };
    session::SetProgramFolder(
        folder(QApplication::applicationDirPath()),
        folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    numbers::set_decimal_mark(QLocale().decimalPoint() == "," ? ',' : '.');
    dialogs::current() = dialogs::desktop();

    wiring::ConnectViews();
    gui::editor_views::InstallFileView();
    MainWindow frame;
    frame.show();
    frame.StartUp();
    frame.InviteFirstUser();
    for (const QString& file : QApplication::arguments().mid(1))
        open_file::Open(file.toStdString());
    return QApplication::exec();
}
