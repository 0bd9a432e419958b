#pragma once

#include "cli/change.h"
#include "cli/chart_files.h"
#include "cli/error_text.h"
#include "cli/exit_status.h"
#include "cli/global_options.h"
#include "cli/json.h"
#include "cli/outcomes.h"
#include "cli/progress.h"
#include "cli/simulation.h"
#include "cli/text_output.h"

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
  explicit Session(const GlobalOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Submits the request and shows its response: `fields` sets its properties in a JSON object,
  /// `print` writes them for a person. With `--dry-run`, writes the request document instead.
  /// Returns the response, if there is one.
  template <class Request, class Fields, class Print>
  auto submit(Request& request, Fields fields, Print print) {
    if (isDryRun()) {
      showDocument(request);
      return decltype(request.submit())();
    }
    auto response = fetch(request);
    show(response.get(), membersOf(response, fields), [&] { print(*response); });
    return response;
  }

  /// Submits the request once for each key, which `set` gives to it, and shows the responses one
  /// after another; as JSON, they are the items of one object.
  template <class Request, class Keys, class Set, class Fields, class Print>
  void submitEach(Request& request, const Keys& keys, Set set, Fields fields, Print print) {
    Progress progress(keys.size(), !options_.quiet && !isDryRun());
    Outcomes outcomes;
    for (const auto& key : keys) {
      set(request, key);
      if (isDryRun()) {
        showDocument(request);
        continue;
      }
      progress.next(oneLine(key));
      const auto response = fetch(request);
      progress.clear();
      outcomes.add(outcome(response.get()), membersOf(response, fields));
      showOne(response.get(), oneLine(key), [&] { print(*response); });
    }
    if (!isDryRun()) finishEach(outcomes);
  }

  /// Submits the request, shows nothing, and keeps the files of its response. The first one applies
  /// the options, starts a simulated service if asked to, and finds the password; that throws
  /// `UsageError`.
  template <class Request>
  auto fetch(Request& request) {
    start();
    setAccountOf(request);
    change_ = changeBy(request);
    auto response = request.submit();
    if (response != nullptr) keepFiles(*response);
    return response;
  }

  /// Shows a response, or that there is none; `fields` sets its properties.
  void show(const ktpnaips::ResponseBase* response, const JsonMembers& fields,
            const std::function<void()>& print);

  /// Writes the request's document.
  template <class Request>
  void showDocument(Request& request) {
    start();
    setAccountOf(request);
    writeDocument(request);
  }

  [[nodiscard]] bool isDryRun() const { return options_.dryRun; }
  /// Whether files are copied into a folder of the caller's.
  [[nodiscard]] bool keepsFiles() const { return options_.out.has_value(); }
  /// Writes a sentence to standard error, unless `--quiet`.
  void remark(std::string_view text) const;

  /// Takes the response of one request of several into the exit status, and shows it to a person,
  /// after the key of the request when it failed.
  void showOne(const ktpnaips::ResponseBase* response, const std::string& key,
               const std::function<void()>& print);
  /// What the JSON object of every response begins with.
  [[nodiscard]] Json outcome(const ktpnaips::ResponseBase* response) const;
  /// Shows the outcomes of several requests as JSON, with what else there is to tell.
  void finishEach(const Outcomes& outcomes, const Json& properties = Json::object()) const;

  [[nodiscard]] const GlobalOptions& options() const { return options_; }
  /// One sentence on the failed response of the last request: what happened and what to do next.
  [[nodiscard]] std::string summary(const ktpnaips::ResponseBase* response) const;
  /// The account in whose name requests are made.
  [[nodiscard]] std::string userName() const;
  /// Shows what else there is to tell when the command has ended.
  void finish() const;
  /// What has been done at the service; empty when nothing there was changed, or it is not known.
  [[nodiscard]] std::string done() const { return done_; }
  /// What the process shall return.
  [[nodiscard]] ExitStatus exitStatus() const;

 private:
  void start();
  void startSimulation(const std::string& password);
  void watchCalls();
  [[nodiscard]] std::string password() const;
  /// Says so when others can read the file.
  void warnOf(const std::string& passwordFile) const;
  void setAccount(ktpnaips::AbstractRequest& request) const;
  void writeDocument(const ktpnaips::IAppendable& request) const;
  /// Writes what went wrong, after the key of the request when it is one of several.
  void showError(const ktpnaips::ResponseBase* response, const std::string& key = {}) const;
  /// Writes what that means for what the request changes.
  void showChange(const ktpnaips::ResponseBase* response) const;
  /// A person knows by now what became of the request.
  void markTold() noexcept;

  template <class Request>
  void setAccountOf(Request& request) const {
    if constexpr (requires { request.abstractReq(); }) setAccount(request.abstractReq());
  }

  template <class Response, class Fields>
  static JsonMembers membersOf(const std::shared_ptr<Response>& response, Fields fields) {
    return [response, fields](JsonObject& json) {
      if (response != nullptr) fields(*response, json);
    };
  }

  /// Copies the files of a response into `--out` and makes it name the copies.
  template <class Response>
  void keepFiles(Response& response) {
    if constexpr (requires { response.Images(); }) {
      for (const auto& item : response.Images()) item->File(kept(item->File()));
    } else if constexpr (requires { response.ChartDescriptor(); }) {
      for (const auto& product : response) {
        const std::string name = chartFileName(response.ChartDescriptor().get(), *product);
        product->FilePath(kept(product->FilePath(), name));
      }
    }
  }
  [[nodiscard]] std::wstring kept(const std::wstring& file, const std::string& name = {});

  GlobalOptions options_;
  std::unique_ptr<Simulation> simulation_;
  Addressed addressed_;             // the last request
  const Change* change_ = nullptr;  // of the last request
  const char* untold_ = nullptr;    // what to say of a change that has begun to be sent
  std::string done_;
  std::vector<std::string> failures_;
  bool isStarted_ = false;
  bool hasError_ = false;
};

}  // namespace cli
