#pragma once

#include "cli/exit_status.h"
#include "cli/global_options.h"
#include "cli/json.h"
#include "cli/simulation.h"

#include <ktpnaips/core/abstract_request.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/core/response.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// One run of a command: the account and service that the options select, and how its result is
/// shown.
class Session {
 public:
  /// Applies the options, starts a simulated service if asked to, and finds the password. Throws
  /// `UsageError`.
  explicit Session(const GlobalOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Submits the request and shows its response: `fields` puts its properties into a JSON object,
  /// `print` writes them for a person. With `--dry-run`, writes the request document instead.
  template <class Request, class Fields, class Print>
  void submit(Request& request, Fields fields, Print print) {
    if constexpr (requires { request.abstractReq(); }) setAccount(request.abstractReq());
    if (options_.dryRun) {
      showDocument(request);
      return;
    }
    announce();
    const auto response = request.submit();
    if (response != nullptr) keepFiles(*response);
    Json properties = Json::object();
    if (response != nullptr) fields(*response, properties);
    show(response.get(), properties, [&] { print(*response); });
  }

  /// What the process shall return.
  [[nodiscard]] ExitStatus exitStatus() const;

 private:
  void startSimulation();
  [[nodiscard]] std::string password() const;
  void setAccount(ktpnaips::AbstractRequest& request) const;
  void announce() const;
  void showDocument(const ktpnaips::IAppendable& request) const;
  void show(const ktpnaips::AbstractResponse* response, const Json& properties,
            const std::function<void()>& print);
  void showJson(const ktpnaips::AbstractResponse* response, const Json& properties) const;
  void showError(const ktpnaips::AbstractResponse* response) const;

  /// Copies the files of a response into `--out` and makes it name the copies.
  template <class Response>
  void keepFiles(Response& response) {
    if constexpr (requires { response.Images(); }) {
      for (const auto& item : response.Images()) item->File(kept(item->File()));
    }
  }
  [[nodiscard]] std::wstring kept(const std::wstring& file);

  GlobalOptions options_;
  std::unique_ptr<Simulation> simulation_;
  std::vector<std::string> failures_;
  bool hasError_ = false;
};

}  // namespace cli
