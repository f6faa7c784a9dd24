#pragma once
// Properties that are numbers for a management system, and how to read them: decimal texts, texts
// with a unit, and counters that turn negative above 2147483647.

#include <span>
#include <string>

namespace host {

enum class NumberForm {
  kInteger,  ///< a signed decimal text
  kMeasure,  ///< a decimal text, with or without fraction, followed by its unit or not
  kCounter,  ///< a 32-bit count, as a number or a decimal text; an array of them in an array
  kList,     ///< numbers in one text
};

struct NumberRow {
  const char* className;
  const char* property;
  NumberForm form;
  const char* name;  ///< of the number, with its unit; null for a counter
};

extern const std::span<const NumberRow> kNumbers;

/// The name of the number: the row's own, or "PROPERTYUnsigned" for a counter.
std::string NameOf(const NumberRow& row);

}  // namespace host
