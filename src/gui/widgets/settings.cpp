#include "gui/widgets/settings.h"

#include <QWidget>

namespace quor::gui {

namespace settings {

namespace {

constexpr auto kTips = "Options/Show Tips at Startup";
constexpr auto kDatabaseFolders = "Recent/DatabaseFolders";
constexpr auto kRecentFiles = "Recent/Files";
constexpr auto kUnitSets = "Units/Sets";
constexpr qsizetype kFilesKept = 9;  // one for each digit key
constexpr int kFoldersKept = 8;

QString placeKey(const QString& view) {
    return "Geometry/" + view;
}

}  // namespace

QSettings store() {
    return QSettings("QUOR", "QUOR-6");
}

bool showTipsAtStartup() {
    return store().value(kTips, 1).toInt() != 0;
}

void setShowTipsAtStartup(bool show) {
    store().setValue(kTips, show ? 1 : 0);
}

QStringList databaseFolders() {
    return store().value(kDatabaseFolders).toStringList();
}

void rememberDatabaseFolder(const QString& folder) {
    QStringList folders = databaseFolders();
    folders.removeAll(folder);
    folders.prepend(folder);
    store().setValue(kDatabaseFolders, QStringList(folders.mid(0, kFoldersKept)));
}

QStringList recentFiles() {
    return store().value(kRecentFiles).toStringList();
}

void rememberFile(const QString& file) {
    QStringList files = recentFiles();
    files.removeAll(file);
    files.prepend(file);
    store().setValue(kRecentFiles, QStringList(files.mid(0, kFilesKept)));
}

void forgetFile(const QString& file) {
    QStringList files = recentFiles();
    files.removeAll(file);
    store().setValue(kRecentFiles, files);
}

QMap<QString, QString> unitSets() {
    const QVariantMap kept = store().value(kUnitSets).toMap();
    QMap<QString, QString> sets;
    for (auto set = kept.begin(); set != kept.end(); ++set)
        sets.insert(set.key(), set.value().toString());
    return sets;
}

void rememberUnitSet(const QString& name, const QString& units) {
    QVariantMap sets = store().value(kUnitSets).toMap();
    sets.insert(name, units);
    store().setValue(kUnitSets, sets);
}

void forgetUnitSet(const QString& name) {
    QVariantMap sets = store().value(kUnitSets).toMap();
    sets.remove(name);
    store().setValue(kUnitSets, sets);
}

bool restorePlace(QWidget* window, const QString& view) {
    const QVariant kept = store().value(placeKey(view));
    return kept.isValid() && window->restoreGeometry(kept.toByteArray());
}

void rememberPlace(const QWidget* window, const QString& view) {
    store().setValue(placeKey(view), window->saveGeometry());
}

}  // namespace settings

}  // namespace quor::gui
