#include "cli/command.h"
#include "cli/text_output.h"

#include <ktpnaips/core/authenticate.h>

#include <memory>

namespace cli {
namespace {

using ktpnaips::AuthenticateRqs;
using ktpnaips::AuthenticateRsp;

void holderFields(const AuthenticateRsp& holder, Json& json) {
  json["Name"] = jsonText(holder.Name());
  json["MOTD"] = jsonText(holder.MOTD());
  json["Email"] = jsonText(holder.Email());
  json["Scheduling"] = holder.Scheduling();
  json["AvfaxId"] = jsonText(holder.AvfaxId());
}

void printHolder(const AuthenticateRsp& holder) {
  printField("Name", holder.Name());
  printField("E-mail", holder.Email());
  printField("Scheduling", holder.Scheduling() ? L"yes" : L"no");
  printField("Avfax id", holder.AvfaxId());
  if (holder.MOTD().empty()) return;
  printLine();
  printText(holder.MOTD());
}

const Registered login({"account", "login", "Check the account and show its holder",
                        [](CLI::App&) -> Run {
                          const auto request = std::make_shared<AuthenticateRqs>();
                          return [=](Session& session) {
                            session.submit(*request, holderFields, printHolder);
                          };
                        }});

}  // namespace
}  // namespace cli
