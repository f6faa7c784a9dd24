#include "scenario/sections.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace simulator {
namespace {

std::optional<std::string> OptionalText(const Node& node) {
  if (node.value.is_null()) return std::nullopt;
  return node.Text();
}

std::optional<std::uint32_t> OptionalNumber(const Node& node) {
  if (node.value.is_null()) return std::nullopt;
  return static_cast<std::uint32_t>(node.Number(0, kAllBits));
}

PlatformAdapter ReadPlatformAdapter(const Node& node) {
  PlatformAdapter adapter;
  const auto text = [](std::optional<std::string>& place) {
    return [&place](const Node& member) { place = OptionalText(member); };
  };
  node.EachMember({{"deviceId", text(adapter.deviceId)},
                   {"pnpDeviceId", text(adapter.pnpDeviceId)},
                   {"macAddress", text(adapter.macAddress)},
                   {"caption", text(adapter.caption)},
                   {"description", text(adapter.description)}});
  return adapter;
}

void ReadPlatform(const Node& node, PlatformObjects& platform) {
  node.EachMember(
      {{"userName", [&](const Node& member) { platform.userName = OptionalText(member); }},
       {"osVersion",
        [&](const Node& member) {
          platform.osVersion = ParseOsVersion(member.Text());
          if (!platform.osVersion) member.FailExpecting("a version such as \"6.1\"");
        }},
       {"networkAdapters", [&](const Node& member) {
          member.EachElement([&](const Node& element) {
            platform.adapters.push_back(ReadPlatformAdapter(element));
          });
        }}});
}

void ReadMadeOf(const Node& node, Provenance& madeOf) {
  const auto texts = [](std::vector<std::string>& place) {
    return [&place](const Node& member) {
      place.clear();
      member.EachElement([&](const Node& element) { place.push_back(element.Text()); });
    };
  };
  node.EachMember({{"source", [&](const Node& member) { madeOf.source = member.Text(); }},
                   {"told", texts(madeOf.told)},
                   {"invented", texts(madeOf.invented)}});
}

void ReadRegistry(const Node& node, PlatformObjects& platform) {
  node.EachMember(
      {{"keyPresent", [&](const Node& member) { platform.featureKeyPresent = member.Boolean(); }},
       {"featureSet1", [&](const Node& member) { platform.featureSet1 = OptionalNumber(member); }},
       {"featureSet2",
        [&](const Node& member) { platform.featureSet2 = OptionalNumber(member); }}});
}

void ReadValues(const Node& node, std::map<std::uint32_t, std::uint32_t>& values) {
  for (const auto& [name, member] : node.Object().items()) {
    const Node child = node.Child(member, name);
    std::uint32_t identifier = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), identifier);
    if (error != std::errc() || stop != name.data() + name.size()) {
      child.Fail("the member's name is to be a setting identifier, a decimal number");
    }
    if (member.is_null()) {
      values.erase(identifier);
    } else {
      values[identifier] = static_cast<std::uint32_t>(child.Number(0, kAllBits));
    }
  }
}

RecordList ReadList(const Node& node, const Table& table) {
  const auto readEntries = [&table](const Node& entries) {
    if (!entries.value.is_array()) entries.FailExpecting("an array");
    RecordList list(entries.value.size() * table.size);
    std::size_t index = 0;
    entries.EachElement([&](const Node& entry) {
      ReadRecord(entry, table, list.entries() + index++ * table.size);
    });
    list.set_count(static_cast<std::int32_t>(index));
    return list;
  };
  if (!node.value.is_object()) return readEntries(node);

  RecordList list;
  std::int64_t entryCount = 0;
  node.EachMember({{"entries",
                    [&](const Node& member) {
                      list = readEntries(member);
                      entryCount = static_cast<std::int64_t>(member.value.size());
                    }},
                   {"count", [&](const Node& member) {
                      const std::int64_t count =
                          member.Number(std::numeric_limits<std::int32_t>::min(), kAllBits);
                      if (count > entryCount) {
                        member.Fail("the count is greater than the number of entries, " +
                                    std::to_string(entryCount));
                      }
                      list.set_count(static_cast<std::int32_t>(count));
                    }}});
  return list;
}

