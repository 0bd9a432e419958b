#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/error_text.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/posting.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/core/service.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/core/trap.h>

#include <optional>
#include <utility>

namespace ktpnaips {
namespace {

std::optional<std::uint32_t> codeOf(const winInet::Answer& answer) {
  if (!answer.failure) return std::nullopt;
  return answer.failure->code;
}

/// What was answered, as a document that takes the body over; none when it is no XML. One that is
/// too large is a failure.
xml::Document documentIn(winInet::Answer& answer) {
  if (answer.failure) return {};
  if (!answer.headers.empty()) return xml::Document::parse(answer.headers + answer.body);
  xml::ParseFailure why;
  xml::Document document = xml::Document::parseInPlace(answer.body, &why);
  if (why.isTooLarge) answer.failure = winInet::tooLarge(why.reason);
  return document;
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
                    std::shared_ptr<AbstractResponse> response, Effect effect) {
  trapped(inModule(L"aaapost", L"Utils"), [&] {
    const std::wstring url = serviceURL(service);
    std::string document = requestDocument(request);
    if (response == nullptr) response = std::make_shared<AbstractResponse>();
    auto* const keeping = dynamic_cast<ResponseBase*>(response.get());
    winInet::Answer answer = winInet::winInetSend(url, requestName, document, effect);
    if (keeping != nullptr) {
      keeping->posted({std::move(document), effect, answer.hasSent});
    }
    if (const xml::Document parsed = documentIn(answer)) {
      response->ResponseDoc(parsed);
    } else {
      if (keeping != nullptr) keeping->failed(codeOf(answer));
      response->Error(true);
      response->ErrorText(errorText(answer));
    }
    if (keeping != nullptr && keeping->Error()) keeping->addTrace();
  });
}

}  // namespace ktpnaips
