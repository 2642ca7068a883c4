#pragma once

#include <QMdiSubWindow>
#include <algorithm>
#include <vector>

namespace quor::gui {

/// The open views of a kind in the order of their use: the one used last stands for its kind in the
/// session. A view adds itself when it opens, removes itself when it closes, and has a
/// `becomeCurrent`.
template <class View>
class ViewsInUse {
  public:
    /// The view used last; nullptr when none is open.
    View* current() const { return views_.empty() ? nullptr : views_.back(); }
    std::size_t size() const { return views_.size(); }

    void add(View* view) { views_.push_back(view); }
    void remove(View* view) { std::erase(views_, view); }

    /// Makes a view the one used last; false for one that is closing.
    bool use(View* view) {
        if (std::erase(views_, view) == 0) return false;
        views_.push_back(view);
        return true;
    }

    /// From now on the view becomes current with its window.
    static void followWindow(View* view) {
        if (auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget()))
            QObject::connect(window, &QMdiSubWindow::aboutToActivate, view, &View::becomeCurrent,
                             Qt::UniqueConnection);
    }

  private:
    std::vector<View*> views_;
};

}  // namespace quor::gui
