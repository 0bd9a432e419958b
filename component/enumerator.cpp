#include "enumerator.h"

#include "failure.h"
#include "unknown.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace ktpnaips::component {
namespace {

class Enumerator final : public Unknown<IEnumVARIANT> {
 public:
  Enumerator(std::shared_ptr<const Objects> objects, std::size_t position) noexcept
      : objects_(std::move(objects)), position_(position) {}

  STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override {
    if (values == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    const ULONG given = advance(count);
    for (ULONG i = 0; i < given; ++i) {
      VariantInit(&values[i]);
      V_VT(&values[i]) = VT_DISPATCH;
      V_DISPATCH(&values[i]) = com::ComPtr((*objects_)[position_ - given + i]).detach();
    }
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override { return advance(count) == count ? S_OK : S_FALSE; }
  STDMETHODIMP Reset() override {
    position_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(IEnumVARIANT** copy) override {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return attempt(L"Brevank", [&] { *copy = new Enumerator(objects_, position_); });
  }

 private:
  ULONG advance(ULONG count) noexcept {
    const auto left = static_cast<ULONG>(objects_->size() - position_);
    const ULONG steps = std::min(count, left);
    position_ += steps;
    return steps;
  }

  std::shared_ptr<const Objects> objects_;
  std::size_t position_;
};

}  // namespace

com::ComPtr<IUnknown> enumerate(Objects objects) {
  const auto shared = std::make_shared<const Objects>(std::move(objects));
  return com::ComPtr<IUnknown>::attach(new Enumerator(shared, 0));
}

}  // namespace ktpnaips::component
