#include "simulator/dispatcher.h"

#include <exception>
#include <string_view>

#include "simulator/soap.h"

namespace sim {
namespace {

constexpr Endpoint endpoints[] = {Endpoint::reference, Endpoint::account, Endpoint::briefing,
                                  Endpoint::flightNotification, Endpoint::met};

// The path of a request target, which may also be a whole URL or bear a query.
std::string_view pathOfTarget(std::string_view target) {
  if (const std::size_t scheme = target.find("://"); scheme != std::string_view::npos) {
    const std::size_t slash = target.find('/', scheme + 3);
    target = slash == std::string_view::npos ? "/" : target.substr(slash);
  }
  return target.substr(0, target.find('?'));
}

// With the prefix "/naips" or, as at the developer endpoint, without.
std::optional<Endpoint> endpointOf(std::string_view target) {
  constexpr std::string_view prefix = "/naips";
  std::string_view path = pathOfTarget(target);
  if (path.starts_with(prefix)) {
    path.remove_prefix(prefix.size());
  }
  for (const Endpoint endpoint : endpoints) {
    if (path == pathOf(endpoint)) {
      return endpoint;
    }
  }
  return std::nullopt;
}

std::string list(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text.append(text.empty() ? "" : ", ").append(name);
  }
  return text.empty() ? "none" : text;
}

std::string answerName(std::string_view requestElement) {
  constexpr std::string_view suffix = "-rqs";
  if (requestElement.ends_with(suffix)) {
    requestElement.remove_suffix(suffix.size());
  }
  return std::string(requestElement) + "-rsp";
}

}  // namespace

Dispatcher::Dispatcher(const Options& options)
    : schemaNamespace_(options.schemaNamespace), schema_(options.schemaNamespace) {
  state_.fixedNow = options.now;
  state_.strict = options.strict;
  state_.accounts.add(demoAccount());
  for (const Account& account : options.accounts) {
    state_.accounts.add(account);
  }
  addHandlers(registry_, state_);
}

Answer Dispatcher::answer(const ReceivedRequest& request) {
  const std::optional<Endpoint> endpoint = endpointOf(request.target);
  if (!endpoint) {
    return plainAnswer(404, "There is no service at " + request.target);
  }
  if (request.method != "POST") {
    Answer refused = plainAnswer(405, "Requests to this service are posted");
    refused.headers.emplace_back("Allow", "POST");
    return refused;
  }
  if (!request.header("Content-Type").starts_with("text/xml")) {
    return plainAnswer(415, "Requests to this service have the content type text/xml");
  }
  Answer answer;
  answer.body = answerXml(*endpoint, request.body);
  return answer;
}

std::string Dispatcher::answerXml(Endpoint endpoint, const std::string& body) {
  try {
    const XmlDocument document = XmlDocument::parse(body);
    const XmlView request = requestElement(document);
    const Operation& operation = checkedOperation(endpoint, request);
    return soapAnswer(run(operation, request), schemaNamespace_);
  } catch (const SoapFault& fault) {
    return soapAnswer(fault);
  } catch (const XmlError& error) {
    return soapAnswer(
        SoapFault("Client", std::string("The request cannot be read: ") + error.what()));
  } catch (const std::exception& error) {
    return soapAnswer(SoapFault("Server", error.what()));
  }
}

const Operation& Dispatcher::checkedOperation(Endpoint endpoint, const XmlView& request) const {
  const std::string name = request.name();
  if (request.namespaceUri() != schemaNamespace_) {
    throw SoapFault("Client", "The request element " + name + " is in the namespace \"" +
                                  request.namespaceUri() + "\" instead of \"" + schemaNamespace_ +
                                  "\"");
  }
  const Operation* operation = registry_.find(name);
  if (operation == nullptr) {
    throw SoapFault("Client", name + " is no request; " + std::string(pathOf(endpoint)) +
                                  " takes: " + list(registry_.requestElements(endpoint)));
  }
  if (operation->endpoint != endpoint) {
    throw SoapFault("Client", name + " belongs to " + std::string(pathOf(operation->endpoint)) +
                                  ", not to " + std::string(pathOf(endpoint)));
  }
  if (const std::optional<std::string> wrong = schema_.check(request)) {
    throw SoapFault("Client", "The request does not fit the schema: " + *wrong);
  }
  return *operation;
}

Element Dispatcher::run(const Operation& operation, const XmlView& request) {
  Element answer(answerName(operation.requestElement));
  try {
    Account* account =
        state_.accounts.find(request.attribute("requestor"), request.attribute("password"));
    if (account == nullptr) {
      throw Refusal("Invalid user name or password");
    }
    operation.handle(Call{request, *account, state_.now()}, answer);
    answer.attribute("status", "SUCCESS");
  } catch (const Refusal& refusal) {
    answer.clear();
    answer.attribute("status", "FAILURE").add("info", refusal.what());
  }
  return answer;
}

}  // namespace sim
