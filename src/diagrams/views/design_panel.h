#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "diagrams/diagram_sheet.h"
#include "diagrams/views/chart2d_widget.h"

class QCheckBox;
class QFormLayout;
class QPushButton;
class QTabBar;
class QTabWidget;

/// The panel beside a diagram: every property of its curves, points, axes, texts and legend. A
/// change shows at once.
class DesignPanel : public QWidget {
    Q_OBJECT

  public:
    explicit DesignPanel(Module9::DiagramSheet& sheet, QWidget* parent = nullptr);

    /// The controls take what the sheet holds now.
    void follow();

    /// The slots whose tabs are in front, counted from 0; -1 when there is none.
    int curve() const;
    int pointSet() const;

    void showCurve(int slot);
    void showPointSet(int slot);
    /// Pages by name: "curves", "points", "axes", "texts", "legend", "more".
    void showPage(const QString& name);
    /// The page and tab that design what was hit.
    void showHit(const chart::ChartHit& hit);

  Q_SIGNALS:
    void changed();
    void scalingWanted();

  private:
    using Load = std::function<void()>;

    QFormLayout* page(const QString& name, const QString& title);
    QWidget* curvePage();
    QWidget* pointPage();
    void axisPage();
    void axisGroup(QFormLayout* into, bool xAxis);
    void scalingGroup(QFormLayout* into);
    void textPage();
    void legendPage();
    void morePage();
    void fillTextList();
    void applyScaling();

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
                std::function<void(double)> set, Field<chart::Series> enabled = {});
    void choice(QFormLayout* into, const QString& caption, const QString& name,
                const QStringList& entries, std::function<int()> get, std::function<void(int)> set);

    chart::Series* series(chart::Group group) const;
    void apply();

    Module9::DiagramSheet& sheet_;
    std::vector<Load> loads_;
    bool loading_ = false;
    QTabWidget* pages_ = nullptr;
    QTabBar* curves_ = nullptr;
    QTabBar* points_ = nullptr;
    class QComboBox* texts_ = nullptr;
};
