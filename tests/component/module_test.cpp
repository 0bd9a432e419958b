#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/component/component.h"
#include "tests/component/member_table.h"
#include "tests/component/type_members.h"

using members::check;
using Microsoft::WRL::ComPtr;

namespace {

/// The file as it is shipped.
class Module : public component::Test {
 protected:
  static std::wstring beside(const wchar_t* name) {
    const std::wstring dll = component::path();
    return dll.substr(0, dll.rfind(L'\\') + 1) + name;
  }

  static std::string idOf(ITypeInfo* info) {
    OLECHAR text[39];
    StringFromGUID2(members::attributesOf(info).id, text, static_cast<int>(std::size(text)));
    return members::narrow(text);
  }
};

GUID libraryId(ITypeLib* library) {
  TLIBATTR* attributes = nullptr;
  check(library->GetLibAttr(&attributes), "GetLibAttr");
  const GUID id = attributes->guid;
  library->ReleaseTLibAttr(attributes);
  return id;
}

TEST_F(Module, ExportsWhatComponentsExport) {
  const HMODULE module = GetModuleHandleW(component::path().c_str());
  ASSERT_NE(module, nullptr);
  for (const char* name : {"DllGetClassObject", "DllCanUnloadNow", "DllRegisterServer",
                           "DllUnregisterServer", "DllInstall"})
    EXPECT_NE(GetProcAddress(module, name), nullptr) << name;
}

TEST_F(Module, CarriesItsVersion) {
  const std::wstring file = component::path();
  std::vector<char> data(GetFileVersionInfoSizeW(file.c_str(), nullptr));
  ASSERT_FALSE(data.empty());
  ASSERT_NE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(data.size()), data.data()), 0);
  void* value = nullptr;
  UINT size = 0;
  ASSERT_NE(VerQueryValueW(data.data(), L"\\", &value, &size), 0);
  const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(value);
  EXPECT_EQ(version.dwSignature, 0xFEEF04BDU);
  EXPECT_EQ(HIWORD(version.dwFileVersionMS), KTP_VERSION_MAJOR);
  EXPECT_EQ(LOWORD(version.dwFileVersionMS), KTP_VERSION_MINOR);
  EXPECT_EQ(version.dwFileType, static_cast<DWORD>(VFT_DLL));
}

TEST_F(Module, TheLibraryIsAlsoAFile) {
  ComPtr<ITypeLib> library;
  ASSERT_EQ(LoadTypeLibEx(beside(L"Brevank.tlb").c_str(), REGKIND_NONE, &library), S_OK);
  EXPECT_EQ(libraryId(library.Get()), libraryId(component::typeLibrary().Get()));
}

TEST_F(Module, TheManifestNamesEveryClass) {
  std::ifstream stream{std::filesystem::path(beside(L"Brevank.manifest"))};
  const std::string manifest{std::istreambuf_iterator<char>(stream), {}};
  for (const std::string& name : members::names(false)) {
    EXPECT_NE(manifest.find("\"Brevank." + name + '"'), std::string::npos) << name;
    EXPECT_NE(manifest.find("<progid>Brevank." + name + ".1</progid>"), std::string::npos) << name;
    EXPECT_NE(manifest.find(idOf(component::type(name).Get())), std::string::npos) << name;
  }
}

}  // namespace
