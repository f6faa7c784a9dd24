#include "host/model/wording.h"

#include <algorithm>

namespace host {

std::string Joined(const std::vector<std::string>& texts) {
  constexpr std::size_t kShown = 6;
  std::string text;
  for (std::size_t index = 0; index < std::min(texts.size(), kShown); ++index) {
    text += (index == 0 ? "" : ", ") + texts[index];
  }
  if (texts.size() > kShown) text += " and " + std::to_string(texts.size() - kShown) + " more";
  return text;
}

std::string Counted(std::size_t count, const std::string& singular) {
  return std::to_string(count) + " " + singular + (count == 1 ? "" : "s");
}

}  // namespace host
