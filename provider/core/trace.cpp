#include "provider/core/trace.h"

#include <atomic>

#include "platform/environment.h"
#include "platform/platform.h"

namespace wifi {
namespace {

std::atomic<TraceReceiver*> currentReceiver = nullptr;

// Read once, when the module is loaded.
const bool kToDebugger = platform::EnvironmentIs("WIFI_PROVIDER_TRACE", "1");

void Emit(const char* line, bool exceptionLine) {
  if (kToDebugger) OutputDebugStringA(line);
  if (TraceReceiver* receiver = currentReceiver.load()) receiver->OnLine(line, exceptionLine);
}

}  // namespace

void TraceMessage(const char* line) {
  Emit(line, false);
}
void TraceException(const char* line) {
  Emit(line, true);
}

TraceReceiver* SetTraceReceiver(TraceReceiver* receiver) {
  return currentReceiver.exchange(receiver);
}

}  // namespace wifi
