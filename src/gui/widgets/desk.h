#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "datafiles/substance_editor.h"
#include "session/calculation_views.h"
#include "session/session.h"

class QAbstractButton;
class QDialog;
class QWidget;

namespace quor::gui {

/// What a view may ask of others. The program hands in functions of real views; where one is
/// missing, the button that needs it is disabled.
struct Doors {
    std::function<void()> chooseReference;  ///< `ReferenceStateDialog`
    /// The choice of a substance, of a database that is asked for where none is open. It begins
    /// with a name.
    std::function<void(const std::string& name)> chooseSubstance;
    std::function<void()> editSubstance;     ///< `SubstanceEditorView`, modal
    std::function<void()> showSubstance;     ///< the same, for reading only
    std::function<void()> newMeasuredData;   ///< `MeasuredDataEditor` without data
    std::function<void()> editMeasuredData;  ///< `MeasuredDataEditor`
    std::function<void()> drawMeasured;      ///< the measured data as y = f(T)
    std::function<void()> drawMeasuredLn;    ///< the measured data as ln p = f(1/T)
    std::function<void()> editXy;            ///< `XyEditor`
    std::function<void()> drawXy;            ///< a diagram of the XY editor's graph
    std::function<void()> fit;               ///< `FitView` with the points that were sent to it
    /// Group contributions to what stands in the fields of an editor, in front of it.
    std::function<void(datafiles::GroupFrame, datafiles::EditorTexts&, QWidget* parent)> estimate;
    std::function<void(int topic)> help;  ///< a page of the help
};

/// The place a user works at: the session, the main window that views open in, and the ways from
/// one view to another. Without a main window a view stands alone.
class Desk {
  public:
    /// What the main window does for the views.
    class Frame {
      public:
        Frame() = default;
        Frame(const Frame&) = delete;
        Frame& operator=(const Frame&) = delete;
        virtual ~Frame() = default;

        virtual QWidget* window() = 0;
        virtual void addChild(QWidget* view) = 0;
        /// Menus, tool bar and status bar follow the session again.
        virtual void refresh() = 0;
    };

    explicit Desk(session::Session& session) : session_(session) {}
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    session::Session& session() const { return session_; }

    Doors doors;
    session::CalculationViews calculationViews;

    /// The main window in use; nullptr when it has gone.
    void setFrame(Frame* frame) { frame_ = frame; }
    QWidget* frameWindow() const;

    /// Opens a view inside the frame, or brings it to the front when it is open already. Its object
    /// name must be set: it is the key under which size and place are remembered. The view is
    /// deleted as it closes.
    void openChild(QWidget* view);
    /// Runs a dialog in front of the frame and remembers its place. Returns `QDialog::Accepted` or
    /// `QDialog::Rejected`.
    int openModal(QDialog& dialog);

    /// Shows a dialog in front of the frame that may stay open.
    void openDialog(QDialog* dialog);

    /// The open view of that object name; nullptr when there is none.
    QWidget* findView(const QString& name) const;
    /// The open view of a type and an object name; nullptr when there is none.
    template <class View>
    View* find(const QString& name) const {
        return dynamic_cast<View*>(findView(name));
    }
    /// True when that very view is among the open ones.
    bool isOpen(const QWidget* view) const;
    /// Brings an open view to the front and gives it the focus; false when it is not open.
    bool activate(const QString& name);
    /// Closes the open views of these names; false when one refuses.
    bool closeViews(const QStringList& names);

    /// The views of results and of input, which make room for a new task.
    static QStringList resultViews();
    static QStringList inputViews();

    /// Menus, tool bar and status bar follow the session again.
    void refresh();

    /// Makes a view the one of its kind that was used last, from now on until it leaves.
    void enter(QWidget* view);
    /// The same for a view that has entered; false for one that has not, or has left.
    bool use(QWidget* view);
    void leave(QWidget* view);
    /// The view of a type that was used last; nullptr when none is there.
    template <class View>
    View* lastUsed() const {
        for (auto view = inUse_.rbegin(); view != inUse_.rend(); ++view)
            if (auto* one = dynamic_cast<View*>(*view)) return one;
        return nullptr;
    }

    /// Opens a help page by its number; false without help.
    bool showHelp(int topic) const;
    /// Makes a button open a help page; without help the button is disabled.
    void connectHelp(QAbstractButton* button, int topic);

  private:
    void remember(QWidget* view);

    session::Session& session_;
    Frame* frame_ = nullptr;
    std::vector<QPointer<QWidget>> views_;  ///< opened here
    std::vector<QWidget*> inUse_;           ///< in the order of their use
};

}  // namespace quor::gui
