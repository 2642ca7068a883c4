#pragma once

#include <QMap>
#include <QSettings>
#include <QString>
#include <QStringList>

class QWidget;

namespace quor::gui {

/// The per-user settings store: what belongs to the user's desk and not to a project.
namespace settings {

/// The store of the program (organisation "QUOR", application "QUOR-6").
QSettings store();

/// "Show Tips at Startup" in section "Options"; true before the user first said otherwise.
bool showTipsAtStartup();
void setShowTipsAtStartup(bool show);

/// Folders of the databases opened lately, the last one first.
QStringList databaseFolders();
void rememberDatabaseFolder(const QString& folder);

/// Databases and projects opened lately, the last one first.
QStringList recentFiles();
void rememberFile(const QString& file);
void forgetFile(const QString& file);

/// Units of the user's own by name, as text (`models::read_choice`), in alphabetical order.
QMap<QString, QString> unitSets();
void rememberUnitSet(const QString& name, const QString& units);
void forgetUnitSet(const QString& name);

/// Gives a window the size and place it had when its view was last closed, kept on the screen. The
/// object name of the view is the key; false when nothing is remembered.
bool restorePlace(QWidget* window, const QString& view);
void rememberPlace(const QWidget* window, const QString& view);

}  // namespace settings

}  // namespace quor::gui
