#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/ktpnaips.h>
#include <ktpnaips/platform/text.h>

#include <array>
#include <concepts>
#include <memory>
#include <thread>

#include "fuzzing.h"
#include "scratch.h"

/// Answers of the service, loaded as `submit` does. The first byte chooses the response class, the
/// second how much of an answer the rest is.
namespace {

using ktpnaips::ResponseBase;

template <class Response>
concept Listed = requires(const Response& response) {
  response.Item(1);
};

/// What a host reads.
template <class Response>
void read(const Response& response) {
  fuzz::require(response.Error() || response.ErrorText().empty(), "a success has no error text");
  fuzz::require(response.Error() || response.Payload(), "a success has a payload");
  if constexpr (Listed<Response>) {
    const auto size = static_cast<std::int16_t>(std::distance(response.begin(), response.end()));
    fuzz::require(response.Count() == size, "the count is that of the entries");
    using Entry = decltype(response.Item(1));
    if constexpr (std::equality_comparable<Entry>) {
      std::int16_t index = 0;
      for (const auto& entry : response) {
        fuzz::require(response.Item(++index) == entry, "items are the entries in order");
      }
      fuzz::require(response.Item(0) == Entry{}, "there is no item 0");
    }
  }
}

/// Loads the answer into a new response.
template <std::derived_from<ResponseBase> Response>
void load(const std::string& answer) {
  Response response;
  const auto document = ktpnaips::xml::Document::parse(answer);
  if (!document) {
    ktpnaips::Utils::lfToCrLf(ktpnaips::text::fromUtf8(answer));
    return;
  }
  ktpnaips::trapped(ktpnaips::inModule(L"aaapost", L"Utils"),
                    [&] { response.ResponseDoc(document); });
  read(response);
}

constexpr std::array loaders{
    load<ResponseBase>,
    load<ktpnaips::AuthenticateRsp>,
    load<ktpnaips::ChangePasswordRsp>,
    load<ktpnaips::GetGroupAffiliationRsp>,
    load<ktpnaips::BriefingResponse>,
    load<ktpnaips::FirstLastLightRsp>,
    load<ktpnaips::ChartDirectoryRsp>,
    load<ktpnaips::GetChartRsp>,
    load<ktpnaips::ViewNOTAMListForSPFIBRsp>,
    load<ktpnaips::GeneralMETMessageDirRsp>,
    load<ktpnaips::ActiveSPFIBDirectoryRsp>,
    load<ktpnaips::LocAirspaceDirectoryRsp>,
    load<ktpnaips::GetSPFIBRsp>,
    load<ktpnaips::RouteDirectoryRsp>,
    load<ktpnaips::ActiveFlightNotifDirRsp>,
    load<ktpnaips::SubmitICAOFlightNotifRsp>,
    load<ktpnaips::SubmitSARTimeNotifRsp>,
};

std::string inBody(const std::string& content) {
  return "<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/' "
         "xmlns:n='urn:n'><s:Body>" +
         content + "</s:Body></s:Envelope>";
}

std::string answerOf(std::uint8_t form, const std::string& text) {
  switch (form % 4) {
    case 0:
      return text;
    case 1:
      return inBody(text);
    case 2:
      return inBody("<n:rsp status='FAILURE'>" + text + "</n:rsp>");
    default:
      return inBody("<n:rsp status='SUCCESS'>" + text + "</n:rsp>");
  }
}

void useShortNamespace() {
  ktpnaips::Deployment deployment;
  deployment.schemaNamespace = L"urn:n";
  ktpnaips::Deployment::use(deployment);
}

void reportTo(std::wstring_view report) {
  fuzz::require(report.starts_with(L"Error ") && report.find(L"Internal error") == report.npos,
                "a failure has a number of its own");
}

/// A document that is written reads back with the same text, and is then written the same again.
/// (How characters beyond ASCII are written in attributes depends on what the document declares.)
void checkWriting(const std::string& answer) {
  using ktpnaips::xml::Document;
  const Document document = Document::parse(answer);
  if (!document) return;
  const Document again = Document::parse(document.serialise());
  fuzz::require(again && again.text() == document.text(), "a document that is written reads back");
  const std::string written = again.serialise();
  fuzz::require(Document::parse(written).serialise() == written, "writing changes nothing");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Scratch scratch;
  static const bool isReady = [] {
    useShortNamespace();
    ktpnaips::setFailureReporter(reportTo);
    return true;
  }();
  static_cast<void>(isReady);
  fuzz::Input input(data, size);
  const auto loader = loaders[input.byte() % loaders.size()];
  const std::uint8_t form = input.byte();
  const std::string answer = answerOf(form, input.rest());
  // Temporary files of charts live as long as their thread.
  std::thread([&] { loader(answer); }).join();
  fuzz::require(scratch.holdsProductsOnly(), "products stay in their folder");
  checkWriting(answer);
  return 0;
}
