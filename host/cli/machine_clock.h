#pragma once

#include <chrono>
#include <cstdint>
#include <thread>

namespace host {

/// The time of the simulated machine: how long its timeline has played.
class MachineClock {
 public:
  /// `speed` is how many times as fast as the system's clock it goes; with 0 it is stopped.
  explicit MachineClock(int speed = 1) : speed_(speed) {}

  /// It shows `time`, in milliseconds, and goes on from there.
  void Set(std::int64_t time) {
    time_ = time;
    set_ = std::chrono::steady_clock::now();
  }
  std::int64_t Now() const {
    const auto since = std::chrono::steady_clock::now() - set_;
    return time_ + speed_ * std::chrono::floor<std::chrono::milliseconds>(since).count();
  }
  bool IsStopped() const { return speed_ == 0; }
  /// Waits until it shows a time that is later by so much; a stopped clock is moved.
  void Wait(std::int64_t milliseconds) {
    if (IsStopped()) return Set(time_ + milliseconds);
    std::this_thread::sleep_for(std::chrono::microseconds(1000 * milliseconds / speed_));
  }

 private:
  int speed_;
  std::int64_t time_ = 0;
  std::chrono::steady_clock::time_point set_ = std::chrono::steady_clock::now();
};

}  // namespace host
