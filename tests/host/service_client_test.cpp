#include "host/cli/service_client.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <sstream>
#include <thread>

#include "host/cli/command_line.h"
#include "host/cli/service_commands.h"
#include "host/service/unsupported_services.h"
#include "platform/control/control.h"
#include "tests/host/toy.h"

namespace host {
namespace {

/// What holds up whoever enters until it ends.
class Silence {
 public:
  void Enter() {
    std::unique_lock lock(mutex_);
    over_.wait(lock, [this] { return isOver_; });
  }
  void End() {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
    over_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable over_;
  bool isOver_ = false;
};

enum class Then { kEnds, kIsSilent, kIsInterrupted };

/// A service that has two instances of each class, and then ends or falls silent.
class FakeService final : public UnsupportedServices {
 public:
  explicit FakeService(Then then)
      : UnsupportedServices("the fake service"), then_(then), enumeration_(*this) {}

  HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR, LONG, IWbemContext*,
                                               IEnumWbemClassObject** enumeration) override {
    ++requests;
    *enumeration = platform::ComPtr<IEnumWbemClassObject>(&enumeration_).release();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetObject(const BSTR, LONG, IWbemContext*, IWbemClassObject** object,
                                      IWbemCallResult**) override {
    ++requests;
    Finish();
    *object = NewObject();
    return S_OK;
  }

  /// Lets all calls return, and waits for them.
  void EndSilence() {
    silence_.End();
    while (references() + enumeration_.references() > 2) std::this_thread::yield();
  }

  std::atomic<int> requests = 0;

 private:
  class Enumeration final : public ComObject<IEnumWbemClassObject, IID_IEnumWbemClassObject> {
   public:
    explicit Enumeration(FakeService& service)
        : ComObject("the fake enumeration"), service_(service) {}
    HRESULT STDMETHODCALLTYPE Next(LONG, ULONG, IWbemClassObject** objects,
                                   ULONG* returned) override {
      *returned = 0;
      if (given_ == 2) {
        service_.Finish();
        given_ = 0;
        return S_FALSE;
      }
      ++given_;
      *objects = service_.NewObject();
      *returned = 1;
      return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Reset() override { return kNotSupported; }
    HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return kNotSupported; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject**) override { return kNotSupported; }
    HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG) override { return kNotSupported; }

   private:
    FakeService& service_;
    int given_ = 0;
  };

  void Finish() {
    if (then_ == Then::kIsInterrupted) std::raise(SIGINT);
    if (then_ != Then::kEnds) silence_.Enter();
  }
  IWbemClassObject* NewObject() { return pool_.New<ClassObject>(pool_, NewToy("a", 1)).release(); }

  Then then_;
  Silence silence_;
  ObjectPool pool_;
  Enumeration enumeration_;
};

TEST(ServiceClientTest, EndsWhenTheServiceOrTheUserDoesNot) {
  using std::chrono::milliseconds;
  constexpr milliseconds kShort{150};
  constexpr milliseconds kNone{0};
  constexpr const char* kTwo = "Id,Count\na,1\na,1\n";
  struct Row {
    std::vector<std::string> words;
    Then then;
    milliseconds limit;
    ExitStatus status;
    int requests;
    const char* output;
    const char* error;
  };
  const Row rows[] = {
      {{"enum", "Toy", "--fields", "Id,Count"}, Then::kEnds, kNone, kSuccess, 1, kTwo, ""},
      {{"enum", "Toy", "--fields", "Id,Count"},
       Then::kIsSilent,
       kShort,
       kUnanswered,
       1,
       kTwo,
       "Toy: RPC_E_TIMEOUT (0x800"},
      {{"enum", "Toy", "--fields", "Id,Count"},
       Then::kIsInterrupted,
       kNone,
       kUnanswered,
       1,
       kTwo,
       "Toy: WBEM_E_CALL_CANC"},
      {{"get", "Toy.Id='a'", "--fields", "Id,Count"},
       Then::kEnds,
       kNone,
       kSuccess,
       1,
       "Id,Count\na,1\n",
       ""},
      {{"get", "Toy.Id='a'", "--fields", "Id,Count"},
       Then::kIsSilent,
       kShort,
       kUnanswered,
       1,
       "",
       "'a': RPC_E_TIMEOUT"},
      // The other classes are not asked for, nor is the computer's name.
      {{"dump", "--format", "json"},
       Then::kIsSilent,
       kShort,
       kUnanswered,
       1,
       "{\n  \"Base\": [\n    {\n",
       "Only: RPC_E_TIMEOUT"},
  };
  const platform::Apartment apartment(platform::Apartment::Kind::kMultithreaded);
  for (const Row& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.words) + std::to_string(static_cast<int>(row.then)));
    std::vector<std::string> words = {"--format", "csv", "--service"};
    words.insert(words.end(), row.words.begin(), row.words.end());
    const Command command = ParseCommandLine(words).command;
    std::ostringstream output;
    std::ostringstream errors;
    CommandContext context = {ToyRepository(), nullptr, output, errors, 100};
    FakeService fake(row.then);
    {
      ServiceClient service(
          [&fake] {
            return std::make_shared<os::ServiceConnection>(platform::ComPtr<IWbemServices>(&fake));
          },
          row.limit);
      EXPECT_EQ(RunOnService(command, context, service), row.status);
    }
    fake.EndSilence();
    EXPECT_EQ(fake.requests, row.requests);
    EXPECT_EQ(output.str().substr(0, 20), std::string(row.output).substr(0, 20));
    EXPECT_NE(errors.str().find(row.error), std::string::npos) << errors.str();
    EXPECT_EQ(errors.str().empty(), *row.error == '\0') << errors.str();
  }
}

TEST(ServiceClientTest, DoesNotWaitForAConnectionForEver) {
  Silence silence;
  std::atomic<bool> isLeft = false;
  std::ostringstream output;
  std::ostringstream errors;
  CommandContext context = {ToyRepository(), nullptr, output, errors, 100};
  ServiceClient service(
      [&] {
        silence.Enter();
        isLeft = true;
        return ServiceClient::Connection();
      },
      std::chrono::milliseconds(100));
  EXPECT_EQ(RunOnService(ParseCommandLine({"--service", "enum", "Toy"}).command, context, service),
            kUnanswered);
  EXPECT_NE(errors.str().find("cimv2: RPC_E_TIMEOUT"), std::string::npos) << errors.str();
  silence.End();
  while (!isLeft) std::this_thread::yield();
}

}  // namespace
}  // namespace host
