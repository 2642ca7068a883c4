#pragma once

#include <QDialog>
#include <QPointer>
#include <QUrl>

#include "app/help_book.h"
#include "gui/widgets/desk.h"

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

/// The help at a desk: help buttons and F1 open pages of its one window as long as this object
/// lives.
class HelpWindow : public QObject {
    Q_OBJECT

  public:
    explicit HelpWindow(gui::Desk& desk, QObject* parent = nullptr);
    ~HelpWindow() override;

    void showTopic(int topic);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    gui::Desk& desk_;
    QPointer<HelpViewer> viewer_;
};

}  // namespace quor::app
