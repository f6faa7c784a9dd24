#include "host/cli/patience.h"

#include <csignal>
#include <future>
#include <thread>

#include "host/service/result_text.h"
#include "platform/control/control.h"

namespace host {
namespace {

constexpr std::chrono::milliseconds kLook{50};  ///< how often Ctrl-C is looked for

volatile std::sig_atomic_t isInterrupted = 0;

}  // namespace

Patience::Patience(std::chrono::milliseconds limit)
    : end_(limit.count() == 0 ? Clock::time_point::max() : Clock::now() + limit) {
  isInterrupted = 0;
  before_ = std::signal(SIGINT, [](int) { isInterrupted = 1; });
}

Patience::~Patience() {
  std::signal(SIGINT, before_);
}

HRESULT Patience::Ended() const {
  if (isInterrupted != 0) return WBEM_E_CALL_CANCELLED;
  return Clock::now() < end_ ? S_OK : kLate;
}

HRESULT Patience::Await(std::function<void()> work) const {
  if (const HRESULT ended = Ended(); ended != S_OK) return ended;
  std::packaged_task<void()> task([work = std::move(work)]() mutable {
    const platform::Apartment apartment(platform::Apartment::Kind::kMultithreaded);
    // What the work owns is released within the apartment.
    const std::function<void()> own = std::move(work);
    own();
  });
  std::future<void> done = task.get_future();
  std::thread thread(std::move(task));
  while (done.wait_for(kLook) != std::future_status::ready) {
    if (const HRESULT ended = Ended(); ended != S_OK) {
      thread.detach();
      return ended;
    }
  }
  thread.join();  // detached at once, threads of mingw-w64's library are sometimes lost
  done.get();
  return S_OK;
}

}  // namespace host
