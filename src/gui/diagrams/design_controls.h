#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "chart/chart_style.h"

class QFormLayout;
class QTabWidget;

namespace quor::gui {

/// Pages of controls for the fields of a chart. A change shows at once.
class DesignControls : public QWidget {
    Q_OBJECT

  public:
    /// Brings a page to the front by its name.
    void showPage(const QString& name);

  Q_SIGNALS:
    void changed();

  protected:
    using Load = std::function<void()>;

    explicit DesignControls(QWidget* parent);

    /// A further page.
    QFormLayout* page(const QString& name, const QString& title);
    /// Tells a change made by the user.
    void apply();

    // Each of these makes a control for a field of the sheet; a null field disables it.
    template <class T>
    using Field = std::function<T*()>;
    void text(QFormLayout* into, const QString& caption, const QString& name,
              Field<std::string> field, bool lines = false);
    void check(QFormLayout* into, const QString& caption, const QString& name, Field<bool> field);
    void colour(QFormLayout* into, const QString& caption, const QString& name,
                Field<chart::Colour> field);
    void font(QFormLayout* into, const QString& caption, const QString& name,
              Field<chart::Font> field);
    void number(QFormLayout* into, const QString& caption, const QString& name, double low,
                double high, double step, std::function<double()> get,
                std::function<void(double)> set, std::function<bool()> usable = {});
    void choice(QFormLayout* into, const QString& caption, const QString& name,
                const QStringList& entries, std::function<int()> get, std::function<void(int)> set);
    /// Place and size on the printed page.
    void printPlace(QFormLayout* into, Field<chart::PrintPlace> place);

    std::vector<Load> loads_;  ///< each brings a control to what its field holds
    bool loading_ = false;     ///< controls follow the chart; nothing is applied
    QTabWidget* pages_ = nullptr;
};

}  // namespace quor::gui
