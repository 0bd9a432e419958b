#include "cli/session.h"

#include "cli/messages.h"
#include "cli/out_folder.h"
#include "cli/paths.h"
#include "cli/secrets.h"
#include "cli/text_output.h"
#include "cli/usage_error.h"

#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/masking.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/interruption.h>
#include <ktpnaips/platform/program_files.h>
#include <ktpnaips/platform/proxy_log_in.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace cli {

using ktpnaips::NAIPSConfig;
using ktpnaips::Outcome;
using ktpnaips::terminal::environment;
using ktpnaips::text::fromUtf8;
using ktpnaips::text::toUtf8;

namespace {

bool isError(const ktpnaips::ResponseBase* response) {
  return response == nullptr || response->Error();
}

std::string userOf(const GlobalOptions& options) {
  if (options.user) return *options.user;
  if (auto user = environment("NAIPS_USER")) return *std::move(user);
  return options.simulate ? Simulation::documentedUser() : "";
}

void requireUser(const GlobalOptions& options) {
  const bool isKnown =
      options.dryRun || !userOf(options).empty() || options.requestUser.has_value();
  if (!isKnown) throw UsageError("there is no user: give --user NAME, or set NAIPS_USER");
}

/// Asks the person at the terminal for the account of a proxy.
std::optional<ktpnaips::ProxyCredentials> askForProxyAccount(std::wstring_view host, int attempt) {
  ktpnaips::interruption::announce(nullptr);  // the proxy has passed nothing on
  if (attempt > 1) complain("The proxy did not accept that account.");
  const auto user = ktpnaips::terminal::ask(fmt::format("User of the proxy {}: ", toUtf8(host)));
  if (!user || user->empty()) return std::nullopt;
  const auto password = ktpnaips::terminal::askSecret("Password of the proxy: ");
  if (!password) return std::nullopt;
  conceal(*password);
  return ktpnaips::ProxyCredentials{fromUtf8(*user), fromUtf8(*password)};
}

/// One line on a call that has ended, as in
/// "authenticate-rqs to https://host/path: HTTP 200, sent 510 bytes, received 1,204 in 35 ms".
std::string described(const ktpnaips::ServiceCall& call) {
  const double milliseconds = static_cast<double>(call.untilEnd.count()) / 1000;
  const std::string outcome = call.status.empty() ? "no answer" : "HTTP " + call.status;
  return fmt::format("{} to {}: {}, sent {} bytes, received {} in {:.0f} ms",
                     toUtf8(call.requestName), toUtf8(call.url), outcome, call.bytesSent,
                     call.bytesReceived, milliseconds);
}

/// Scheme and host of a URL, as in "https://naips.example".
std::string siteOf(std::wstring_view url) {
  const auto host = url.find(L"//") + 2;
  return plain(url.substr(0, url.find(L'/', host)));
}

void showDocuments(const ktpnaips::ServiceCall& call) {
  complain("> " + plain(fromUtf8(call.request())));
  if (!call.status.empty()) complain("< " + plain(fromUtf8(call.answer())));
}

}  // namespace

Session::Session(const GlobalOptions& options) : options_(options) {
  ktpnaips::setFailureReporter(
      [this](std::wstring_view report) { failures_.push_back(toUtf8(report)); });
  if (ktpnaips::terminal::canAsk()) ktpnaips::setProxyLogIn(askForProxyAccount);
  ktpnaips::setSendingObserver([this](const ktpnaips::ServiceCall& call) {
    if (!call.changes || change_ == nullptr) return;
    untold_ = change_->inDoubt;
    ktpnaips::interruption::announce(untold_);
  });
}

Session::~Session() {
  if (untold_ != nullptr) {  // a failure ends the command, perhaps for want of memory
    writeMessage(untold_);
    writeMessage("\n");
  }
  markTold();
  ktpnaips::setSendingObserver({});
  ktpnaips::setCallObserver({});
  ktpnaips::setProxyLogIn({});
  ktpnaips::setFailureReporter({});
}

void Session::start() {
  if (isStarted_) return;
  isStarted_ = true;
  options_.apply();
  requireUser(options_);
  if (options_.out && !options_.dryRun) prepareOutFolder(*options_.out);
  const std::string secret = password();
  conceal(secret);
  if (options_.simulate && !options_.dryRun) startSimulation(secret);
  NAIPSConfig config;
  config.UserName(fromUtf8(userOf(options_)));
  config.Password(fromUtf8(secret));
  if (!options_.dryRun) watchCalls();
}

void Session::watchCalls() {
  const std::string to = toUtf8(ktpnaips::Deployment::current().connectTo);
  const std::string address = to.empty() ? "" : " at " + to;
  if (options_.verbose > 0) {
    remark(fmt::format("Asking the service in mode {}{} ...", options_.mode, address));
  }
  ktpnaips::setCallObserver([this, address](const ktpnaips::ServiceCall& call) {
    addressed_ = {siteOf(call.url) + address, call.status,
                  call.contentType.find("xml") != std::string::npos};
    if (options_.verbose > 0) complain(oneLine(fromUtf8(described(call))));
    if (options_.verbose > 1) showDocuments(call);
  });
}

void Session::startSimulation(const std::string& password) {
  auto deployment = ktpnaips::Deployment::current();
  simulation_ =
      std::make_unique<Simulation>(userOf(options_), password, toUtf8(deployment.schemaNamespace));
  deployment.connectTo = fromUtf8(simulation_->address());
  deployment.caFile = fromUtf8(simulation_->caFile());
  ktpnaips::Deployment::use(std::move(deployment));
}

