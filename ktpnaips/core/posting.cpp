#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/posting.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/core/service.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/text.h>

#include <utility>

namespace ktpnaips {
namespace {

void refuse(AbstractResponse& response, const std::string& answer) {
  response.Error(true);
  response.ErrorText(Utils::lfToCrLf(L"SOAP Fault: Unrecognised response.  Details below.\r\n" +
                                     text::fromUtf8(answer) + L"\r\n"));
}

void appendTrace(AbstractResponse& response, const std::string& document) {
  response.ErrorText(response.ErrorText() + L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" +
                     text::fromUtf8(document));
}

}  // namespace

std::string requestDocument(const IAppendable& request) {
  const xml::Document document = xml::Document::create();
  const xml::Node envelope = document.appendElement(L"SOAP-ENV:Envelope", soapNamespace, {});
  const xml::Node body = envelope.appendElement(L"SOAP-ENV:Body", soapNamespace, {});
  request.appendTo(body, Deployment::current().schemaNamespace);
  return document.serialise();
}

void Utils::aaapost(std::int32_t service, std::wstring_view requestName, const IAppendable& request,
                    std::shared_ptr<AbstractResponse> response) {
  trapped(inModule(L"aaapost", L"Utils"), [&] {
    const std::wstring url = serviceURL(service);
    const std::string document = requestDocument(request);
    if (response == nullptr) response = std::make_shared<AbstractResponse>();
    std::string answer = winInet::winInetSend(url, requestName, document);
    if (const xml::Document parsed = xml::Document::parseInPlace(answer)) {
      response->ResponseDoc(parsed);
    } else {
      refuse(*response, answer);
    }
    if (response->Error()) appendTrace(*response, document);
  });
}

}  // namespace ktpnaips
