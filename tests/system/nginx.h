#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The nginx in front of the simulated service (`with-nginx`).
namespace nginx {

/// "address:port", for HTTPS or HTTP.
std::wstring address(bool overHttp);

/// The PEM file of the issuer of its certificates.
std::wstring authorityFile();

/// A request that it has answered, as its log says.
struct LogEntry {
  std::string host;
  int status = 0;
  std::string protocol;
  std::string connection;
  int numberInConnection = 0;
  std::string transferEncoding;  ///< of the answer; "-" is none
};

/// All of them, oldest first.
std::vector<LogEntry> log();

/// Its whole answer to the text of a request, over HTTP.
std::string answerTo(std::string_view request);

/// Keeps it from running until the end of the scope.
class Outage {
 public:
  Outage();
  ~Outage();
  Outage(const Outage&) = delete;
  Outage& operator=(const Outage&) = delete;
};

}  // namespace nginx
