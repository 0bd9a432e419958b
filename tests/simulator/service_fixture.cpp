#include "tests/simulator/service_fixture.h"

#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace simtest {

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "simulator-test.XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no temporary folder");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string envelope(std::string_view body, std::string_view schemaNamespace) {
  std::string text =
      "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\""
      " xmlns:ndd=\"";
  text.append(schemaNamespace).append("\"><SOAP-ENV:Body>").append(body);
  return text.append("</SOAP-ENV:Body></SOAP-ENV:Envelope>");
}

std::string request(std::string_view name, std::string_view children) {
  std::string text = "<ndd:";
  text.append(name).append(
      " source=\"orvalix\" requestor=\"DEMO\" password=\"demo-pilot\" scope=\"area\">");
  return text.append(children).append("</ndd:").append(name).append(">");
}

void ServiceTest::SetUp() {
  using namespace std::chrono;
  options.stateFolder = folder_.path() / "state";
  options.now = sys_days{2026y / November / 20} + 6h;
}

sim::Service& ServiceTest::service() {
  if (!service_) {
    service_.emplace(options);
  }
  return *service_;
}

Reply ServiceTest::post(std::string_view target, std::string_view body) {
  return roundTrip(service().port(), httpRequest("POST", target, body));
}

Reply ServiceTest::postTls(std::string_view target, std::string_view body) {
  const std::uint16_t port = service().port();
  return roundTrip(port, httpRequest("POST", target, body), service().caFile());
}

std::string ServiceTest::answer(std::string_view target, std::string_view requestElement) {
  return post(target, envelope(requestElement)).body();
}

}  // namespace simtest
