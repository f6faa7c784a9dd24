#pragma once

#include <csignal>
#include <functional>
#include <iterator>

namespace host::os {

/// The signals of a terminal that a program has switched to single keys. During its lifetime Wait
/// takes them, whichever thread they arrive in, and none is missed between two calls. One object at
/// a time.
class TerminalSignals {
 public:
  enum class Event { kInput, kInterrupt, kRedraw };

  /// `leave` gives the terminal the modes that other programs expect, before this one stops or
  /// ends by a signal; `enter` sets the program's own again.
  TerminalSignals(std::function<void()> leave, std::function<void()> enter);
  TerminalSignals(const TerminalSignals&) = delete;
  TerminalSignals& operator=(const TerminalSignals&) = delete;
  ~TerminalSignals();

  /// Waits for input or a signal. kRedraw: the window has another size, or the program continues
  /// after it was stopped.
  Event Wait();

 private:
  void Obey(int signal);

  static constexpr int kSignals[] = {SIGINT, SIGWINCH, SIGCONT, SIGTSTP, SIGTERM, SIGHUP, SIGQUIT};

  std::function<void()> leave_;
  std::function<void()> enter_;
  int noted_ = -1;  ///< end of the pipe from which the noted signals are read
  struct sigaction before_[std::size(kSignals)];
};

}  // namespace host::os
