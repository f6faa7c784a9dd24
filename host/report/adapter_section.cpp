#include "host/report/adapter_section.h"

#include <string>

#include "host/report/findings.h"

namespace host {
namespace {

struct FactRow {
  const char* label;
  const char* className;
  const char* property;
  bool onlyAssociated;
};

// In the order in which they are shown; what has no value is left out.
constexpr FactRow kFacts[] = {
    {"Network", "WiFi_AdapterAssociationInfo", "SSID", true},
    {"Access point", "WiFi_AdapterAssocStats", "ApMacAddr", true},
    {"Signal", "WiFi_AdapterAssocStats", "Rssi", true},
    {"Channel", "WiFi_AdapterAssociationInfo", "Channel", true},
    {"Rate", "WiFi_AdapterAssociationInfo", "Rate", true},
    {"Security", "WiFi_AdapterAssociationInfo", "AuthenMode", true},
    {"Address", "WiFi_AdapterTcpIpSettings", "IPAddress", false},
    {"MAC", "WiFi_AdapterDevice", "MacAddress", false},
    {"Type", "WiFi_NetworkAdapter", "WiFiAdapterType", false},
    {"Driver", "WiFi_AdapterVersion", "Driver", false},
};

void WriteFact(Html& html, const std::string& label, const std::string& value) {
  html.Open("div").Element("dt", {}, label);
  html.Open("dd").Element("bdi", {}, value).Close().Close().NewLine();
}

}  // namespace

void WriteAdapterSection(Html& html, const Json& dump, const std::vector<Network>& networks) {
  html.Open("section", {{"id", kAdaptersId}, {"aria-labelledby", "adapters-title"}});
  html.Element("h2", {{"id", "adapters-title"}}, "Adapters").NewLine();
  html.Open("div", {{"class", "cards"}});
  for (const Json& adapter : InstancesOf(dump, "WiFi_NetworkAdapter")) {
    const std::string key = TextOf(adapter, "DeviceID");
    const Json& association = InstanceOf(dump, "WiFi_AdapterAssociationInfo", "SettingID", key);
    const bool isAssociated = TextOf(association, "Associated") == "true";
    html.Open("article", {{"class", isAssociated ? "card associated" : "card"}});
    html.Element("h3", {}, AdapterTitle(dump, key));
    std::string state = isAssociated ? "Associated" : "Not associated";
    if (TextOf(adapter, "RadioState") == "false" ||
        TextOf(adapter, "HardwareRadioState") == "false") {
      state += ", radio off";
    }
    html.Element("p", {{"class", "state"}}, state).Open("dl");
    for (const FactRow& row : kFacts) {
      if (row.onlyAssociated && !isAssociated) continue;
      const bool isOwn = std::string_view(row.className) == "WiFi_NetworkAdapter";
      const std::string value =
          TextOf(isOwn ? adapter : InstanceOf(dump, row.className, "SettingID", key), row.property);
      if (!value.empty()) WriteFact(html, row.label, value);
    }
    std::size_t heard = 0;
    for (const Network& network : networks) heard += network.adapter == key ? 1 : 0;
    WriteFact(html, "Hears", std::to_string(heard) + (heard == 1 ? " network" : " networks"));
    html.Close().Close().NewLine();
  }
  html.Close().Close().NewLine();
}

}  // namespace host
