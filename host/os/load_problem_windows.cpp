#include <filesystem>

#include "host/os/installation.h"
#include "host/os/os.h"
#include "platform/control/import_slot_windows.h"
#include "platform/text.h"

namespace host::os {
namespace {

constexpr int kDeepest = 8;  // libraries of libraries

/// A module that is only mapped: its imports are not loaded, and none of its code runs.
class MappedModule {
 public:
  explicit MappedModule(const std::filesystem::path& file)
      : module_(LoadLibraryExW(file.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES)) {}
  MappedModule(const MappedModule&) = delete;
  MappedModule& operator=(const MappedModule&) = delete;
  ~MappedModule() {
    if (module_ != nullptr) FreeLibrary(module_);
  }

  HMODULE get() const { return module_; }

  /// The names of the libraries from which it imports.
  std::vector<std::string> Imports() const {
    std::vector<std::string> names;
    if (module_ == nullptr) return names;
    const auto* base = reinterpret_cast<const char*>(module_);
    for (const auto* import = platform::ImportsOf(module_); import->Name != 0; ++import) {
      names.emplace_back(base + import->Name);
    }
    return names;
  }

 private:
  HMODULE module_;
};

/// The library whose absence prevents the file from being loaded: "B.dll", or "B.dll, which A.dll
/// needs"; empty if all libraries are there. `needed` is the file's name if it is not the requested
/// one.
std::string MissingLibrary(const std::filesystem::path& file, const std::string& needed,
                           int depth) {
  if (depth == kDeepest) return "";
  for (const std::string& name : MappedModule(file).Imports()) {
    const std::wstring wide = platform::WideFromUtf8(name);
    if (const HMODULE found =
            LoadLibraryExW(wide.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS)) {
      FreeLibrary(found);
      continue;
    }
    const std::filesystem::path beside = file.parent_path() / wide;
    std::error_code unknown;
    if (!std::filesystem::exists(beside, unknown)) {
      return needed.empty() ? name : name + ", which " + needed + " needs,";
    }
    const std::string deeper = MissingLibrary(beside, name, depth + 1);
    if (!deeper.empty()) return deeper;
  }
  return "";
}

}  // namespace

std::string MissingFunctions(const std::string& path) {
  const std::filesystem::path file = std::filesystem::absolute(platform::WideFromUtf8(path));
  const MappedModule module(file);
  if (module.get() == nullptr) return "";
  const auto* base = reinterpret_cast<const char*>(module.get());
  for (const auto* import = platform::ImportsOf(module.get()); import->Name != 0; ++import) {
    const std::string name = base + import->Name;
    std::filesystem::path beside = file.parent_path() / platform::WideFromUtf8(name);
    std::error_code unknown;
    if (!std::filesystem::exists(beside, unknown)) beside = platform::WideFromUtf8(name);
    const MappedModule library(beside);
    if (library.get() == nullptr || import->OriginalFirstThunk == 0) continue;
    std::string missing;
    const auto* thunk =
        reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + import->OriginalFirstThunk);
    for (; thunk->u1.AddressOfData != 0; ++thunk) {
      const bool isNumber = IMAGE_SNAP_BY_ORDINAL64(thunk->u1.Ordinal);
      const auto number = static_cast<WORD>(IMAGE_ORDINAL64(thunk->u1.Ordinal));
      const char* wanted =
          isNumber ? MAKEINTRESOURCEA(number)
                   : reinterpret_cast<const char*>(reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(
                                                       base + thunk->u1.AddressOfData)
                                                       ->Name);
      if (GetProcAddress(library.get(), wanted) != nullptr) continue;
      missing += (missing.empty() ? " " : ", ") + (isNumber ? std::to_string(number) : wanted);
    }
    if (!missing.empty()) return name + " lacks" + missing;
  }
  return "";
}

std::string LoadProblem(const std::string& path) {
  const DWORD error = GetLastError();
  const std::filesystem::path file = std::filesystem::absolute(platform::WideFromUtf8(path));
  const DWORD attributes = GetFileAttributesW(file.c_str());
  std::string problem;
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    problem = "there is no such file";
  } else if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    problem = "it is a folder";
  } else if (error == ERROR_BAD_EXE_FORMAT) {
    problem = "it is no 64-bit module";
  } else if (error == ERROR_PROC_NOT_FOUND) {
    problem = MissingFunctions(path);
    if (problem.empty()) problem = "a library that it needs lacks a function";
  } else if (error == ERROR_MOD_NOT_FOUND) {
    const std::string missing = MissingLibrary(file, "", 0);
    problem = missing.empty() ? "a library that it needs is missing" : missing + " is missing";
  } else if (error == ERROR_ACCESS_DENIED) {
    problem = "access denied";
  }
  const std::string number = "system error " + std::to_string(error);
  return problem.empty() ? number : problem + " (" + number + ")";
}

}  // namespace host::os
