#pragma once

#include <functional>
#include <string>
#include <utility>

namespace host {

/// Collects the provider's violations of the contract, one sentence each, and reports each at once.
class Defects {
 public:
  using Report = std::function<void(const std::string&)>;
  explicit Defects(Report report) : report_(std::move(report)) {}

  void Add(const std::string& sentence) {
    ++count_;
    report_(sentence);
  }
  int count() const { return count_; }

 private:
  Report report_;
  int count_ = 0;
};

}  // namespace host
