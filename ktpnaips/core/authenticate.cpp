#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/operation.h>

namespace ktpnaips {
namespace {

constexpr Operation authenticate{service::account, L"authenticate-rqs", L"authenticate-rqs",
                                 inClass(L"submit", L"AuthenticateRequest")};

}  // namespace

AuthenticateRqs::AuthenticateRqs() : Request(authenticate) {}

void AuthenticateRsp::extractData() {
  trapped(inClass(L"extractData", L"AuthenticateRsp"), [&] {
    const xml::Node payload = Payload();
    readText(payload, "naips:name", Name.value);
    readText(payload, "naips:motd", MOTD.value);
    readText(payload, "naips:avfax-id", AvfaxId.value);
    readText(payload, "naips:email", Email.value);
    withText(payload, "naips:scheduling",
             [&](const std::wstring& text) { Scheduling.value = isTrue(text); });
  });
}

}  // namespace ktpnaips
