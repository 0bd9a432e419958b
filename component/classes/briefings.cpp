#include "members.h"

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/briefing/products.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace ktpnaips::component {
namespace {

class AreaBriefingRqsObject final
    : public WithFlags<PeriodRequestObject<AreaBriefingRqs, _AreaBriefingRqs>> {
 public:
  using WithFlags::WithFlags;
  KTP_ACTION_1(addArea)
  KTP_ACTION(clearAreas)
};
KTP_OFFER(AreaBriefingRqs);

class LocationBriefingRqsObject final
    : public WithFlags<PeriodRequestObject<LocationBriefingRqs, _LocationBriefingRqs>> {
 public:
  using WithFlags::WithFlags;
  KTP_ACTION_1(addLocation)
  KTP_ACTION(clearLocations)
};
KTP_OFFER(LocationBriefingRqs);

class MetBriefingRqsObject final
    : public WithFlags<PeriodRequestObject<MetBriefingRqs, _MetBriefingRqs>> {
 public:
  using WithFlags::WithFlags;
  KTP_ACTION_1(addLocation)
  KTP_ACTION(clearLocations)
};
KTP_OFFER(MetBriefingRqs);

/// The list itself lies in its response, which it keeps alive.
using ImageList = std::vector<std::shared_ptr<BriefItem>>;

class BriefingResponseObject final
    : public WithItems<ResponseObject<BriefingResponse, _BriefingResponse>> {
 public:
  using WithItems::WithItems;
  KTP_READ(Content)
  KTP_READ(Product)
  STDMETHODIMP get_Images(_Images** value) override {
    return answer(value, [this] { return part(object().Images()); });
  }
};
KTP_OFFER(BriefingResponse);

class ImagesObject final : public WithForEach<Object<ImageList, _Images>> {
 public:
  using WithForEach::WithForEach;
  STDMETHODIMP get_Count(LONG* value) override {
    return answer(value, [this] { return static_cast<std::int32_t>(object().size()); });
  }
  STDMETHODIMP get_Item(LONG index, _BriefItem** value) override {
    return answer(value, [&] {
      const auto position = static_cast<std::size_t>(index) - 1;
      return index >= 1 && position < object().size() ? object()[position] : nullptr;
    });
  }
};
const Received<ImagesObject> receivedImages(L"Images");

class BriefItemObject final : public Object<BriefItem, _BriefItem> {
 public:
  using Object::Object;
  KTP_PROPERTY(Product)
  KTP_PROPERTY(File)
  KTP_PROPERTY(ProductType)
};
KTP_OFFER(BriefItem);

}  // namespace
}  // namespace ktpnaips::component
