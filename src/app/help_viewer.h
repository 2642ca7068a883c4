#pragma once

#include <QDialog>
#include <QUrl>

#include "app/help_book.h"

class QLineEdit;
class QListWidget;
class QTextBrowser;
class QTreeWidget;

namespace quor::app {

/// The help in a window of its own: contents and search at the left, the page at the right. It
/// stays open beside the views; opened from a dialog it stands in front of it and closes with it.
class HelpViewer : public QDialog {
    Q_OBJECT

  public:
    HelpViewer(help::Book book, QWidget* parent);

    /// Shows the page of a number.
    void showTopic(int topic);

  private:
    void fillContents();
    void showPage(const std::string& page);
    void search(const QString& text);
    /// The line of the contents follows the page.
    void markPage(const QUrl& url);

    help::Book book_;
    QLineEdit* search_;
    QTreeWidget* contents_;
    QListWidget* results_;
    QTextBrowser* page_;
};

namespace help_views {

/// Help buttons, F1 and the menu row open pages from now on.
void Install();
/// Closes the window of the help.
void closeAll();

}  // namespace help_views

}  // namespace quor::app
