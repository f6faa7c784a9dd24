#pragma once
// Trace lines tell what the provider is about to do and what failed. If the environment variable
// WIFI_PROVIDER_TRACE is 1 when the module is loaded, each line is written unchanged to the
// debugger (OutputDebugStringA). Otherwise nothing is written. Clients never see the lines.

#include <string>

namespace wifi {

/// Any other line.
void TraceMessage(const char* line);
inline void TraceMessage(const std::string& line) {
  TraceMessage(line.c_str());
}

/// Reports an exception of the adapter control library.
void TraceException(const char* line);

/// Receives all lines, besides the debugger. For code in the same process, such as tests.
class TraceReceiver {
 public:
  virtual void OnLine(const char* line, bool exceptionLine) = 0;

 protected:
  ~TraceReceiver() = default;
};

/// Installs `receiver` for the whole process. Returns the previous receiver. Pass nullptr to remove
/// it. A receiver must outlive its installation.
TraceReceiver* SetTraceReceiver(TraceReceiver* receiver);

}  // namespace wifi
