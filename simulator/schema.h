#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/xml.h"

namespace sim {

// The parts of the schema as they stand in simulator/schema/, in alphabetical order.
std::span<const std::string_view> schemaParts();

// The schema of all requests, for one target namespace.
class Schema {
 public:
  // Throws std::runtime_error when the parts do not make a schema.
  explicit Schema(std::string_view targetNamespace);
  ~Schema();

  // What is wrong with a request element, with line and element; nothing when it fits.
  std::optional<std::string> check(const XmlView& request) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace sim
