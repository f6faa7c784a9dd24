#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace host {

/// A line at a terminal that says what is running, once a command takes longer than a second. It is
/// removed before the command shows anything. A separate thread writes it.
class Progress {
 public:
  explicit Progress(std::ostream& terminal);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  void BeginCommand();
  void BeginRequest(const std::string& request);
  void EndRequest();

 private:
  void Write();

  using Clock = std::chrono::steady_clock;

  std::ostream& terminal_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string request_;  ///< empty between requests
  Clock::time_point begun_ = Clock::now();
  bool shown_ = false;
  bool ended_ = false;
  std::thread thread_;  // last, because it uses the others
};

}  // namespace host
