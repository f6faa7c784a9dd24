#pragma once
// A provider with two adapters among fakes, for one input. At its end nothing of it may be left.

#include "fuzz/byte_source.h"
#include "provider/server/instance_provider.h"
#include "tests/support/fake_adapter_api.h"
#include "tests/support/fake_profile_library.h"
#include "tests/support/fake_wbem.h"

/// An object that a client passes; its content comes from the input, one read at a time.
class ClientObject final : public testing_support::UnusedClassObject {
 public:
  ClientObject(ByteSource& source, std::string className)
      : source_(source), class_(std::move(className)) {}
  HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG, VARIANT* value, CIMTYPE*, LONG*) override;
  HRESULT STDMETHODCALLTYPE Put(LPCWSTR, LONG, VARIANT*, CIMTYPE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SpawnInstance(LONG, IWbemClassObject**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMethod(LPCWSTR, LONG, IWbemClassObject**,
                                      IWbemClassObject**) override {
    return E_NOTIMPL;
  }

 private:
  ByteSource& source_;
  std::string class_;
};

class ProviderWorld {
 public:
  explicit ProviderWorld(ByteSource& source);
  ProviderWorld(const ProviderWorld&) = delete;
  ProviderWorld& operator=(const ProviderWorld&) = delete;
  ~ProviderWorld();

  /// From now on every record, list, text and status of both libraries comes from the input.
  void LibrariesFromInput();
  void Initialize();

  /// Makes a request (IWbemServices&, IWbemObjectSink* to HRESULT): it sets one status, which
  /// equals its result.
  template <class Make>
  void Request(Make&& make) {
    const auto sink =
        platform::ComPtr<testing_support::FakeSink>::Adopt(new testing_support::FakeSink(script_));
    const HRESULT answer = make(static_cast<IWbemServices&>(*provider_.get()), sink.get());
    CheckRequest(answer, *sink.get());
    journal_.Clear();
  }
  void Enumerate(const platform::OleString& className);
  void Get(const platform::OleString& path);
  void Put(const std::string& className);
  void Method(const platform::OleString& path, const platform::OleString& name);

 private:
  static void CheckRequest(HRESULT answer, const testing_support::FakeSink& sink);
  void AddPlatformAdapter(const char* deviceId, std::uint8_t lastMacByte);
  template <class Value>
  void Give(Value*);
  template <class Record>
  void Give(const Record*) {}
  template <class Entry>
  void Give(const adapterapi::LibraryList<Entry>** list);
  void Give(const adapterapi::AdapterList** list);
  void Give(std::uint32_t) {}
  template <class List, class Entry, class Count>
  void GiveList(const List** list);
  adapterapi::ApiStatus Status();

  ByteSource& source_;
  const int textsBefore_;
  testing_support::Journal journal_;
  testing_support::InstanceScript script_{journal_};
  testing_support::FakeAdapterApi api_{journal_};
  testing_support::FakeProfileLibrary profiles_{journal_};
  platform::ComPtr<testing_support::FakeNamespace> services_;
  platform::ComPtr<wifi::InstanceProvider> provider_;
  std::vector<std::uint8_t> adapters_;
  std::vector<std::vector<std::uint8_t>> lists_;
  std::vector<std::string> texts_;
};
