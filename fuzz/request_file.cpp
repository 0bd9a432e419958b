#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/spfib/spfib_requests.h>

#include <sys/mman.h>
#include <unistd.h>

#include "cli/bulletin_file.h"
#include "cli/notification_files.h"
#include "cli/usage_error.h"
#include "cli/wind_file.h"
#include "fuzzing.h"

/// The request files of the command line: one that is taken makes a document that can be read.
namespace {

/// A file in memory with the input's text; its path.
std::string put(const std::string& text) {
  static const int file = ::memfd_create("request", 0);
  fuzz::require(::ftruncate(file, 0) == 0 && ::pwrite(file, text.data(), text.size(), 0) ==
                                                 static_cast<ssize_t>(text.size()),
                "there is memory for the file");
  return "/proc/self/fd/" + std::to_string(file);
}

void checkDocument(const ktpnaips::IAppendable& request) {
  std::string document;
  try {
    document = ktpnaips::requestDocument(request);
  } catch (const ktpnaips::RuntimeFault& fault) {
    fuzz::require(fault.number() == ktpnaips::fault::invalidCall ||
                      fault.number() == ktpnaips::fault::objectNotSet,
                  "a forbidden character or a missing point is all that can be wrong");
    return;
  }
  const auto parsed = ktpnaips::xml::Document::parse(document);
  fuzz::require(static_cast<bool>(parsed), "a request is well-formed");
  fuzz::require(parsed.serialise() == document, "a request reads back as it was written");
}

void read(std::uint8_t kind, const std::string& file) {
  if (kind == 0) {
    ktpnaips::SPFIBRqs request;
    request.SPFIBSpec(cli::readBulletinFile(file));
    checkDocument(request);
  } else if (kind == 1) {
    ktpnaips::SubmitICAOFlightNotifRqs request;
    request.Notification(cli::readIcaoFile(file));
    checkDocument(request);
  } else if (kind == 2) {
    ktpnaips::SubmitSARTimeNotifRqs request;
    request.Notification(cli::readSarTimeFile(file));
    checkDocument(request);
  } else {
    ktpnaips::WindTempProfileRqs request;
    cli::readWindFile(file, request);
    checkDocument(request);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ktpnaips::setFailureReporter([](std::wstring_view) {});
  fuzz::Input input(data, size);
  const std::uint8_t kind = input.byte();
  ktpnaips::Globals::settings().newFPLFormat = (kind & 4U) != 0;
  ktpnaips::Globals::settings().disableICAO = (kind & 8U) != 0;
  try {
    read(kind % 4, put(input.rest()));
  } catch (const cli::UsageError& error) {
    const std::string_view message = error.what();
    fuzz::require(message.find("line ") != std::string_view::npos &&
                      message.find('\n') == std::string_view::npos,
                  "a refusal names its line and is one");
  }
  return 0;
}
