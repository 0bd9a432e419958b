// A host that links KTPNaips.lib and asks the DLL itself for its classes: no registration is
// needed.
#include <brevank.h>
#include <objbase.h>

#include <cstdio>
#include <cstdlib>

// The header of COM declares it for the DLLs that define it.
extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID type, REFIID wanted, void** object);

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  IClassFactory* factory = nullptr;
  _NAIPSConfig* config = nullptr;
  if (FAILED(DllGetClassObject(CLSID_NAIPSConfig, IID_IClassFactory,
                               reinterpret_cast<void**>(&factory))) ||
      FAILED(
          factory->CreateInstance(nullptr, IID__NAIPSConfig, reinterpret_cast<void**>(&config)))) {
    return EXIT_FAILURE;
  }
  BSTR given = SysAllocString(L"pilot1");
  BSTR held = nullptr;
  if (FAILED(config->put_UserName(given)) || FAILED(config->get_UserName(&held))) {
    return EXIT_FAILURE;
  }
  std::printf("user %ls\n", held);
  SysFreeString(given);
  SysFreeString(held);
  config->Release();
  factory->Release();
  CoUninitialize();
}
