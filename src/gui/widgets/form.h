#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QString>

class QGroupBox;
class QPushButton;
class QToolButton;

namespace quor::gui {

/// Small pieces that all views are put together from, so that they look and behave alike.
namespace form {

/// A label that shows its text as it is written. One of Qt's own would take "<img src=...>" from a
/// file for a picture and fetch it.
QLabel* label(const QString& text = {});

/// A text from a file or of the user, so that tool tips show it as it is written.
QString tip(const QString& text);

/// The same for rows of menus, buttons and titles of frames, where "&" marks an access key.
QString captionOf(QString text);

/// The same for titles of windows, where "[*]" stands for unsaved changes.
QString titleOf(QString text);

/// A caption in front of a field, right-aligned to it; its access key leads to the field.
QLabel* caption(const QString& text, QWidget* buddy = nullptr);

/// A unit behind a field.
QLabel* unit(const QString& text);

/// A note in quieter colour that wraps.
QLabel* note(const QString& text = {});

/// One row of a form: caption, field, unit (may be empty), in columns 0 to 2.
void addRow(QGridLayout* grid, int row, const QString& captionText, QWidget* field,
            const QString& unitText = {});

/// A grid with the distances of the program.
QGridLayout* grid(QWidget* parent = nullptr);

/// A button with its control name.
QPushButton* button(const QString& text, const QString& name, QWidget* parent = nullptr);

/// A small "?" that opens help about something.
QToolButton* helpButton(const QString& name, const QString& about);

/// A titled frame with its control name.
QGroupBox* frame(const QString& title, const QString& name, QWidget* parent = nullptr);

/// What a view shows, as lines of text: captions, fields, chosen options and tables in the order of
/// their places. What is hidden is left out.
QString textOf(const QWidget* view);

/// Text with its control name, so that a help or a test finds it.
template <class Widget>
Widget* named(Widget* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

}  // namespace form

}  // namespace quor::gui
