// Runs the benchmarks; with --table prints tables with ratios instead of the raw figures.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "bench/platform_provider.h"

namespace {

/// Seconds of processor time by the benchmark's name: for one instance if the benchmark counts
/// instances, else for one request.
class Figures final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate) continue;  // a mean, a deviation
      if (run.error_occurred) {
        std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        failed = true;
        continue;
      }
      const auto counted = run.counters.find("instance");
      const double seconds =
          counted != run.counters.end()
              ? double{counted->second}
              : run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
      const std::string name = run.run_name.str();
      for (const char* counter : {"allocations", "bytes"}) {
        const auto found = run.counters.find(counter);
        if (found != run.counters.end()) memory_[counter + name] = found->second;
      }
      names_[{run.family_index, run.per_family_instance_index}] = name;
      // The minimum of the repetitions: noise only adds time.
      double& least = seconds_.try_emplace(name, seconds).first->second;
      least = std::min(least, seconds);
    }
  }

  /// In the order of the sources, whatever order they ran in.
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto& [place, name] : names_) names.push_back(name);
    return names;
  }
  double Of(const std::string& name) const {
    const auto found = seconds_.find(name);
    return found == seconds_.end() ? std::nan("") : found->second;
  }

  /// The counter "allocations" or "bytes"; empty if it was not counted.
  std::string MemoryOf(const char* counter, const std::string& name) const {
    const auto found = memory_.find(counter + name);
    if (found == memory_.end() || found->second == 0) return {};
    char text[16];
    std::snprintf(text, sizeof(text), "%.1f", found->second);
    return text;
  }

  bool failed = false;

 private:
  std::map<std::pair<std::int64_t, std::int64_t>, std::string> names_;
  std::map<std::string, double> seconds_;
  std::map<std::string, double> memory_;  ///< per instance, including the service's allocations
};

double Nanoseconds(double seconds) {
  return seconds * 1e9;
}

/// What an instance may cost at most, in floors; 0 if there is no goal.
double GoalOf(const std::string& className) {
  static const std::map<std::string, double> goals = {{"WiFi_NetworkAdapter", 5},
                                                      {"WiFi_AdapterTxRxStats", 3},
                                                      {"WiFi_AdapterCachedScanList", 1.75},
                                                      {"WiFi_AvailableNetwork", 1.75},
                                                      {"WiFi_NetworkExcludeList", 1.75},
                                                      {"WiFi_PreferredProfile", 1.75},
                                                      {"WiFi_NetworkAdapterConfiguration", 3},
                                                      {"WiFi_NetworkAdapterSetting", 4}};
  const auto found = goals.find(className);
  return found == goals.end() ? 3 : found->second;
}

void PrintClasses(const Figures& figures) {
  std::puts(
      "| Class | Instance, ns | Floor, ns | Library calls, ns | Floors | At most | Allocations | "
      "Bytes |\n|---|---:|---:|---:|---:|---:|---:|---:|");
  constexpr char kPrefix[] = "provider/";
  for (const std::string& name : figures.names()) {
    if (name.rfind(kPrefix, 0) != 0) continue;
    const std::string shown = name.substr(sizeof(kPrefix) - 1);
    const double provider = figures.Of(name);
    const double floor = figures.Of("floor/" + shown);
    char goal[16] = "";
    if (GoalOf(shown) != 0) std::snprintf(goal, sizeof(goal), "%g", GoalOf(shown));
    std::printf("| `%s` | %.0f | %.0f | %.1f | %.2f | %s | %s | %s |\n", shown.c_str(),
                Nanoseconds(provider), Nanoseconds(floor),
                Nanoseconds(figures.Of("calls/" + shown)), provider / floor, goal,
                figures.MemoryOf("allocations", name).c_str(),
                figures.MemoryOf("bytes", name).c_str());
  }
}

/// Every benchmark with sizes: its times, and the exponent from the previous size.
void PrintGrowth(const Figures& figures) {
  std::map<std::string, std::map<double, double>> series;
  std::vector<std::string> order;
  for (const std::string& name : figures.names()) {
    const std::size_t slash = name.rfind('/');
    if (slash == std::string::npos ||
        name.find_first_not_of("0123456789", slash + 1) != std::string::npos) {
      continue;
    }
    const std::string base = name.substr(0, slash);
    if (!series.contains(base)) order.push_back(base);
    series[base][std::stod(name.substr(slash + 1))] = figures.Of(name);
  }
  std::puts("\n| Request | Size | Time, µs | Exponent up to here |\n|---|---:|---:|---:|");
  for (const std::string& base : order) {
    const std::pair<const double, double>* before = nullptr;
    for (const auto& point : series[base]) {
      char exponent[16] = "";
      if (before != nullptr) {
        std::snprintf(
            exponent, sizeof(exponent), "%.2f",
            std::log(point.second / before->second) / std::log(point.first / before->first));
      }
      std::printf("| %s | %.0f | %.2f | %s |\n", base.c_str(), point.first, point.second * 1e6,
                  exponent);
      before = &point;
    }
  }
}

void PrintOthers(const Figures& figures) {
  if (const double ratio = figures.Of("trace/on") / figures.Of("trace/off"); !std::isnan(ratio)) {
    std::printf("\nTrace lines taken by a receiver: %.2f times the time without one.\n", ratio);
  }
  for (const std::string& name : figures.names()) {
    if (name.rfind("platform/", 0) == 0) {
      std::printf("The platform's own %s: %.0f ns an instance.\n", name.substr(9).c_str(),
                  Nanoseconds(figures.Of(name)));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool table = argc > 1 && std::strcmp(argv[1], "--table") == 0;
  if (table) {
    argv[1] = argv[0];
    ++argv;
    --argc;
  }
  bench::RegisterPlatformProvider();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  if (!table) {
    benchmark::RunSpecifiedBenchmarks();
    return 0;
  }
  Figures figures;
  benchmark::RunSpecifiedBenchmarks(&figures);
  PrintClasses(figures);
  PrintGrowth(figures);
  PrintOthers(figures);
  return figures.failed ? 1 : 0;
}