std::vector<ProfileRecord> ReadStore(const Node& node) {
  std::vector<ProfileRecord> profiles;
  node.EachElement([&](const Node& element) {
    ProfileRecord& profile = profiles.emplace_back();
    profile.opMode = profile.encryption = profile.authentication = 1;
    ReadRecord(element, kProfileTable, &profile);
    if (profile.name[0] == '\0') element.Fail("the member name is missing or empty");
  });
  return profiles;
}

void ReadProfiles(const Node& node, Scenario& scenario) {
  std::vector<Member> members;
  for (std::size_t store = 0; store < kProfileStores.size(); ++store) {
    members.push_back(
        {kProfileStores[store], [&profiles = scenario.profiles[store]](const Node& member) {
           profiles = ReadStore(member);
         }});
  }
  node.EachMember(members);
}

}  // namespace

void ReadAdapter(const Node& node, Adapter& adapter) {
  const auto list = [](RecordList& place, const Table& table) {
    return [&place, &table](const Node& member) { place = ReadList(member, table); };
  };
  ReadRecord(node, kAdapterTable, &adapter.records,
             {{"cachedNetworks", list(adapter.cachedNetworks, kNetworkTable)},
              {"availableNetworks", list(adapter.availableNetworks, kNetworkTable)},
              {"excludeList", list(adapter.excludeList, kExcludeEntryTable)}});
}

void AdapterAppender::Append(const Node& node, const Adapter& initial,
                             std::vector<Adapter>& adapters) {
  Adapter adapter = initial;
  AdapterRecords& records = adapter.records;
  records.number = static_cast<std::uint32_t>(adapters.size() + 1);
  ReadAdapter(node, adapter);
  if (!node.value.contains("mac")) node.Fail("the member mac is missing");
  if (!numbers_.insert(records.number).second) {
    node.Fail("another adapter has the number " + std::to_string(records.number));
  }
  if (!addresses_.emplace(std::begin(records.mac), std::end(records.mac)).second) {
    node.Fail("another adapter has the same mac");
  }
  // Bytes that identify the adapter when a client passes them back; clients do not read them.
  std::memcpy(records.device.unread0, &records.number, sizeof records.number);
  records.tcpipv6.size = sizeof records.tcpipv6;
  adapters.push_back(std::move(adapter));
}

std::optional<OsVersion> ParseOsVersion(std::string_view text) {
  OsVersion version;
  // cppcheck takes the parsed numbers for views of their text.
  // cppcheck-suppress danglingTemporaryLifetime
  const char* end = text.data() + text.size();
  const auto major = std::from_chars(text.data(), end, version.major);
  if (major.ec != std::errc() || major.ptr == end || *major.ptr != '.') return std::nullopt;
  const auto minor = std::from_chars(major.ptr + 1, end, version.minor);
  if (minor.ec != std::errc() || minor.ptr != end) return std::nullopt;
  return version;
}

void ReadScenario(const Node& root, Scenario& scenario) {
  PlatformObjects& platformObjects = scenario.platform;
  root.EachMember(
      {{"apiVersion",
        [&](const Node& member) {
          scenario.apiVersion = static_cast<std::uint32_t>(member.Number(0, kAllBits));
        }},
       {"platform", [&](const Node& member) { ReadPlatform(member, platformObjects); }},
       {"registry", [&](const Node& member) { ReadRegistry(member, platformObjects); }},
       {"adapters",
        [](const Node& member) {
          // Each element went to an AdapterAppender when it had been read.
          if (!member.value.is_array()) member.FailExpecting("an array");
        }},
       {"settings", [&](const Node& member) { ReadValues(member, scenario.settings); }},
       {"policies", [&](const Node& member) { ReadValues(member, scenario.policies); }},
       {"profiles", [&](const Node& member) { ReadProfiles(member, scenario); }},
       {"faults",
        [&](const Node& member) {
          AdapterNumbers numbers;
          for (const Adapter& adapter : scenario.adapters) {
            numbers.push_back(adapter.records.number);
          }
          scenario.faults = ReadFaults(member, &numbers);
        }},
       {"timeline", [&](const Node& member) { scenario.timeline = ReadTimeline(member); }},
       {"madeOf", [&](const Node& member) { ReadMadeOf(member, platformObjects.madeOf); }}});
  const auto platform = root.value.find("platform");
  if (platform == root.value.end() || !platform->contains("networkAdapters")) {
    scenario.platform.adapters = PlatformAdaptersOf(scenario.adapters);
  }
}

}  // namespace simulator
