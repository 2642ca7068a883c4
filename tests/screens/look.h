#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QSet>
#include <QWidget>

/// Pictures of views for human eyes, and what a machine can say of them.
namespace look {

/// The reason why a caption does not fit its widget; empty when it does.
inline QString cutOff(const QWidget* widget) {
    const auto tooSmall = [&](const QString& text, const QSize& needed) {
        const bool fits = needed.width() <= widget->width() && needed.height() <= widget->height();
        return fits ? QString()
                    : QString("\"%1\" needs %2 x %3 and has %4 x %5")
                          .arg(text)
                          .arg(needed.width())
                          .arg(needed.height())
                          .arg(widget->width())
                          .arg(widget->height());
    };
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        if (label->text().isEmpty()) return {};
        if (!label->wordWrap()) return tooSmall(label->text(), label->minimumSizeHint());
        return tooSmall(label->text(), QSize(0, label->heightForWidth(label->width())));
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text().isEmpty() ? QString()
                                        : tooSmall(button->text(), button->minimumSizeHint());
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        return tooSmall(group->title(), group->minimumSizeHint());
    return {};
}

/// Number of colours of a picture, counted up to a few.
inline int colours(const QImage& picture) {
    QSet<QRgb> seen;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width() && seen.size() < 16; ++x)
            seen.insert(picture.pixel(x, y));
    return static_cast<int>(seen.size());
}

/// Writes a picture of a view into the folder of the screens and checks that it is not blank and
/// that no caption in it is cut off.
inline void at(QWidget* view, const QString& name) {
    ASSERT_NE(view, nullptr) << name.toStdString();
    QApplication::processEvents();
    const QString folder = QStringLiteral(QUOR_SCREENS);
    QDir().mkpath(folder);
    const QImage picture = view->grab().toImage();
    const QString scale = picture.devicePixelRatio() > 1 ? "_200" : "";
    EXPECT_TRUE(picture.save(folder + "/" + name + scale + ".png"));
    EXPECT_GE(colours(picture), 8) << name.toStdString() << " is blank";
    for (const QWidget* part : view->findChildren<QWidget*>()) {
        if (!part->isVisible()) continue;
        const QString reason = cutOff(part);
        EXPECT_TRUE(reason.isEmpty())
            << name.toStdString() << ", " << part->objectName().toStdString() << ": "
            << reason.toStdString();
    }
}

}  // namespace look