std::string Session::password() const {
  if (options_.passwordFile) {
    warnOf(*options_.passwordFile);
    return passwordIn(*options_.passwordFile);
  }
  if (auto value = environment("NAIPS_PASSWORD")) return *std::move(value);
  if (options_.simulate) return Simulation::documentedPassword();
  const bool isNeeded = !options_.dryRun && !options_.requestPasswordFile;
  if (!isNeeded) return {};
  std::optional<std::string> typed;
  if (ktpnaips::terminal::canAsk()) typed = ktpnaips::terminal::askSecret("NAIPS password: ");
  if (!typed || typed->empty()) {
    throw UsageError(
        "there is no password: give --password-file FILE, set NAIPS_PASSWORD, or call naips at a "
        "terminal to be asked for it");
  }
  return *std::move(typed);
}

void Session::warnOf(const std::string& passwordFile) const {
  if (!ktpnaips::files::isReadableByOthers(pathOf(passwordFile))) return;
  remark(fmt::format("Other users can read the password in {0}: chmod 600 {0}", passwordFile));
}

std::string Session::summary(const ktpnaips::ResponseBase* response) const {
  return summaryOf(response, addressed_);
}

std::string Session::userName() const {
  return options_.requestUser.value_or(userOf(options_));
}

void Session::setAccount(ktpnaips::AbstractRequest& request) const {
  if (options_.requestUser) request.User(fromUtf8(*options_.requestUser));
  if (options_.requestPasswordFile) {
    request.Password(fromUtf8(passwordIn(*options_.requestPasswordFile)));
    warnOf(*options_.requestPasswordFile);
  }
  if (options_.scope) request.Scope(fromUtf8(*options_.scope));
  if (options_.source) request.Source(fromUtf8(*options_.source));
}

void Session::remark(std::string_view text) const {
  if (!options_.quiet) complain(text);
}

void Session::writeDocument(const ktpnaips::IAppendable& request) const {
  const std::size_t before = failures_.size();
  const std::string document = ktpnaips::requestDocument(request);
  const bool isWhole = failures_.size() == before;
  if (isWhole) printLine(ktpnaips::withMaskedPasswords(document));
}

std::wstring Session::kept(const std::wstring& file, const std::string& name) {
  if (!options_.out || file.empty()) return file;
  try {
    return copyInto(*options_.out, file, name);
  } catch (const std::exception& failure) {
    failures_.push_back(failure.what());
    return file;
  }
}

void Session::show(const ktpnaips::ResponseBase* response, const JsonMembers& fields,
                   const std::function<void()>& print) {
  hasError_ = isError(response);
  if (!hasError_ && change_ != nullptr) done_ = change_->done;
  if (options_.json) {
    printJson([&](JsonObject& json) {
      json.setAll(outcome(response));
      fields(json);
      json.set("Failures", failures_);
    });
    showChange(response);
  } else {
    if (hasError_) {
      showError(response);
    } else {
      print();
      showChange(response);
    }
  }
  markTold();
}

void Session::markTold() noexcept {
  untold_ = nullptr;
  ktpnaips::interruption::announce(nullptr);
}

Json Session::outcome(const ktpnaips::ResponseBase* response) const {
  Json json = Json::object();
  json["Error"] = isError(response);
  json["ErrorText"] = errorText(response);
  json["Outcome"] = toUtf8(nameOf(outcomeOf(response)));
  json["Code"] = nullptr;
  if (response != nullptr) {
    if (const auto code = response->errorCode()) json["Code"] = *code;
    const bool isTraced = options_.trace && response->Error();
    if (isTraced && outcomeOf(response) != Outcome::none) json["Trace"] = response->sentDocument();
  }
  return json;
}

void Session::showError(const ktpnaips::ResponseBase* response, const std::string& key) const {
  complainOfError((key.empty() ? "" : key + ": ") + summary(response));
  complain(plain(fromUtf8(options_.trace ? tracedErrorText(response) : errorText(response))));
  showChange(response);
}

void Session::showChange(const ktpnaips::ResponseBase* response) const {
  if (change_ == nullptr) return;
  switch (outcomeOf(response)) {
    case Outcome::success:
      if (!failures_.empty()) complain(change_->done);
      return;
    case Outcome::none:
    case Outcome::notSent:
      return complain(change_->notSent);
    case Outcome::refused:
      return complain(change_->refused);
    case Outcome::inDoubt:
      return complain(change_->inDoubt);
    default:
      return;
  }
}

void Session::showOne(const ktpnaips::ResponseBase* response, const std::string& key,
                      const std::function<void()>& print) {
  hasError_ = hasError_ || isError(response);
  markTold();
  if (options_.json) return;
  if (isError(response)) {
    showError(response, key);
  } else {
    print();
  }
}

void Session::finishEach(const Outcomes& outcomes, const Json& properties) const {
  if (!options_.json) return;
  printJson([&](JsonObject& json) {
    const auto failed = outcomes.failed();
    const auto count = outcomes.written().size();
    json.set("Error", failed > 0);
    json.set("ErrorText",
             failed > 0 ? fmt::format("{} of {} requests failed.", failed, count) : "");
    json.set("Outcome", failed > 0 ? outcomes.firstFailed().at("Outcome") : Json("success"));
    json.set("Code", failed > 0 ? outcomes.firstFailed().at("Code") : Json());
    json.setAll(properties);
    json.setItems(outcomes.written(), std::identity());
    json.set("Failures", failures_);
  });
}

void Session::finish() const {
  if (options_.json) return;
  for (const auto& failure : failures_) complain(failure);
}

ExitStatus Session::exitStatus() const {
  if (!failures_.empty()) return internalFailure;
  return hasError_ ? serviceError : success;
}

}  // namespace cli
