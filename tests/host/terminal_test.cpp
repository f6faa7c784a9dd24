// The shell as a user sees it: the real program at a pseudo-terminal.

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int kPatience = 30000;  // ms; long, because a busy machine is slow
constexpr const char* kPrompt = "wmihost> ";

class Terminal {
 public:
  explicit Terminal(std::vector<std::string> arguments) {
    const winsize size = {24, 200, 0, 0};
    pid_ = forkpty(&terminal_, nullptr, nullptr, &size);
    if (pid_ != 0) return;
    arguments.insert(arguments.begin(), WMIHOST_FILE);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execv(pointers.front(), pointers.data());
    _exit(127);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal() {
    if (pid_ > 0) kill(pid_, SIGKILL);
    if (pid_ > 0) waitpid(pid_, nullptr, 0);
    close(terminal_);
  }

  /// Types after the program has switched to single keys; the prompt comes a moment earlier.
  void Type(const std::string& keys) { TypeWhen(false, keys); }
  /// Types Ctrl-C during a command.
  void Interrupt() { TypeWhen(true, "\x03"); }
  void Resize(unsigned short columns) {
    const winsize size = {24, columns, 0, 0};
    EXPECT_EQ(ioctl(terminal_, TIOCSWINSZ, &size), 0);
  }
  void StopAndContinue() {
    kill(pid_, SIGSTOP);
    EXPECT_EQ(waitpid(pid_, nullptr, WUNTRACED), pid_);
    kill(pid_, SIGCONT);
  }
  void TypeWhen(bool takesLines, const std::string& keys) {
    termios modes{};
    for (int waited = 0; waited < kPatience; ++waited) {
      if (tcgetattr(terminal_, &modes) == 0 && ((modes.c_lflag & ICANON) != 0) == takesLines) break;
      usleep(1000);
    }
    EXPECT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
  }
  /// The output up to and including `end`; all output if `end` never comes.
  std::string ReadTo(const std::string& end) {
    while (text_.find(end) == std::string::npos) {
      pollfd ready = {terminal_, POLLIN, 0};
      char part[4096];
      const ssize_t count =
          poll(&ready, 1, kPatience) == 1 ? read(terminal_, part, sizeof part) : -1;
      if (count <= 0) {
        ADD_FAILURE() << "'" << end << "' did not come, but: " << text_;
        return std::exchange(text_, "");
      }
      text_.append(part, static_cast<std::size_t>(count));
    }
    const std::size_t length = text_.find(end) + end.size();
    std::string found = text_.substr(0, length);
    text_.erase(0, length);
    return found;
  }
  /// Types a line and returns the output up to the next prompt, without the echo of the line.
  std::string Run(const std::string& line) {
    Type(line + "\r");
    ReadTo("\n");
    return ReadTo(kPrompt);
  }
  int ExitStatus() {
    int status = 0;
    waitpid(std::exchange(pid_, 0), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }

 private:
  pid_t pid_ = 0;
  int terminal_ = -1;
  std::string text_;
};

class TerminalTest : public ::testing::Test {
 protected:
  void SetUp() override {
    int master = -1;
    int slave = -1;
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0)
        << "no pseudo-terminal is to be had: is /dev/pts mounted?";
    close(master);
    close(slave);
    std::string folder = ::testing::TempDir() + "wmihost-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    state_ = folder;
    setenv("XDG_STATE_HOME", folder.c_str(), 1);
    setenv("TERM", "xterm", 1);
    // Characters arrive whatever the locale is.
    for (const char* name : {"LANG", "LC_ALL", "LC_CTYPE"}) unsetenv(name);
  }
  void TearDown() override { std::filesystem::remove_all(state_); }

  std::filesystem::path state_;
  const std::vector<std::string> arguments_ = {"--scenario", SCENARIO_FOLDER "test-bench.json",
                                               "shell"};
};

TEST_F(TerminalTest, TakesEveryLetter) {
  Terminal terminal(arguments_);
  terminal.ReadTo(kPrompt);
  terminal.Run(
      "call WiFi_NetworkAdapter.DeviceID=\"10\" AddExcludeListEntry "
      "NetworkName=Caf\u00e9\u20ac Reason=3");
  const std::string names =
      terminal.Run("SELECT NetworkName FROM WiFi_NetworkExcludeList --format json");
  EXPECT_NE(names.find("\"NetworkName\": \"Caf\u00e9\u20ac\""), std::string::npos) << names;
}

TEST_F(TerminalTest, AbandonsALineAndKeepsTheMachine) {
  Terminal terminal(arguments_);
  terminal.ReadTo(kPrompt);
  terminal.Run("put WiFi_NetworkAdapter.DeviceID=\"7\" RadioState=false");
  terminal.Type("fly \"away");
  terminal.Type("\x03");
  EXPECT_EQ(terminal.ReadTo(kPrompt).find("wmihost: "), std::string::npos);
  const std::string radio =
      terminal.Run("get WiFi_NetworkAdapter.DeviceID=\"7\" --fields RadioState --format json");
  EXPECT_NE(radio.find("\"RadioState\": false"), std::string::npos) << radio;
  terminal.Type("exit\r");
  EXPECT_EQ(terminal.ExitStatus(), 0);
}

TEST_F(TerminalTest, SaysThatARequestCannotBeInterruptedAndEndsAtTheSecondKey) {
  Terminal terminal(arguments_);
  EXPECT_NE(terminal.ReadTo(kPrompt).find("test-bench.json. help lists the commands"),
            std::string::npos);
  for (const bool isLast : {false, true}) {
    terminal.Run("set 'faults=[{\"operation\": \"GetBand\", \"delayMs\": 1500, \"times\": 1}]'");
    terminal.Type("enum WiFi_NetworkAdapter --fields Band\r");
    terminal.Interrupt();
    terminal.ReadTo("a request cannot be interrupted; Ctrl-C again ends the shell");
    if (isLast) break;
    EXPECT_NE(terminal.ReadTo(kPrompt).find("802.11"), std::string::npos);
  }
  terminal.Interrupt();
  EXPECT_EQ(terminal.ExitStatus(), -SIGINT);
}

TEST_F(TerminalTest, RedrawsTheLine) {
  Terminal terminal(arguments_);
  terminal.ReadTo(kPrompt);
  terminal.Type("describe WiFi_System");
  terminal.ReadTo("System");
  const std::string line = kPrompt + std::string("describe WiFi_System");
  terminal.Type("\x0c");
  terminal.ReadTo(line);
  for (const unsigned short columns : {60, 120}) {
    terminal.Resize(columns);
    terminal.ReadTo(line);
    terminal.StopAndContinue();
    terminal.ReadTo(line);
  }
  EXPECT_NE(terminal.Run("Policies").find("SettingID: string, key, read"), std::string::npos);
  terminal.Type("exit\r");
  EXPECT_EQ(terminal.ExitStatus(), 0);
}

TEST_F(TerminalTest, CompletesWhatThePlaceTakes) {
  Terminal terminal(arguments_);
  terminal.ReadTo(kPrompt);
  terminal.Type("set adapters/0/radioS\t");
  terminal.ReadTo("tate=");
  terminal.Type("f\t");
  terminal.ReadTo("alse");
  terminal.Run("");
  EXPECT_NE(terminal.Run("enum WiFi_NetworkAdapter --fields RadioState --format csv").find("false"),
            std::string::npos);
  EXPECT_NE(terminal.Run("desc\tWiFi_SystemP\t").find("SettingID: string, key, read"),
            std::string::npos);
  terminal.Type("get WiFi_NetworkAdapter.D\t");
  terminal.ReadTo("eviceID=\"");
  terminal.Type("\t");
  terminal.ReadTo("WiFi_NetworkAdapter.DeviceID=\"7\"\r\n");
  EXPECT_NE(terminal.Run("10\" --fields DeviceID --format csv").find("10\r\n"), std::string::npos);
}

TEST_F(TerminalTest, KeepsItsHistoryForTheNextSession) {
  constexpr const char* kUp = "\x10";
  {
    Terminal terminal(arguments_);
    terminal.ReadTo(kPrompt);
    const std::string said = terminal.Run("describe Nothing");
    EXPECT_EQ(said.find("wmihost: Nothing: WBEM_E_INVALID_CLASS"), 0u) << said;
    terminal.Type("exit 9\r");
    EXPECT_EQ(terminal.ExitStatus(), 9);
  }
  Terminal terminal(arguments_);
  terminal.ReadTo(kPrompt);
  EXPECT_NE(terminal.Run(std::string(kUp) + kUp).find("wmihost: Nothing: "), std::string::npos);
  terminal.Type("\x04");
  EXPECT_EQ(terminal.ExitStatus(), 3) << "the worst of its lines";
}

}  // namespace
