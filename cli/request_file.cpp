#include "cli/request_file.h"

#include "cli/arguments.h"
#include "cli/file_tree.h"
#include "cli/paths.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>

namespace cli {
namespace {

std::string read(const std::string& file, const std::string& name) {
  if (file == "-") return contentOf(std::cin, name);
  std::ifstream stream(pathOf(file), std::ios::binary);
  return contentOf(stream, name);
}

}  // namespace

RequestFile::RequestFile(const std::string& file)
    : name_(file == "-" ? "standard input" : file), content_(parseTree(read(file, name_), name_)) {}

void FileValue::refuse(std::string_view reason) const {
  refuseAt(*file_, node_->line, path_.empty() ? "the content" : path_, reason);
}

bool FileValue::has(std::string_view key) const {
  return node_->value.is_object() &&
         std::ranges::find(node_->children, key, &FileNode::key) != node_->children.end();
}

std::wstring FileValue::text() const {
  if (!isText()) refuse("must be a text");
  return ktpnaips::text::fromUtf8(node_->value.get_ref<const std::string&>());
}

bool FileValue::truth() const {
  if (!node_->value.is_boolean()) refuse("must be true or false");
  return node_->value.get<bool>();
}

std::int16_t FileValue::number() const {
  using Limits = std::numeric_limits<std::int16_t>;
  const Json& value = node_->value;
  const bool fits = value.is_number_unsigned()
                        ? value.get<std::uint64_t>() <= std::uint64_t{Limits::max()}
                        : value.is_number_integer() && value.get<std::int64_t>() >= Limits::min();
  if (!fits) refuse("must be a whole number from -32768 to 32767");
  return value.get<std::int16_t>();
}

double FileValue::real() const {
  if (!node_->value.is_number()) refuse("must be a number");
  return node_->value.get<double>();
}

ktpnaips::DateTime FileValue::dateTime() const {
  if (!isText()) refuse("must be a date-time, as \"2026-11-20T06:30:00Z\"");
  try {
    return parseDateTime(node_->value.get_ref<const std::string&>());
  } catch (const UsageError& error) {
    refuse(fmt::format("cannot be used: {}", error.what()));
  }
}

std::vector<FileValue> FileValue::elements() const {
  if (!node_->value.is_array()) refuse("must be a list");
  std::vector<FileValue> values;
  for (const FileNode& each : node_->children) {
    values.push_back({file_, each, elementPath(path_, values.size())});
  }
  return values;
}

std::vector<FileValue> FileValue::members() const {
  if (!node_->value.is_object()) refuse("must be an object");
  std::vector<FileValue> values;
  for (const FileNode& each : node_->children) {
    values.push_back({file_, each, memberPath(path_, each.key)});
  }
  return values;
}

}  // namespace cli
