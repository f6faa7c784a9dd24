#include "scenario/recording.h"

#include <algorithm>

#include "scenario/time_text.h"

namespace simulator {

bool RecordingReader::Take(std::string_view line) {
  using Json = nlohmann::ordered_json;
  const Json sample = Json::parse(line, nullptr, false);
  if (!sample.is_object()) return false;
  const auto time = sample.find(kSampleTime);
  if (time == sample.end() || !time->is_string()) return false;
  const auto moment = ParseMoment(time->get_ref<const std::string&>());
  if (!moment) return false;
  if (const auto whole = sample.find(kSampleWhole); whole != sample.end()) {
    if (!whole->is_object()) return false;
    isChanged_ = !dump_ || *dump_ != *whole;
    dump_ = *whole;
  } else {
    const auto patch = sample.find(kSamplePatch);
    if (!dump_ || patch == sample.end()) return false;
    isChanged_ = !patch->empty();
    if (isChanged_) {
      try {
        dump_ = dump_->patch(*patch);
      } catch (const Json::exception&) {
        return false;
      }
    }
  }
  time_ = *moment;
  return true;
}

bool RecordingReader::Next() {
  while (!rest_.empty()) {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    const bool isWhole = end < rest_.size();
    rest_.remove_prefix(isWhole ? end + 1 : end);
    if (isWhole && Take(line)) return true;
    ++skipped_;
    dump_.reset();  // what patches follow is no longer known
  }
  return false;
}

}  // namespace simulator
