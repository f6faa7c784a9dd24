#pragma once

#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

#include "adapterapi/adapter_api.h"
#include "scenario/scenario.h"

namespace simulator {

using namespace adapterapi;  // the operation list uses the names of that namespace

/// Statuses of the simulated adapter control library.
enum : ApiStatus {
  kOk = 0,
  kFailed = static_cast<ApiStatus>(0x80004005),           ///< no scenario
  kInvalidArgument = static_cast<ApiStatus>(0x80070057),  ///< adapter, pointer or value
  kUnknownSetting = static_cast<ApiStatus>(0x80070002),
  kNotReady = static_cast<ApiStatus>(0x80070015),  ///< radio off or not associated
  kNotFound = static_cast<ApiStatus>(0x80070490),  ///< no such entry
};

/// The adapters of a scenario and how the operations change them. Not locked: see Library.
///
/// Returned lists stay valid while the machine lives, until the same list has been read kKeptLists
/// times, each time with another content.
class Machine final : public AdapterApi {
 public:
  explicit Machine(Scenario scenario);

  /// Changes a member of the current scenario: see ChangeMember. Throws ScenarioError.
  bool Change(const std::string& path, const std::string& value);
  /// Undoes all changes: the machine is again as the scenario that it was made of, which is passed.
  void Restart(const Scenario& scenario);
  const std::vector<Fault>& faults() const { return scenario_.faults; }

#define QUARN_OPERATION(ordinal, name, parameters, arguments) ApiStatus name parameters override;
#include "adapterapi/operations.inc"
#undef QUARN_OPERATION

 private:
  static constexpr std::size_t kKeptLists = 8;

  /// Copies of a list that clients may still read.
  struct GivenLists {
    std::array<RecordList, kKeptLists> lists;
    std::size_t last = 0;
  };
  struct State : Adapter {
    explicit State(Adapter adapter) : Adapter(std::move(adapter)) {}
    GivenLists cachedNetworksGiven;
    GivenLists availableNetworksGiven;
    GivenLists excludeListGiven;
  };

  State* Find(AdapterNumber number);
  /// The adapter that the record identifies in the bytes that clients only pass on.
  State* Find(const DeviceInfoRecord* record);
  template <class Value>
  ApiStatus Give(AdapterNumber number, Value AdapterRecords::*member, Value* output);
  template <class Value>
  ApiStatus Keep(AdapterNumber number, Value AdapterRecords::*member, Value value, Value least,
                 Value most);
  template <class List>
  ApiStatus GiveList(AdapterNumber number, RecordList Adapter::*member, GivenLists State::*given,
                     const List** list);
  template <class Edit>
  ApiStatus EditExcludeList(AdapterNumber adapter, Edit&& edit);
  static ApiStatus Apply(State* state, const ORVEL_WLAN_PROFILE* profile);

  Scenario scenario_;
  std::vector<State> adapters_;
  std::unordered_map<AdapterNumber, std::size_t> places_;  ///< in adapters_
  RecordList adapterList_;
};

}  // namespace simulator
