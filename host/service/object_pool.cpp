#include <algorithm>

#include "host/service/com_object.h"

namespace host {

void ObjectPool::Tidy() {
  const auto newest = objects_.end() - static_cast<std::ptrdiff_t>(kKept);
  const auto kept =
      std::remove_if(objects_.begin(), newest, [](const std::unique_ptr<Referenced>& object) {
        return object->references() == 0 && !object->misused() && object->complaints().empty();
      });
  objects_.erase(kept, newest);
  roomy_ = objects_.size() + kKept;
}

void ObjectPool::Sweep(const std::string& request, Defects& defects) {
  for (std::unique_ptr<Referenced>& object : objects_) {
    for (const std::string& complaint : object->complaints()) {
      defects.Add(request + ": " + object->what() + " " + complaint);
    }
    const LONG held = object->references();
    if (object->misused() || held < 0) {
      defects.Add(request + ": " + object->what() + " was released more often than taken");
    } else if (held > 0) {
      defects.Add(request + ": " + std::to_string(held) + " reference" + (held == 1 ? "" : "s") +
                  " to " + object->what() + (held == 1 ? " was" : " were") + " not released");
    }
    if (held > 0) leaked_.push_back(std::move(object));
  }
  objects_.clear();
  roomy_ = 2 * kKept;
}

}  // namespace host
