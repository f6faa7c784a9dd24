#include "host/model/findings.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "host/model/machine.h"
#include "host/model/wording.h"
#include "host/service/result_text.h"

namespace host {
namespace {

constexpr int kHighPercentage = 10;  ///< of failures, from which on they count as high
constexpr std::size_t kCrowd = 4;    ///< networks on one channel
constexpr std::size_t kApart = 3;    ///< up to this number, equal findings are listed one by one
constexpr const char* kScanClass = "WiFi_AdapterCachedScanList";

/// Findings of one kind at any number of adapters or classes.
struct Kind {
  Weight weight;
  const char* singular;  ///< "is not associated"
  const char* plural;    ///< "are not associated"
  const char* nouns = "adapters";
};

constexpr Kind kAlone = {Weight::kProblem, "is not associated", "are not associated"};
constexpr Kind kSwitched = {Weight::kProblem, "is not well", "are not well"};
constexpr Kind kUncertain = {Weight::kAttention, "may be associated or not",
                             "may be associated or not"};
constexpr Kind kNotAsked = {Weight::kAttention, "was not asked for its networks",
                            "were not asked for their networks"};
constexpr Kind kNotRead = {Weight::kAttention, "did not tell all of its networks",
                           "did not tell all of their networks"};
constexpr Kind kUsesOpen = {Weight::kProblem, "uses an open network", "use an open network"};
constexpr Kind kUsesWep = {Weight::kProblem, "uses WEP", "use WEP"};
constexpr Kind kSharesAir = {Weight::kAttention, "shares its air", "share their air"};
constexpr Kind kWeak = {Weight::kAttention, "hears its network weakly",
                        "hear their networks weakly"};
constexpr Kind kManyErrors = {Weight::kAttention, "counted errors", "counted errors"};
constexpr Kind kFewErrors = {Weight::kNote, "counted errors", "counted errors"};
constexpr Kind kClassFailed = {Weight::kAttention, "was not read in full", "were not read in full",
                               "classes"};
constexpr Kind kListEnded = {Weight::kNote, "was not read in full", "were not read in full",
                             "classes"};

/// Findings in the order of their discovery, those of one kind together.
class Findings {
 public:
  void Add(Finding finding) { groups_.push_back({nullptr, {{"", std::move(finding)}}}); }
  void Add(const Kind& kind, const std::string& subject, Finding about) {
    auto group = std::ranges::find(groups_, &kind, &Group::kind);
    if (group == groups_.end()) group = groups_.insert(group, {&kind, {}});
    group->members.emplace_back(subject, std::move(about));
  }

  std::vector<Finding> Take() {
    std::vector<Finding> all;
    for (Group& group : groups_) {
      if (group.kind != nullptr && group.members.size() > kApart) {
        all.push_back(Together(group));
        continue;
      }
      for (auto& [subject, finding] : group.members) {
        if (group.kind != nullptr) {
          finding.weight = group.kind->weight;
          finding.headline = subject + " " + group.kind->singular;
        }
        all.push_back(std::move(finding));
      }
    }
    std::ranges::stable_sort(all, {}, &Finding::weight);
    return all;
  }

 private:
  struct Group {
    const Kind* kind;
    std::vector<std::pair<std::string, Finding>> members;
  };

  static Finding Together(const Group& group) {
    Finding finding = group.members.front().second;
    finding.weight = group.kind->weight;
    finding.headline =
        std::to_string(group.members.size()) + " " + group.kind->nouns + " " + group.kind->plural;
    const bool isSame = std::ranges::all_of(
        group.members, [&](const auto& member) { return member.second.detail == finding.detail; });
    std::vector<std::string> texts;
    for (const auto& [subject, about] : group.members) {
      std::string detail = isSame ? "" : about.detail;
      if (detail.ends_with('.')) detail.pop_back();
      texts.push_back(subject + (detail.empty() ? "" : ": " + detail));
    }
    std::string common = isSame ? finding.detail : "";
    if (!common.empty()) common += ' ';
    finding.detail = common + Joined(texts) + ".";
    return finding;
  }

