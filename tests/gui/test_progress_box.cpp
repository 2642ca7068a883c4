#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <chrono>

#include "gui/drive.h"
#include "gui/widgets/progress_box.h"

using namespace quor;

namespace {

using Clock = std::chrono::steady_clock;

class ProgressBox : public testing::Test {
  protected:
    ProgressBox() : before_(progress::current()) { progress::current() = progress::desktop(); }
    ~ProgressBox() override { progress::current() = before_; }

    static QProgressDialog* box() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "ProgressBox" && window->isVisible())
                return qobject_cast<QProgressDialog*>(window);
        return nullptr;
    }
    /// A work of so many milliseconds that looks at the box on its way.
    static void work(int most, const std::function<void(double done)>& look) {
        progress::Work running("Reading <b>points</b>");
        const auto start = Clock::now();
        for (double done = 0; done < 1;) {
            done = std::chrono::duration<double, std::milli>(Clock::now() - start).count() / most;
            running.at(done);
            look(done);
        }
    }

  private:
    progress::Show before_;
};

TEST_F(ProgressBox, AWorkOfAMomentShowsNone) {
    work(100, [](double) { ASSERT_EQ(box(), nullptr); });
}

TEST_F(ProgressBox, ALongWorkShowsHowFarItIsAndTheBoxGoesWithIt) {
    int seen = 0;
    int last = -1;
    work(900, [&](double) {
        if (box() == nullptr) return;
        ++seen;
        EXPECT_GE(box()->value(), last) << "it does not go back";
        last = box()->value();
        EXPECT_EQ(box()->findChild<QLabel*>()->text(), "Reading <b>points</b>");
        EXPECT_EQ(box()->findChild<QLabel*>()->textFormat(), Qt::PlainText);
    });
    EXPECT_GT(seen, 0);
    EXPECT_GT(last, 500);
    EXPECT_EQ(box(), nullptr);
}

TEST_F(ProgressBox, CancelGivesTheWorkUp) {
    bool pressed = false;
    EXPECT_THROW(work(20000,
                      [&](double) {
                          if (box() == nullptr || pressed) return;
                          pressed = true;
                          QTest::mouseClick(box()->findChild<QPushButton*>(), Qt::LeftButton);
                      }),
                 progress::GivenUp);
    EXPECT_TRUE(pressed);
    EXPECT_EQ(box(), nullptr);
}

}  // namespace
