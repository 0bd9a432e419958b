#include "class_factory.h"

#include "failure.h"
#include "unknown.h"

namespace ktpnaips::component {
namespace {

class ClassFactory final : public Unknown<IClassFactory> {
 public:
  explicit ClassFactory(const Class& offered) noexcept : offered_(offered) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID interfaceId, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    HRESULT found = S_OK;
    const HRESULT made = attempt(L"Brevank", [&] {
      found = present(offered_.type, offered_.make())->QueryInterface(interfaceId, object);
    });
    return FAILED(made) ? made : found;
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    module::lock(lock != FALSE);
    return S_OK;
  }

 private:
  const Class& offered_;
};

}  // namespace

com::ComPtr<IClassFactory> factoryOf(const Class& offered) {
  return com::ComPtr<IClassFactory>::attach(new ClassFactory(offered));
}

}  // namespace ktpnaips::component
