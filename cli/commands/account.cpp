#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/property_output.h"
#include "cli/text_output.h"

#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/platform/text.h>

#include <memory>
#include <string>

namespace cli {
namespace {

using ktpnaips::AuthenticateRqs;
using ktpnaips::AuthenticateRsp;
using ktpnaips::ChangePasswordRqs;
using ktpnaips::GetGroupAffiliationRqs;
using ktpnaips::GroupMemberInfo;

constexpr Shown<AuthenticateRsp> holder[] = {
    {"Name", "Name", valueOf<&AuthenticateRsp::Name>},
    {"MOTD", "", valueOf<&AuthenticateRsp::MOTD>},
    {"Email", "E-mail", valueOf<&AuthenticateRsp::Email>},
    {"Scheduling", "Scheduling", valueOf<&AuthenticateRsp::Scheduling>},
    {"AvfaxId", "Avfax id", valueOf<&AuthenticateRsp::AvfaxId>}};

constexpr Shown<GroupMemberInfo> group[] = {
    {"Name", "GROUP", valueOf<&GroupMemberInfo::Name>},
    {"Manager", "MANAGER", valueOf<&GroupMemberInfo::Manager>}};

void printHolder(const AuthenticateRsp& response) {
  printFields(response, holder);
  if (response.MOTD().empty()) return;
  printLine();
  printText(response.MOTD());
}

const Registered logIn({"account", "login", "Check the account and show its holder",
                        "naips account login --user pilot1", [](CLI::App&) -> Run {
                          const auto request = std::make_shared<AuthenticateRqs>();
                          return [=](Session& session) {
                            session.submit(
                                *request,
                                [](const auto& response, JsonObject& json) {
                                  setFields(json, response, holder);
                                },
                                printHolder);
                          };
                        }});

const Registered changePassword(
    {"account", "password", "Change the password and the e-mail address",
     "naips account password --new-password-file new.txt --email me@pilot.example",
     [](CLI::App& app) -> Run {
       const auto request = std::make_shared<ChangePasswordRqs>();
       app.add_option_function<std::string>(
              "--new-password-file",
              [=](const std::string& file) {
                request->NewPassword(ktpnaips::text::fromUtf8(passwordIn(file)));
              },
              "File whose first line is the new password")
           ->type_name("FILE")
           ->required();
       addText(app, "--email", "E-mail address; without it, none is left",
               [=](auto text) { request->Email(text); });
       return [=](Session& session) {
         session.submit(
             *request, [](const auto&, JsonObject&) {},
             [](const auto&) { printLine("The password has been changed."); });
       };
     }});

const Registered listGroups({"account", "groups", "List the groups of the account",
                             "naips account groups", [](CLI::App&) -> Run {
                               return listing(std::make_shared<GetGroupAffiliationRqs>(), group);
                             }});

}  // namespace
}  // namespace cli
