#include <ktpnaips/ktpnaips.h>

#include <cstdlib>
#include <iostream>

int main() {
  ktpnaips::NAIPSConfig config;  // the settings of this thread
  config.Mode(1);
  config.UserName(L"pilot1");
  config.Password(L"secret");

  ktpnaips::LocationBriefingRqs request;
  request.addLocation(L"YSSY");
  request.setFlag(0, true);  // MET
  request.briefingReq().Duration(6);

  const auto response = request.submit();
  if (response == nullptr || response->Error()) {
    std::wcerr << (response ? response->ErrorText() : L"Nothing was answered.") << L'\n';
    return EXIT_FAILURE;
  }
  std::wcout << response->Content() << L'\n';
  for (const auto& item : *response) std::wcout << item->File() << L'\n';
}
