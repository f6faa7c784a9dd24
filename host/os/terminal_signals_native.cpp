#include "host/os/terminal_signals_native.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace host::os {
namespace {

volatile std::sig_atomic_t noteTo = -1;  ///< end of the pipe into which signals are noted

void NoteSignal(int signal) {
  const int error = errno;
  const auto note = static_cast<unsigned char>(signal);
  // A full pipe has notes enough.
  [[maybe_unused]] const ssize_t written = write(noteTo, &note, 1);
  errno = error;
}

}  // namespace

TerminalSignals::TerminalSignals(std::function<void()> leave, std::function<void()> enter)
    : leave_(std::move(leave)), enter_(std::move(enter)) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  noted_ = ends[0];
  noteTo = ends[1];
  struct sigaction action {};
  action.sa_handler = &NoteSignal;
  for (std::size_t index = 0; index < std::size(kSignals); ++index) {
    sigaction(kSignals[index], nullptr, &before_[index]);
    if (before_[index].sa_handler != SIG_IGN) sigaction(kSignals[index], &action, nullptr);
  }
}

TerminalSignals::~TerminalSignals() {
  for (std::size_t index = 0; index < std::size(kSignals); ++index) {
    sigaction(kSignals[index], &before_[index], nullptr);
  }
  unsigned char signal = 0;
  while (read(noted_, &signal, 1) == 1) {
    if (signal != SIGCONT && signal != SIGWINCH) raise(signal);
  }
  close(noted_);
  close(noteTo);
}

void TerminalSignals::Obey(int signal) {
  leave_();
  struct sigaction standard {};
  standard.sa_handler = SIG_DFL;
  struct sigaction ours {};
  sigaction(signal, &standard, &ours);
  raise(signal);  // the process stops or ends here
  sigaction(signal, &ours, nullptr);
  enter_();
}

TerminalSignals::Event TerminalSignals::Wait() {
  while (true) {
    unsigned char signal = 0;
    if (read(noted_, &signal, 1) == 1) {
      if (signal == SIGINT) return Event::kInterrupt;
      if (signal == SIGCONT) {
        // Another program may have changed the modes meanwhile.
        leave_();
        enter_();
      } else if (signal != SIGWINCH) {
        Obey(signal);
      }
      return Event::kRedraw;
    }
    pollfd sources[] = {{STDIN_FILENO, POLLIN, 0}, {noted_, POLLIN, 0}};
    const int ready = poll(sources, std::size(sources), -1);
    if (ready > 0 && sources[1].revents == 0) return Event::kInput;
    if (ready < 0 && errno != EINTR) return Event::kInput;
  }
}

}  // namespace host::os
