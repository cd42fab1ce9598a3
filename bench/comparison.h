// Measures the driver against a bare loop that does the same, in turns: a slow
// moment of the machine strikes both.
#ifndef QUILON_BENCH_COMPARISON_H_
#define QUILON_BENCH_COMPARISON_H_

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace quilon::bench {

inline double Median(std::vector<double> values) {
  const auto middle =
      values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// What both sides took, each turn as a pair; all times in seconds.
class Comparison {
 public:
  struct Result {
    double driver;  // median
    double bare;    // median
    double ratio;   // driver ÷ bare, the median of all turns
  };

  // Runs one turn: `times` calls of each; who was second goes first. Returns
  // false when a call did.
  template <typename Driver, typename Bare>
  bool Turn(int times, Driver driver, Bare bare) {
    bool done = false;
    double driver_time = 0;
    double bare_time = 0;
    if (driver_first_) {
      done = Time(times, driver, &driver_time) && Time(times, bare, &bare_time);
    } else {
      done = Time(times, bare, &bare_time) && Time(times, driver, &driver_time);
    }
    driver_first_ = !driver_first_;
    driver_.push_back(driver_time);
    bare_.push_back(bare_time);
    ratio_.push_back(driver_time / bare_time);
    return done;
  }

  // The time of a call of each in the last turn.
  double last() const { return driver_.back() + bare_.back(); }

  Result result() const {
    return {Median(driver_), Median(bare_), Median(ratio_)};
  }

 private:
  template <typename Call>
  static bool Time(int times, Call call, double* seconds) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    bool done = true;
    for (int i = 0; i < times; ++i) {
      done = call() && done;
    }
    *seconds = std::chrono::duration<double>(Clock::now() - start).count() /
               static_cast<double>(times);
    return done;
  }

  bool driver_first_ = true;
  std::vector<double> driver_;
  std::vector<double> bare_;
  std::vector<double> ratio_;
};

}  // namespace quilon::bench

#endif  // QUILON_BENCH_COMPARISON_H_
