#include "host/cli/command_table.h"

#include <iterator>

#include "host/cli/commands.h"

namespace host {
namespace {

using Count = ArgumentRow::Count;

const ArgumentRow kClassName = {"CLASS", "class name", Takes::kClass};
const ArgumentRow kObjectPath = {"PATH", "object path, CLASS.KEY=\"value\"", Takes::kPath};
const ArgumentRow kAssignments = {"NAME=VALUE", "new values, or in-parameters", Takes::kAssignment,
                                  Count::kAny};

const ArgumentRow kOutputFile = {"FILE", "file to write, whole or not at all", Takes::kFile,
                                 Count::kOptional};

const std::vector<OutputFormat> kRowFormats = {OutputFormat::kTable, OutputFormat::kList,
                                               OutputFormat::kJson, OutputFormat::kCsv};
const std::vector<OutputFormat> kNetworkFormats = {OutputFormat::kTable, OutputFormat::kList,
                                                   OutputFormat::kJson, OutputFormat::kCsv,
                                                   OutputFormat::kChart};

const OptionRow kPaths = {"--paths", nullptr, "Begin each instance with its object path"};

// The statuses with which a request to the provider may end.
const std::vector<ExitStatus> kOfRequests = {kNotFound, kRefused, kDefective};
const std::vector<ExitStatus> kOfService = {kNotFound, kRefused, kDefective, kUnanswered};

}  // namespace

const std::vector<CommandRow>& Commands() {
  static const std::vector<CommandRow> rows = {
      {.name = "status",
       .help =
           "Show each adapter with its network, signal, rate and address, and the networks around",
       .needs = Needs::kProvider,
       .formats = {OutputFormat::kTable},
       .examples = {"wmihost status", "wmihost --service status",
                    "wmihost --scenario laptop.json status"},
       .statuses = kOfService,
       .run = RunView},
      {.name = "adapters",
       .help = "Show the adapters, a line each",
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .examples = {"wmihost adapters", "wmihost --service adapters --format csv"},
       .statuses = kOfService,
       .run = RunView},
      {.name = "networks",
       .help = "Show the networks that the adapters hear, the strongest first",
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .examples = {"wmihost networks", "wmihost --service networks --format json"},
       .statuses = kOfService,
       .run = RunView},
      {.name = "enum",
       .help = "Show all instances of a class",
       .arguments = {kClassName},
       .options = {kPaths},
       .needs = Needs::kProvider,
       .formats = kNetworkFormats,
       .takesFields = true,
       .examples =
           {"wmihost enum WiFi_NetworkAdapter",
            "wmihost enum WiFi_AdapterCachedScanList --fields NetworkName,RSSI --sort -RSSI",
            "wmihost enum WiFi_AvailableNetwork --format chart"},
       .statuses = kOfService,
       .run = RunEnum},
      {.name = "get",
       .help = "Show one instance",
       .arguments = {kObjectPath},
       .options = {kPaths},
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .takesFields = true,
       .examples = {"wmihost get \"WiFi_NetworkAdapter.DeviceID='7'\"",
                    "wmihost get \"WiFi_AdapterAssociationInfo.SettingID='7'\" --fields SSID,Rate"},
       .statuses = kOfService,
       .run = RunGet},
      {.name = "query",
       .help = "Show the instances that a WQL query selects",
       .arguments =
           {{"WQL",
             "SELECT ... FROM CLASS [WHERE ...], ASSOCIATORS OF {PATH}, REFERENCES OF {PATH}",
             Takes::kQuery, Count::kWords}},
       .options = {kPaths, {"--provider", nullptr, "Hand the query to the provider unchanged"}},
       .needs = Needs::kProvider,
       .formats = kNetworkFormats,
       .takesFields = true,
       .examples = {"wmihost query \"SELECT * FROM WiFi_AvailableNetwork WHERE Band = '802.11g'\"",
                    "wmihost query \"ASSOCIATORS OF {WiFi_NetworkAdapter.DeviceID='7'}\"",
                    "wmihost query \"SELECT * FROM meta_class WHERE __CLASS LIKE '%Scan%'\""},
       .statuses = kOfService,
       .run = RunQuery},
      {.name = "classes",
       .help = "List the classes",
       .needs = Needs::kScenario,
       .formats = kRowFormats,
       .examples = {"wmihost classes", "wmihost classes --format csv"},
       .statuses = {kNotFound, kRefused, kUnanswered},
       .run = RunClasses},
      {.name = "describe",
       .help = "Describe a class: properties and methods",
       .arguments = {kClassName},
       .needs = Needs::kScenario,
       .formats = kRowFormats,
       .examples = {"wmihost describe WiFi_NetworkAdapter",
                    "wmihost describe WiFi_AdapterAssociationInfo --format json"},
       .statuses = {kNotFound, kRefused, kUnanswered},
       .run = RunDescribe},
      {.name = "dump",
       .help = "Show all instances of all classes",
       .arguments = {kOutputFile},
       .needs = Needs::kProvider,
       .formats = {OutputFormat::kTable, OutputFormat::kList, OutputFormat::kJson},
       .examples = {"wmihost dump --format json > dump.json",
                    "wmihost --service dump --format json > customer.json"},
       .statuses = kOfService,
       .run = RunDump},
      {.name = "report",
       .help = "Write all instances of all classes as a page to look at and to send",
       .arguments = {kOutputFile},
       .needs = Needs::kProvider,
       .examples = {"wmihost report > report.html",
                    "wmihost --scenario laptop.json report > laptop.html"},
       .statuses = kOfService,
       .run = RunReport},
      {.name = "metrics",
       .help = "Write the machine as metrics in the text format of Prometheus",
       .arguments = {{"FILE", "file to write; standard output if missing", Takes::kFile,
                      Count::kOptional}},
       .needs = Needs::kProvider,
       .examples = {"wmihost metrics", "wmihost --service metrics wifi.prom"},
       .statuses = kOfService,
       .run = RunMetrics},
      {.name = "health",
       .help = "Check the machine for a monitoring system: one line, and 0, 1, 2 or 3 as status",
       .options = {{"--warning-signal", "DBM", "signal from which down to warn (default: -75)",
                    Takes::kText},
                   {"--critical-signal", "DBM",
                    "signal from which down the state is critical (default: -85)", Takes::kText}},
       .needs = Needs::kProvider,
       .isCheck = true,
       .examples = {"wmihost --service health",
                    "wmihost --service --timeout 10 health --critical-signal -80"},
       .run = RunHealth},
      {.name = "record",
       .help = "Record what the machine shows while time passes, as JSON lines",
       .arguments = {{"FILE", "recording to begin or to go on with", Takes::kFile}},
       .options =
           {{"--every", "DURATION", "Time between two samples (default: 5s)", Takes::kDuration},
            {"--for", "DURATION", "End after this time (default: go on until Ctrl-C)",
             Takes::kDuration},
            {"--rotate", "MEGABYTES",
             "Before the file is larger than this, rename it to FILE.1, FILE.2, ... and begin "
             "another",
             Takes::kMegabytes}},
       .needs = Needs::kProvider,
       .place = Place::kCommandLine,
       .examples = {"wmihost record day.jsonl", "wmihost record walk.jsonl --every 2s --for 10m"},
       .statuses = {kRefused, kDefective},
       .run = RunRecord},
      {.name = "put",
       .help = "Change properties of an instance",
       .arguments = {kObjectPath, kAssignments},
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .examples = {"wmihost put \"WiFi_NetworkAdapter.DeviceID='7'\" RadioState=false",
                    "wmihost put \"WiFi_AdapterChannel.SettingID='7'\" ChannelA=48 ChannelB=6"},
       .statuses = kOfService,
       .run = RunPut},
      {.name = "call",
       .help = "Call a method of an instance",
       .arguments = {kObjectPath, {"METHOD", "method name", Takes::kMethod}, kAssignments},
       .needs = Needs::kProvider,
       .formats = kRowFormats,
       .takesFields = true,
       .examples = {"wmihost call \"WiFi_PreferredProfile.Name='Office'\" ApplyProfile AdapterID=7",
                    "wmihost call \"WiFi_NetworkAdapter.DeviceID='7'\" AddExcludeListEntry "
                    "NetworkName=Guest Reason=3",
                    "wmihost call \"WiFi_NetworkAdapter.DeviceID='7'\" ResetStatistics"},
       .statuses = kOfService,
       .run = RunCall},
      {.name = "delete",
       .help = "Delete an instance",
       .arguments = {kObjectPath},
       .needs = Needs::kProvider,
       .examples = {"wmihost delete \"WiFi_PreferredProfile.Name='Office'\"",
                    "wmihost delete \"WiFi_NetworkExcludeList.SettingID='7',NetworkName='Guest'\""},
       .statuses = kOfRequests,
       .run = RunDelete},
      {.name = "shell",
       .help = "Run commands from a file or from standard input",
       .arguments = {{"FILE", "file with one command a line; standard input if missing or -",
                      Takes::kFile, Count::kOptional}},
       .needs = Needs::kProvider,
       .place = Place::kCommandLine,
       .formats = kRowFormats,
       .takesFields = true,
       .examples = {"wmihost shell", "wmihost --scenario laptop.json shell commands.txt",
                    "wmihost shell - < commands.txt"},
       .statuses = kOfRequests,
       .run = RunShell},
      {.name = "set",
       .help = "Change the simulated machine: members by their paths in the scenario",
       .arguments = {{"MEMBER=VALUE", "such as adapters/0/radioState=false", Takes::kMember,
                      Count::kAny}},
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .examples =
           {"set adapters/0/radioState=false",
            "set adapters/0/availableNetworks/1/rssi=-40 adapters/0/association/ssid=\"Lab 2\"",
            "set 'faults/0={\"operation\": \"GetBand\", \"status\": 5}'"},
       .statuses = {kRefused},
       .run = RunSet},
      {.name = "reload",
       .help = "Start the simulated machine again, from its scenario or another",
       .arguments = {{"FILE", "another scenario file", Takes::kFile, Count::kOptional}},
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .examples = {"reload", "reload laptop.json"},
       .statuses = {kRefused, kDefective},
       .run = RunReload},
      {.name = "advance",
       .help = "Move the time of the simulated machine forward",
       .arguments = {{"DURATION", "such as 10m, 1h30m or 5 (seconds)", Takes::kDuration}},
       .needs = Needs::kProvider,
       .place = Place::kShell,
       .examples = {"advance 10m", "advance 1h30m"},
       .statuses = {kRefused},
       .run = RunAdvance},
      {.name = "exit",
       .help = "End the shell with this status, or else with the worst of its lines",
       .arguments = {{"STATUS", "0 to 255", Takes::kText, Count::kOptional}},
       .place = Place::kShell,
       .examples = {"exit", "exit 0"},
       .run = RunExit},
      {.name = "quit",
       .help = "The same as exit",
       .arguments = {{"STATUS", "0 to 255", Takes::kText, Count::kOptional}},
       .place = Place::kShell,
       .examples = {"quit", "quit 0"},
       .run = RunExit},
      {.name = "scenario",
       .help = "Make a scenario of another machine's dump or of what a Linux machine sees",
       .options =
           {{"--from-iw", "[FILE]",
             "what 'iw dev <interface> scan' prints; standard input if missing or -", Takes::kFile},
            {"--from-dump", "[FILE]",
             "what dump --format json or report writes, or instances as ConvertTo-Json does; "
             "standard input if missing or -",
             Takes::kFile},
            {"--from-recording", "[FILE]", "what record writes; standard input if missing or -",
             Takes::kFile}},
       .place = Place::kCommandLine,
       .examples = {"wmihost scenario --from-iw scan.txt > here.json",
                    "wmihost scenario --from-dump customer.json > customer-machine.json",
                    "wmihost scenario --from-recording walk.jsonl > walk.json"},
       .run = RunScenario},
      {.name = "reference",
       .help = "Print a reference as Markdown",
       .arguments = {{"TOPIC",
                      "classes (default) or scenarios",
                      Takes::kChoice,
                      Count::kOptional,
                      {"classes", "scenarios"}}},
       .place = Place::kCommandLine,
       .examples = {"wmihost reference classes", "wmihost reference scenarios"},
       .run = RunReference},
      {.name = "check",
       .help = "Check a schema: its grammar, and what it must hold to be served and understood",
       .arguments = {{"FILE", "MOF file (default: the product's own)", Takes::kFile,
                      Count::kOptional}},
       .place = Place::kCommandLine,
       .examples = {"wmihost check", "wmihost check changed.mof"},
       .run = RunCheck},
      {.name = "help",
       .help = "Show all commands, or one",
       .arguments = {{"COMMAND", "command name", Takes::kCommand, Count::kOptional}},
       .examples = {"wmihost help", "wmihost help put"},
       .run = RunHelp},
      {.name = "manual",
       .help = "Print the manual page, for man",
       .place = Place::kCommandLine,
       .examples = {"wmihost manual | man -l -", "wmihost manual > wmihost.1"},
       .run = RunManual},
      {.name = "completion",
       .help = "Print a completion script, for bash",
       .place = Place::kCommandLine,
       .examples = {"source <(wmihost completion)", "wmihost completion > wmihost.bash"},
       .run = RunCompletion},
      {.name = "doctor",
       .help = "Say what is wrong with the installation, and what to do about it",
       .place = Place::kCommandLine,
       .formats = kRowFormats,
       .examples = {"wmihost doctor", "wmihost doctor --format json"},
       .statuses = {kRefused},
       .run = RunDoctor},
      {.name = "register",
       .help = "Register the module as a COM server",
       .place = Place::kCommandLine,
       .examples = {"wmihost register", "wmihost --registry registry.json register"},
       .statuses = {kRefused},
       .run = RunRegister},
      {.name = "unregister",
       .help = "Take the module's registration back",
       .place = Place::kCommandLine,
       .examples = {"wmihost unregister", "wmihost --registry registry.json unregister"},
       .statuses = {kRefused},
       .run = RunUnregister},
  };
  return rows;
}

const std::vector<OptionRow>& HostOptions() {
  static const std::vector<OptionRow> rows = {
      {"--scenario", "FILE", "Scenario file that the simulator plays", Takes::kFile},
      {"--module", "FILE", "The provider's module (default: beside this program)", Takes::kFile},
      {"--registered", nullptr, "Reach the module through its registration instead of by file"},
      {"--libraries", "DIR",
       "Folder of QuarnApi and TolvaApi (default: where the system finds them)", Takes::kFolder},
      {"--registry", "FILE", "File that keeps the registry, where the system has none",
       Takes::kFile},
      {"--service", "[NAMESPACE]",
       "Ask the machine's own management service, on Windows (default: root\\cimv2; "
       "\\\\HOST\\root\\cimv2 is another machine's)",
       Takes::kText},
      {"--user", "NAME", "With --service: as this user; the password is asked for or read",
       Takes::kText},
      {"--timeout", "SECONDS",
       "With --service or doctor: how long to wait for it in all (default: 60; 0 is without end)",
       Takes::kSeconds},
      {"--os-version", "MAJOR.MINOR", "System version that the provider is told, such as 6.1",
       Takes::kVersion},
      {"--speed", "NUMBER",
       "How many times as fast as the clock the simulated machine's time goes (default: 1); with 0 "
       "only advance and record move it",
       Takes::kSpeed},
      {"--trace",
       "[=calls]",
       "Show the provider's trace lines on standard error, or its calls of the libraries",
       Takes::kNothing,
       {"calls"}},
  };
  return rows;
}

const std::vector<OptionRow>& OutputOptions() {
  static const std::vector<OptionRow> rows = {
      {.name = "--format",
       .value = "FORMAT",
       .help = "table, list, json or csv; chart draws networks",
       .takes = Takes::kChoice,
       .choices = {std::begin(kFormatNames), std::end(kFormatNames)}},
      {"--width", "COLUMNS",
       "Columns that a table may fill (default: COLUMNS, the terminal's, 100)", Takes::kWidth},
      {.name = "--color",
       .value = "WHEN",
       .help = "Bold headings and dim NULLs in tables: auto, always or never",
       .takes = Takes::kChoice,
       .choices = {"auto", "always", "never"}},
      {"--fields", "A,B,...",
       "Show only these properties, in this order; all: those too that a table leaves out",
       Takes::kProperties},
      {"--sort", "FIELD", "Sort by this property; -FIELD begins with the greatest",
       Takes::kProperties},
  };
  return rows;
}

bool IsAvailable(const CommandRow& row, bool inShell) {
  return row.place == Place::kEverywhere ||
         row.place == (inShell ? Place::kShell : Place::kCommandLine);
}

std::vector<std::string> CommandNames(bool inShell) {
  std::vector<std::string> names;
  for (const CommandRow& row : Commands()) {
    if (IsAvailable(row, inShell)) names.emplace_back(row.name);
  }
  return names;
}

const CommandRow* FindCommand(const std::string& name) {
  for (const CommandRow& row : Commands()) {
    if (SameIgnoringAsciiCase(name, row.name)) return &row;
  }
  return nullptr;
}

}  // namespace host
