#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/posting.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

namespace ktpnaips {

RequestBase::RequestBase(const Operation& operation)
    : operation_(operation), abstractReq_(operation.element) {}

void RequestBase::appendContent(const xml::Node&, std::wstring_view) const {}

void RequestBase::appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const {
  const auto append = [&] {
    abstractReq_.appendTo(parent, namespaceUri);
    appendContent(parent.lastChild(), namespaceUri);
  };
  if (operation_.appendTo) {
    trapped(*operation_.appendTo, append);
  } else {
    append();
  }
}

std::shared_ptr<ResponseBase> RequestBase::post(MakeResponse makeResponse) const {
  return trapped<std::shared_ptr<ResponseBase>>(operation_.submit, [&](auto& result) {
    const auto response = makeResponse();
    Utils::aaapost(operation_.service, operation_.requestName, *this, response, operation_.effect);
    result = response;
  });
}

}  // namespace ktpnaips
