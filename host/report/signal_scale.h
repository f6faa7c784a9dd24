#pragma once
// Which signals a chart shows.

#include <algorithm>

namespace host {

/// The signals between the base of a chart and its top, in dBm.
class SignalScale {
 public:
  static constexpr int kStep = 10;

  /// Wide enough for one more signal, as far as signals of a receiver go; what lies farther out is
  /// beyond the scale.
  void Include(int signal) {
    while (lowest_ > signal && lowest_ > kLowest) lowest_ -= kStep;
    while (highest_ < signal && highest_ < kHighest) highest_ += kStep;
  }

  int lowest() const { return lowest_; }
  int highest() const { return highest_; }
  int span() const { return highest_ - lowest_; }
  bool IsBeyond(int signal) const { return signal < lowest_ || signal > highest_; }
  /// How far a signal is above the base; one beyond the scale is at its edge.
  int Above(int signal) const { return std::clamp(signal, lowest_, highest_) - lowest_; }

 private:
  static constexpr int kLowest = -120;
  static constexpr int kHighest = 0;

  int lowest_ = -100;
  int highest_ = -30;
};

}  // namespace host
