#pragma once
// The range of signals that a chart shows.

#include <algorithm>

namespace host {

/// The signals between the base of a chart and its top, in dBm.
class SignalScale {
 public:
  static constexpr int kStep = 10;

  /// Widens the scale for one more signal, within the range of a receiver; other signals are beyond
  /// the scale.
  void Include(int signal) {
    while (lowest_ > signal && lowest_ > kLowest) lowest_ -= kStep;
    while (highest_ < signal && highest_ < kHighest) highest_ += kStep;
  }

  int lowest() const { return lowest_; }
  int highest() const { return highest_; }
  int span() const { return highest_ - lowest_; }
  bool IsBeyond(int signal) const { return signal < lowest_ || signal > highest_; }
  /// The height of a signal above the base; a signal beyond the scale is at its edge.
  int Above(int signal) const { return std::clamp(signal, lowest_, highest_) - lowest_; }

 private:
  static constexpr int kLowest = -120;
  static constexpr int kHighest = 0;

  int lowest_ = -100;
  int highest_ = -30;
};

}  // namespace host
