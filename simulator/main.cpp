#include <CLI/CLI.hpp>
#include <chrono>
#include <csignal>
#include <ctime>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "simulator/service.h"

namespace {

struct Settings {
  sim::Options options;
  std::vector<std::string> accounts;
  std::string certificate = "valid";
  std::string now;
};

std::string faultList() {
  std::ostringstream text;
  text << "\nFaults:\n";
  for (const sim::FaultName& fault : sim::faultNames()) {
    text << "  " << fault.name << std::string(22 - fault.name.size(), ' ') << fault.summary << '\n';
  }
  text << "\nThe account DEMO with the password demo-pilot is always there.\n";
  return text.str();
}

// With the list of faults below the options, whose lines a footer of CLI11's would break anew.
class Help : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override {
    return Formatter::make_help(app, std::move(name), mode) + faultList();
  }
};

std::vector<std::string> knownFaults() {
  std::vector<std::string> names;
  for (const sim::FaultName& fault : sim::faultNames()) {
    names.emplace_back(fault.name);
  }
  return names;
}

void declareOptions(CLI::App& app, Settings& settings) {
  app.add_option("--port", settings.options.port, "Loopback port; a free one when left out");
  app.add_option("--dir", settings.options.stateFolder,
                 "Folder of the certificate authority (default: naips-simulator in the XDG state "
                 "folder); clients trust ca.pem in it");
  app.add_option("--account", settings.accounts, "A further account")->type_name("USER:PASSWORD");
  app.add_option("--schema-namespace", settings.options.schemaNamespace,
                 "URI of the NAIPS schema namespace")
      ->capture_default_str();
  app.add_option("--host-name", settings.options.hostNames,
                 "A further host name in the server's certificate");
  app.add_option("--tls", settings.certificate, "The server's certificate")
      ->check(CLI::IsMember({"valid", "expired", "not-yet-valid", "wrong-name", "unknown-issuer"}))
      ->capture_default_str();
  app.add_option("--fault", settings.options.fault, "Misbehave in every answer, see below")
      ->check(CLI::IsMember(knownFaults()).description(""))
      ->type_name("NAME");
  app.add_flag("--control", settings.options.control,
               "Let clients steer the service through /control/, for tests");
  app.add_option("--now", settings.now,
                 "Answer as at this time, such as 2026-11-20T06:00:00Z (default: the clock, cut "
                 "to the half-hour)");
  app.add_flag("--strict", settings.options.strict,
               "Refuse unknown places, departures in the past, flights without stages or aircraft "
               "and foreign groups");
  app.formatter(std::make_shared<Help>());
}

std::chrono::sys_seconds parseTime(const std::string& text) {
  std::tm fields{};
  char* const end = ::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%SZ", &fields);
  if (end == nullptr || *end != '\0') {
    throw std::invalid_argument("--now takes a time such as 2026-11-20T06:00:00Z");
  }
  return std::chrono::sys_seconds(std::chrono::seconds(::timegm(&fields)));
}

sim::Options serviceOptions(const Settings& settings) {
  sim::Options options = settings.options;
  for (const std::string& account : settings.accounts) {
    options.accounts.push_back(sim::accountFromText(account));
  }
  options.certificate = sim::certificateFromName(settings.certificate);
  if (!settings.now.empty()) {
    options.now = parseTime(settings.now);
  }
  return options;
}

// Blocked before any thread starts, so that only the wait below takes them.
sigset_t blockedSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signals;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"A simulated NAIPS service on the loopback address, HTTP and HTTPS on one port"};
  Settings settings;
  declareOptions(app, settings);
  CLI11_PARSE(app, argc, argv);
  try {
    const sigset_t signals = blockedSignals();
    const sim::Service service(serviceOptions(settings));
    std::cout << "listening on " << service.address() << std::endl;
    int signal = 0;
    sigwait(&signals, &signal);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "naips-simulator: " << error.what() << '\n';
    return 1;
  }
}
