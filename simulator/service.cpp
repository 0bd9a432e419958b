#include "simulator/service.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>
#include <stdexcept>

#include "simulator/data/text.h"
#include "simulator/dispatcher.h"
#include "simulator/faults.h"
#include "simulator/server.h"
#include "simulator/state_folder.h"
#include "simulator/tls.h"

namespace sim {
namespace {

constexpr std::string_view controlPath = "/control/";

const Fault* faultNamed(std::string_view name) {
  if (name.empty()) {
    return nullptr;
  }
  const Fault* fault = findFault(name);
  if (fault == nullptr) {
    throw std::invalid_argument("There is no fault \"" + std::string(name) + "\"");
  }
  return fault;
}

std::filesystem::path stateFolderOf(const Options& options) {
  return options.stateFolder.empty() ? defaultStateFolder() : options.stateFolder;
}

}  // namespace

struct Service::Impl {
  explicit Impl(const Options& options);

  Delivery answer(ReceivedRequest request, bool keepAlive);
  std::string controlled(const ReceivedRequest& request);
  void record(ReceivedRequest request);

  const std::filesystem::path folder;
  const std::string schemaNamespace;
  const std::size_t keptRequests;
  const bool isControlled;
  std::atomic<const Fault*> fault;
  std::atomic<std::size_t> connectionCount{0};
  mutable std::mutex mutex;  // of the two below
  std::deque<ReceivedRequest> requests;
  std::size_t requestCount = 0;
  Dispatcher dispatcher;
  Server server;  // last: its thread uses the others
};

Service::Impl::Impl(const Options& options)
    : folder(stateFolderOf(options)),
      schemaNamespace(options.schemaNamespace),
      keptRequests(options.keptRequests),
      isControlled(options.control),
      fault(faultNamed(options.fault)),
      dispatcher(options),
      server(options.port, issue(authorityIn(folder), options.certificate, options.hostNames),
             {[this] { ++connectionCount; },
              [this](ReceivedRequest request, bool keepAlive) {
                return answer(std::move(request), keepAlive);
              }}) {}

Delivery Service::Impl::answer(ReceivedRequest request, bool keepAlive) {
  if (isControlled && request.target.starts_with(controlPath)) {
    Answer answer;
    answer.body = controlled(request);
    return deliver(answer, keepAlive);
  }
  const Answer answer = dispatcher.answer(request);
  record(std::move(request));
  const Fault* const active = fault;
  return active == nullptr ? deliver(answer, keepAlive)
                           : active->spoil(answer, {schemaNamespace, keepAlive});
}

std::string Service::Impl::controlled(const ReceivedRequest& request) {
  const std::string_view what = std::string_view(request.target).substr(controlPath.size());
  if (what == "fault") {
    fault = faultNamed(request.body);
    return "done";
  }
  const std::lock_guard lock(mutex);
  if (what == "count") {
    return std::to_string(requestCount);
  }
  return requests.empty() ? std::string() : requests.back().body;
}

void Service::Impl::record(ReceivedRequest request) {
  const std::lock_guard lock(mutex);
  ++requestCount;
  requests.push_back(std::move(request));
  if (requests.size() > keptRequests) {
    requests.pop_front();
  }
}

Service::Service(Options options) : impl_(std::make_unique<Impl>(options)) {}

Service::~Service() = default;

std::uint16_t Service::port() const {
  return impl_->server.port();
}

std::string Service::address() const {
  return "127.0.0.1:" + std::to_string(port());
}

std::filesystem::path Service::caFile() const {
  return authorityCertificateFile(impl_->folder);
}

void Service::setFault(std::string_view name) {
  impl_->fault = faultNamed(name);
}

void Service::stop() {
  impl_->server.stop();
}

std::vector<ReceivedRequest> Service::requests() const {
  const std::lock_guard lock(impl_->mutex);
  return {impl_->requests.begin(), impl_->requests.end()};
}

std::size_t Service::requestCount() const {
  const std::lock_guard lock(impl_->mutex);
  return impl_->requestCount;
}

std::size_t Service::connectionCount() const {
  return impl_->connectionCount;
}

std::string_view ReceivedRequest::header(std::string_view name) const {
  const auto found = std::ranges::find_if(
      headers, [&](const auto& header) { return equalIgnoringCase(header.first, name); });
  return found == headers.end() ? std::string_view() : found->second;
}

Certificate certificateFromName(std::string_view name) {
  constexpr std::pair<std::string_view, Certificate> names[] = {
      {"valid", Certificate::valid},
      {"expired", Certificate::expired},
      {"not-yet-valid", Certificate::notYetValid},
      {"wrong-name", Certificate::wrongName},
      {"unknown-issuer", Certificate::unknownIssuer}};
  for (const auto& [text, certificate] : names) {
    if (text == name) {
      return certificate;
    }
  }
  throw std::invalid_argument("There is no kind of certificate \"" + std::string(name) + "\"");
}

std::vector<FaultName> faultNames() {
  std::vector<FaultName> names;
  for (const Fault& fault : faults()) {
    names.push_back({fault.name, fault.summary});
  }
  return names;
}

}  // namespace sim
