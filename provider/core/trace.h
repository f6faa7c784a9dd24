#pragma once
// Trace lines: what the provider is about to do, and what went wrong. With the environment variable
// WIFI_PROVIDER_TRACE set to 1 when the module is loaded, each line goes to the debugger
// (OutputDebugStringA), text unchanged. Otherwise nothing is written. Clients never see any of it.

#include <string>

namespace wifi {

/// An ordinary line.
void TraceMessage(const char* line);
inline void TraceMessage(const std::string& line) {
  TraceMessage(line.c_str());
}

/// A line that reports an exception of the adapter control library.
void TraceException(const char* line);

/// Where lines go besides the debugger; for code in the same process, such as tests.
class TraceReceiver {
 public:
  virtual void OnLine(const char* line, bool exceptionLine) = 0;

 protected:
  ~TraceReceiver() = default;
};

/// Installs `receiver` for the whole process and returns the one before; none switches it off.
/// The receiver must outlive its installation.
TraceReceiver* SetTraceReceiver(TraceReceiver* receiver);

}  // namespace wifi
