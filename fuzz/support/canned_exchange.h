#pragma once

#include <string>

/// In place of the platform's HTTP: every request is answered with one text.
namespace fuzz {

struct CannedAnswer {
  std::string status = "200";
  std::string contentType = "text/xml";
  std::string body;
  bool isRead = false;
};

CannedAnswer& cannedAnswer();

}  // namespace fuzz
