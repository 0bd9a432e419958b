#include "members.h"

#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/products.h>

namespace ktpnaips::component {
namespace {

class ChartDirectoryRqsObject final : public RequestObject<ChartDirectoryRqs, _ChartDirectoryRqs> {
 public:
  using RequestObject::RequestObject;
};
KTP_OFFER(ChartDirectoryRqs);

class ChartDirectoryRspObject final
    : public WithItems<ResponseObject<ChartDirectoryRsp, _ChartDirectoryRsp>> {
 public:
  using WithItems::WithItems;
  KTP_ACTION_1(Add)
};
KTP_OFFER(ChartDirectoryRsp);

class ChartDescriptorObject final : public Object<ChartDescriptor, _ChartDescriptor> {
 public:
  using Object::Object;
  KTP_PROPERTY(StoreTime)
  KTP_PROPERTY(Name)
  KTP_PROPERTY(Key)
  KTP_PROPERTY(LowRes)
  KTP_PROPERTY(HighRes)
  KTP_PROPERTY(PDF)
  KTP_PROPERTY(ProductType)
};
KTP_OFFER(ChartDescriptor);

class GetChartRqsObject final : public RequestObject<GetChartRqs, _GetChartRqs> {
 public:
  using RequestObject::RequestObject;
  KTP_PROPERTY(Key)
  KTP_PROPERTY(Resolution)
};
KTP_OFFER(GetChartRqs);

class GetChartRspObject final : public WithItems<ResponseObject<GetChartRsp, _GetChartRsp>> {
 public:
  using WithItems::WithItems;
  KTP_READ(ChartDescriptor)
};
KTP_OFFER(GetChartRsp);

class ProductObject final : public Object<Product, _Product> {
 public:
  using Object::Object;
  KTP_PROPERTY(ProductType)
  KTP_PROPERTY(Resolution)
  KTP_PROPERTY(FilePath)
};
KTP_OFFER(Product);

}  // namespace
}  // namespace ktpnaips::component
