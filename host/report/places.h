#pragma once
// What the page's sections share: their ids, and the mark of values that were made up.

#include <string>

#include "host/model/findings.h"
#include "host/report/html.h"

namespace host {

/// Marks the value before it.
inline void WriteInventedMark(Html& html) {
  html.Text(" ").Element("span", {{"class", "invented"}}, "made up");
}

inline constexpr const char* kAdaptersId = "adapters";

inline std::string SpectrumId(Spectrum spectrum) {
  return spectrum == Spectrum::k24GHz  ? "band-2"
         : spectrum == Spectrum::k5GHz ? "band-5"
                                       : "band-other";
}
inline std::string ClassId(const std::string& className) {
  return "class-" + className;
}
/// The section with more about a finding.
inline std::string PlaceOf(const Finding& finding) {
  if (finding.spectrum) return SpectrumId(*finding.spectrum);
  return finding.className.empty() ? kAdaptersId : ClassId(finding.className);
}

}  // namespace host
