#pragma once

#include <QMdiArea>

namespace quor::app {

/// The area of the main window in which all other views open.
class WorkArea : public QMdiArea {
    Q_OBJECT

  public:
    explicit WorkArea(QWidget* parent = nullptr);

    /// Opens a view in a window of its own, or brings that window to the front. Its place comes
    /// from the last time it was open.
    void openView(QWidget* view);

    /// Closes all views; false when one refuses.
    bool closeAllViews();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void takePalette();
};

}  // namespace quor::app
