#include "host/cli/progress.h"

#include "host/format/visible_text.h"

namespace host {
namespace {

constexpr std::chrono::seconds kStep{1};
constexpr std::size_t kMostOfRequest = 60;  ///< so that the line does not wrap
constexpr const char* kClear = "\r\x1b[K";

}  // namespace

Progress::Progress(std::ostream& terminal) : terminal_(terminal), thread_([this] { Write(); }) {}

Progress::~Progress() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void Progress::BeginCommand() {
  const std::lock_guard lock(mutex_);
  begun_ = Clock::now();
}

void Progress::BeginRequest(const std::string& request) {
  {
    const std::lock_guard lock(mutex_);
    request_ = request;
  }
  changed_.notify_one();
}

void Progress::EndRequest() {
  const std::lock_guard lock(mutex_);
  request_.clear();
  if (shown_) terminal_ << kClear << std::flush;
  shown_ = false;
}

void Progress::Write() {
  std::unique_lock lock(mutex_);
  while (!ended_) {
    if (request_.empty()) {
      changed_.wait(lock);
      continue;
    }
    const auto passed = std::chrono::floor<std::chrono::seconds>(Clock::now() - begun_);
    if (passed >= kStep) {
      terminal_ << kClear << "wmihost: " << ShortText(request_, kMostOfRequest) << ": "
                << passed.count() << " s" << std::flush;
      shown_ = true;
    }
    changed_.wait_until(lock, begun_ + passed + kStep);
  }
}

}  // namespace host
