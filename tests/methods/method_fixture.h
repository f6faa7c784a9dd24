#pragma once

#include "tests/support/fake_profile_library.h"
#include "tests/support/provider_fixture.h"

namespace testing_support {

/// A provider with the adapters "7" (number 107) and "8" (108).
class MethodFixture : public ProviderFixture {
 protected:
  MethodFixture() {
    Initialize({{107, "7", 1}, {108, "8", 2}});
    journal.Clear();
  }

  HRESULT Exec(const std::string& path, const char* method) {
    sink->objects.clear();
    const platform::Bstr pathText(platform::WideText(path));
    const platform::Bstr methodName(platform::WideText(method));
    return provider->ExecMethodAsync(pathText.get(), methodName.get(), 0, nullptr, in.get(),
                                     sink.get());
  }
  HRESULT OnAdapter(const char* method) {
    return Exec("WiFi_NetworkAdapter.DeviceID=\"7\"", method);
  }
  /// The out-parameters of the last method, in the order of their puts.
  std::vector<std::string> Out() const {
    return sink->objects.size() == 1 ? sink->objects[0]->ShownPuts() : std::vector<std::string>();
  }
  /// Records the numbers with which an operation is called, and returns `status`.
  auto Noting(adapterapi::ApiStatus status = 0) {
    return [this, status](auto... numbers) {
      arguments.clear();
      ((arguments += (arguments.empty() ? "" : " ") + std::to_string(numbers)), ...);
      return status;
    };
  }

  platform::ComPtr<FakeObject> in = MakeObject();
  std::string arguments;
};

}  // namespace testing_support
