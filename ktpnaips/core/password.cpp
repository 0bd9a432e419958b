#include <ktpnaips/core/operation.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/core/xml_building.h>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr Operation changePassword{
    service::account,       L"change-password-rqs",
    L"change-password-rqs", inClass(L"submit", L"ChangePasswordRequest"),
    std::nullopt,           Effect::changes};

}  // namespace

ChangePasswordRqs::ChangePasswordRqs() : Request(changePassword) {}

void ChangePasswordRqs::appendContent(const xml::Node& request,
                                      std::wstring_view namespaceUri) const {
  addElement(request, L"new-password", namespaceUri, NewPassword());
  addElement(request, L"email", namespaceUri, Email());
}

}  // namespace ktpnaips
