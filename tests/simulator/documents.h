#pragma once

#include <string>
#include <vector>

#include "tests/simulator/requests.h"

namespace simtest {

// A sequence of elements in a request that fits the schema.
struct Document {
  std::string label;  // of the test
  std::string path;
  std::string request;
  std::string attributes;  // of the request element, besides those of the account
  std::string before;      // in the request element, around the sequence
  std::vector<Child> children;
  std::string after;

  std::string body(const std::vector<Child>& sequence) const;
};

std::vector<Document> documents();

}  // namespace simtest
