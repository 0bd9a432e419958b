// consumer ADDRESS:PORT: logs in at a simulated service and asks for a briefing of YSSY.
#include <ktpnaips/ktpnaips.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace {

bool isGood(const ktpnaips::AbstractResponse* response) {
  if (response != nullptr && !response->Error()) return true;
  std::wcerr << (response != nullptr ? response->ErrorText() : L"Nothing was answered.") << L'\n';
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  const std::string service = argv[1];
  ktpnaips::Deployment deployment;
  deployment.connectTo = std::wstring(service.begin(), service.end());
  ktpnaips::Deployment::use(deployment);

  ktpnaips::NAIPSConfig config;
  config.Mode(0);  // over HTTP
  config.UserName(L"DEMO");
  config.Password(L"demo-pilot");
  const auto holder = ktpnaips::AuthenticateRqs().submit();
  if (!isGood(holder.get())) return EXIT_FAILURE;
  std::wcout << holder->Name() << L'\n';

  ktpnaips::LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  request.setFlag(0, true);  // MET
  request.briefingReq().Duration(6);
  const auto briefing = request.submit();
  if (!isGood(briefing.get())) return EXIT_FAILURE;
  std::wcout << briefing->Content() << L'\n';

  try {  // thrown inside the library, caught outside
    request.setFlag(40, true);
  } catch (const ktpnaips::RuntimeFault& fault) {
    std::wcout << L"fault " << fault.number() << L'\n';
  }
}
