#include "cli/error_text.h"

#include <ktpnaips/core/masking.h>
#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <cstdint>
#include <string_view>

namespace cli {

using ktpnaips::Outcome;
using ktpnaips::ResponseBase;
using ktpnaips::text::toUtf8;

namespace {

// In these {} stands for where the request went.

/// After a step of the network's that failed.
std::string_view networkSentence(std::uint32_t code, bool isSent) {
  switch (code) {
    case 12002:
      return isSent
                 ? "{} did not answer in time; check the network."
                 : "{} could not be reached in time; check the network, --host and --connect-to.";
    case 12005:
      return "The address of {} cannot be used; check --host and --connect-to.";
    case 12007:
      return "The host of {} is not known; check --host and the network.";
    case 12029:
      if (isSent) break;  // by a connection that was kept, before
      return "{} could not be reached; check the network, --host and --connect-to.";
    case 12037:
    case 12038:
    case 12045:
    case 12057:
    case 12175:
      return "The certificate of {} is not trusted; check --host, and --ca-file if its issuer is "
             "your own.";
    case 12152:
      if (!isSent) break;  // by a proxy
      return "{} answered, but not as NAIPS does; check --host.";
    default:
      break;
  }
  return isSent ? "The connection to {} broke off before its answer was there."
                : "No connection to {} came about; check the network, --host and --connect-to.";
}

/// After an answer that is not the service's, or cannot be read.
std::string_view answerSentence(const ResponseBase& response, const Addressed& to) {
  if (response.outcome() == Outcome::notSent) {
    return to.status == "407"
               ? "A proxy in front of {} wants an account; call naips at a terminal to be asked "
                 "for it."
               : "A proxy in front of {} does not connect to it; what it says follows.";
  }
  if (response.ResponseDoc()) {
    return "What {} answered is XML but not from NAIPS; check --host and --mode.";
  }
  if (to.status.empty()) return "There is no usable answer from {}.";
  if (to.status == "200" && to.isXml) {
    return "The answer of {} cannot be read; it may have been cut off.";
  }
  return "{} answered, but not as NAIPS does; check --host. Its answer follows.";
}

std::string_view sentence(const ResponseBase* response, const Addressed& to) {
  const Outcome outcome = outcomeOf(response);
  switch (outcome) {
    case Outcome::none:
      return "Nothing was sent to {}: the request could not be made.";
    case Outcome::refused:
      return "{} refused the request; it says why below.";
    case Outcome::fault:
      return "{} could not process the request and answered with a fault, which follows.";
    default:
      break;
  }
  if (const auto code = response->errorCode()) {
    return networkSentence(*code, outcome != Outcome::notSent);
  }
  return answerSentence(*response, to);
}

/// Whether the same request may have another answer next time, and does no harm.
bool isWorthAnotherTry(const ResponseBase& response, const Addressed& to) {
  if (response.outcome() != Outcome::unreadable || response.ResponseDoc()) return false;
  const auto code = response.errorCode();
  return code ? *code != 12152 : to.status == "200" && to.isXml;
}

}  // namespace

Outcome outcomeOf(const ResponseBase* response) {
  return response != nullptr ? response->outcome() : Outcome::none;
}

std::string errorText(const ResponseBase* response) {
  return toUtf8(response != nullptr ? response->reason() : ResponseBase().reason());
}

std::string tracedErrorText(const ResponseBase* response) {
  if (response == nullptr) return errorText(response);
  return ktpnaips::withMaskedPasswords(toUtf8(response->ErrorText()));
}

std::string summaryOf(const ResponseBase* response, const Addressed& to) {
  std::string summary = fmt::format(fmt::runtime(sentence(response, to)), to.service);
  if (response != nullptr && isWorthAnotherTry(*response, to)) summary += " Try again.";
  return summary;
}

}  // namespace cli
