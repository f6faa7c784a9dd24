#include "host/model/machine.h"

#include "host/model/wording.h"
#include "host/service/result_text.h"

namespace host {
namespace {

constexpr const char* kListedAdapters = "WiFi_NetworkAdapter";

std::string WhyMoreAdapters(const Dump& dump, const Source& source) {
  if (source.startStatus && *source.startStatus != S_OK) {
    return "the provider's start failed, " + DescribeResult(*source.startStatus);
  }
  if (!dump.Has(kListedAdapters)) return std::string("the dump has no ") + kListedAdapters;
  const HRESULT status = dump.Status(kListedAdapters);
  return status == S_OK ? "" : DescribeResult(status);
}

}  // namespace

Machine::Machine(const Dump& dump, int weakSignal)
    : source(SourceOf(dump)),
      networks(NetworksOf(dump, source)),
      adapters(AdaptersOf(dump, source, networks)),
      whyMoreAdapters(WhyMoreAdapters(dump, source)),
      findings(FindingsOf(*this, dump, weakSignal)) {}

std::string FailureOf(const Dump& dump, const std::string& className) {
  const HRESULT status = dump.Status(className);
  if (status == S_OK) return "";
  const std::string last = dump.EndedAt(className);
  if (last.empty()) return DescribeResult(status);
  const std::vector<std::string> missed = dump.NotReached(className, false);
  const std::vector<std::string> named = dump.NotReached(className, true);
  const bool isEmptyList =
      ShowsLists(className) && status == WBEM_E_NOT_FOUND && dump.Row(className, last).empty();
  if (isEmptyList && missed.empty() && named.empty()) return "";
  std::string text = "the enumeration ended at adapter " + last + ", " + DescribeResult(status);
  if (ShowsLists(className) && !named.empty()) {
    text += "; of adapter " + Joined(named) + " only what was asked for by name";
  }
  if (!missed.empty()) text += "; not known of adapter " + Joined(missed);
  if (!missed.empty() && dump.AskedByName(className)) text += ", and no request by name tells more";
  return text;
}

}  // namespace host