  std::vector<Group> groups_;
};

/// A network's name in a sentence, isolated so that its writing direction does not affect the rest.
std::string Named(const std::string& name) {
  if (name.empty()) return "a hidden network";
  return "\u201C\u2068" + name + "\u2069\u201D";
}

std::string Sentence(std::string words) {
  if (!words.empty() && words[0] >= 'a' && words[0] <= 'z') words[0] += 'A' - 'a';
  return words + ".";
}

void JudgeAssociation(const Adapter& adapter, Findings* findings) {
  std::string detail;
  const auto add = [&detail](const char* reason) {
    detail += (detail.empty() ? "" : " ") + std::string(reason);
  };
  if (adapter.isEnabled == false) add("The adapter is disabled.");
  if (adapter.hardwareRadioOn == false) add("Radio off: the switch of the hardware is off.");
  if (adapter.radioOn == false) add("Radio off: software has switched it off.");
  if (adapter.hasFailedAuthentication) add("The last authentication failed.");
  if (adapter.isAssociated == false) {
    findings->Add(kAlone, adapter.title, {.detail = detail});
  } else if (!detail.empty()) {
    findings->Add(kSwitched, adapter.title, {.detail = detail});
  }
  if (!adapter.isAssociated) {
    findings->Add(kUncertain, adapter.title,
                  {.detail = Sentence("Not known: " + adapter.whyUnknown)});
  }
}

void JudgeHearing(const Adapter& adapter, const Dump& dump, Findings* findings) {
  if (adapter.whyUnheard.empty()) return;
  const std::string last = dump.EndedAt(kScanClass);
  const Finding about = {.detail = Sentence("Not known: " + adapter.whyUnheard),
                         .className = kScanClass};
  if (!last.empty() && adapter.key > last) {
    findings->Add(kNotAsked, adapter.title, about);
  } else if (dump.Status(kScanClass) != WBEM_E_NOT_FOUND || !adapter.networks.empty()) {
    findings->Add(kNotRead, adapter.title, about);
  }
}

void JudgeSignal(const Adapter& adapter, int weakSignal, Findings* findings) {
  for (const Network* network : adapter.networks) {
    if (!network->associated) continue;
    const bool isOpen = network->protection == Protection::kOpen;
    if (isOpen || network->protection == Protection::kWep) {
      findings->Add(isOpen ? kUsesOpen : kUsesWep, adapter.title,
                    {.detail = Named(network->name) +
                               (isOpen ? " encrypts nothing." : " can be read by others."),
                     .spectrum = network->spectrum});
    }
    std::size_t sharing = 0;
    std::size_t reaching = 0;
    for (const Network* other : adapter.networks) {
      if (other == network || !Overlap(*network, *other)) continue;
      ++(other->centre == network->centre ? sharing : reaching);
    }
    if (sharing + reaching > 0) {
      findings->Add(kSharesAir, adapter.title,
                    {.detail = "Channel " + std::to_string(*network->channel) + ": " +
                               Counted(sharing, "more network") + " on the channel of " +
                               Named(network->name) + ", " + std::to_string(reaching) +
                               " on channels that reach into it.",
                     .spectrum = network->spectrum});
    }
  }
  if (adapter.signal && *adapter.signal <= weakSignal) {
    findings->Add(kWeak, adapter.title,
                  {.detail = "Signal " + std::to_string(*adapter.signal) + " dBm.",
                   .className = "WiFi_AdapterAssocStats"});
  }
}

struct CounterRow {
  const char* className;
  const char* property;
  const char* text;
  bool isPercentage = false;
  bool alwaysMatters = false;  ///< even a single one is worth a look
};

constexpr CounterRow kCounters[] = {
    {.className = "WiFi_AdapterAssocStats",
     .property = "PercentTxErrs",
     .text = " % of the transmissions failed",
     .isPercentage = true},
    {.className = "WiFi_AdapterSignalParameters",
     .property = "PercentTxRetries",
     .text = " % had to be repeated",
     .isPercentage = true},
    {.className = "WiFi_AdapterAssocStats",
     .property = "PercentMissedBeacons",
     .text = " % of the beacons were missed",
     .isPercentage = true},
    {.className = "WiFi_AdapterAssocStats",
     .property = "CrcErrs",
     .text = " frames with a wrong check sum"},
    {.className = "WiFi_AdapterAssocStats",
     .property = "DroppedByAp",
     .text = " times dropped by the access point",
     .alwaysMatters = true},
};

void JudgeStatistics(const Dump& dump, const Adapter& adapter, Findings* findings) {
  std::vector<std::string> errors;
  bool isHigh = false;
  for (const CounterRow& row : kCounters) {
    const auto count = CountOf(dump.Row(row.className, adapter.key), row.property);
    if (!count || *count == 0) continue;
    errors.push_back(std::to_string(*count) + row.text);
    isHigh |= row.alwaysMatters || (row.isPercentage && *count >= kHighPercentage);
  }
  if (errors.empty()) return;
  findings->Add(isHigh ? kManyErrors : kFewErrors, adapter.title,
                {.detail = Joined(errors) + ".", .className = "WiFi_AdapterAssocStats"});
}

/// Names of unprotected networks, each once, with the number of its access points.
void JudgeProtection(const std::vector<Network>& networks, Protection protection,
                     const char* headline, Findings* findings) {
  std::map<std::string, std::set<std::string>> points;
  std::vector<std::string> names;
  std::size_t count = 0;
  std::optional<Spectrum> spectrum;
  for (const Network& network : networks) {
    if (network.protection != protection) continue;
    if (points[network.name].empty()) names.push_back(network.name);
    if (!points[network.name].insert(network.mac).second) continue;
    ++count;
    if (!spectrum) spectrum = network.spectrum;
  }
  if (count == 0) return;
  for (std::string& name : names) {
    const std::size_t number = points[name].size();
    name = Named(name) + (number > 1 ? " (" + std::to_string(number) + ")" : "");
  }
  findings->Add({Weight::kAttention, Counted(count, headline), Joined(names) + ".", spectrum});
}

void JudgeChannels(const std::vector<Network>& networks, Spectrum spectrum, Findings* findings) {
  std::map<int, std::pair<const Network*, std::set<std::string>>> channels;  // by centre
  for (const Network& network : networks) {
    if (network.spectrum != spectrum || !network.centre) continue;
    auto& [first, points] = channels[*network.centre];
    first = &network;
    points.insert(network.mac);
  }
  std::vector<std::string> pairs;
  std::vector<std::string> crowds;
  for (auto left = channels.begin(); left != channels.end(); ++left) {
    const auto& [leftNetwork, points] = left->second;
    const std::string channel = std::to_string(*leftNetwork->channel);
    if (points.size() >= kCrowd) {
      crowds.push_back(std::to_string(points.size()) + " on channel " + channel);
    }
    for (auto right = std::next(left); right != channels.end(); ++right) {
      if (!Overlap(*leftNetwork, *right->second.first)) break;
      pairs.push_back(channel + " and " + std::to_string(*right->second.first->channel));
    }
  }
  if (!pairs.empty()) {
    findings->Add({Weight::kAttention,
                   "Channels overlap in the " + SpectrumTitle(spectrum) + " band",
                   Joined(pairs) + ".", spectrum});
  }
  if (!crowds.empty()) {
    findings->Add({Weight::kNote, "Networks crowd in the " + SpectrumTitle(spectrum) + " band",
                   Joined(crowds) + ".", spectrum});
  }
}

void JudgeReading(const Dump& dump, Findings* findings) {
  for (const auto& [name, rows] : dump.json().items()) {
    const std::string failure = FailureOf(dump, name);
    if (failure.empty()) continue;
    const bool isEmptyList = ShowsLists(name) && dump.Status(name) == WBEM_E_NOT_FOUND;
    findings->Add(isEmptyList ? kListEnded : kClassFailed, name,
                  {.detail = Sentence(failure), .className = name});
  }
}

void JudgeStart(const Machine& machine, Findings* findings) {
  const auto& start = machine.source.startStatus;
  if (start && *start != S_OK) {
    findings->Add({Weight::kProblem, "The provider's start failed",
                   DescribeResult(*start) + ". Adapters may be missing."});
  }
  if (!machine.adapters.empty()) return;
  if (machine.whyMoreAdapters.empty()) {
    findings->Add({Weight::kProblem, "There is no adapter"});
  } else {
    findings->Add({Weight::kProblem, "Whether there is an adapter is not known",
                   Sentence(machine.whyMoreAdapters)});
  }
}

}  // namespace

std::vector<Finding> FindingsOf(const Machine& machine, const Dump& dump, int weakSignal) {
  Findings findings;
  JudgeStart(machine, &findings);
  for (const Adapter& adapter : machine.adapters) {
    JudgeAssociation(adapter, &findings);
    JudgeHearing(adapter, dump, &findings);
    JudgeSignal(adapter, weakSignal, &findings);
    JudgeStatistics(dump, adapter, &findings);
  }
  JudgeProtection(machine.networks, Protection::kOpen, "open access point", &findings);
  JudgeProtection(machine.networks, Protection::kWep, "WEP access point", &findings);
  JudgeChannels(machine.networks, Spectrum::k24GHz, &findings);
  JudgeChannels(machine.networks, Spectrum::k5GHz, &findings);
  JudgeReading(dump, &findings);
  return findings.Take();
}

}  // namespace host
