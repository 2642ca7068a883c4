#pragma once

namespace quor::diagrams {

/// The passes of a loop "from start to end with a step". Pass i is at start + i * step, whatever
/// the rounding of the sums would be; the end belongs to the loop when a pass reaches it within a
/// millionth of a step. Of more than 50,000 passes, as a sliver of a window asks for beside a curve
/// that runs far outside of it, only every so many are run, and the last one.
class Steps {
  public:
    /// Ends with the last pass that does not go beyond `end`.
    static Steps plain(double start, double end, double step);
    /// Ends on `end` itself: the last pass is moved onto it.
    static Steps clamped(double start, double end, double step);

    /// Drops passes more than a step outside of two values when there are too many to run all.
    Steps& within(double low, double high);

    /// The next value; false at the end.
    bool next(double& value);

  private:
    double start_ = 0, end_ = 0, step_ = 0;
    long first_ = 0, count_ = 0;  // passes first_ to count_ - 1 are to come
    long stride_ = 0;             // every how many of them; 0 before the first
    bool clamp_ = false;
};

}  // namespace quor::diagrams
