#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <filesystem>

#include "app/views/open_file.h"
#include "app/views/wiring.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/views/qt_dialogs.h"
#include "common/views/theme.h"
#include "datafiles/views/editor_views.h"
#include "session/module2.h"
#include "session/views/mdiQUOR.h"

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setOrganizationName("QUOR");
    QApplication::setApplicationName("QUOR-6");
    QApplication::setApplicationVersion(QUOR_VERSION);
    theme::install(app);

    const auto folder = [](const QString& path) {
        return std::filesystem::path(path.toStdString());
    };
    Module2::SetProgramFolder(
        folder(QApplication::applicationDirPath()),
        folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    numbers::set_decimal_mark(QLocale().decimalPoint() == "," ? ',' : '.');
    dialogs::current() = dialogs::desktop();

    wiring::ConnectViews();
    editor_views::InstallFileView();
    mdiQUOR frame;
    frame.show();
    frame.StartUp();
    frame.InviteFirstUser();
    for (const QString& file : QApplication::arguments().mid(1))
        open_file::Open(file.toStdString());
    return QApplication::exec();
}
