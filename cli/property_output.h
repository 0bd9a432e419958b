#pragma once

#include "cli/command.h"
#include "cli/json.h"
#include "cli/session.h"

#include <ktpnaips/core/date_time.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The properties of responses and their items as data, shown as JSON and to a person alike.
namespace cli {

/// How a property is shown.
template <class Object>
struct Shown {
  const char* property;  ///< its key in JSON
  const char* heading;   ///< over its column or before its value; empty: in JSON only
  Json (*value)(const Object& object);
  bool isLong = false;  ///< its column stands after the others
};

Json jsonValue(std::wstring_view text);
Json jsonValue(bool value);
Json jsonValue(ktpnaips::DateTime value);

/// For `Shown::value`: the property or field `Member`, as `valueOf<&Object::Member>`.
template <auto Member, class Object>
Json valueOf(const Object& object) {
  if constexpr (requires { (object.*Member)(); }) {
    return jsonValue((object.*Member)());
  } else {
    return jsonValue(object.*Member);
  }
}

/// What an entry of a collection stands for.
template <class Object>
const Object& objectOf(const std::shared_ptr<Object>& entry) {
  return *entry;
}
template <class Object>
const Object& objectOf(const Object& entry) {
  return entry;
}

template <class Object, std::size_t Size>
Json jsonObject(const Object& object, const Shown<Object> (&properties)[Size]) {
  Json json = Json::object();
  for (const auto& each : properties) json[each.property] = each.value(object);
  return json;
}

/// Sets these properties of an object.
template <class Object, std::size_t Size>
void setFields(JsonObject& json, const Object& object, const Shown<Object> (&properties)[Size]) {
  for (const auto& each : properties) json.set(each.property, each.value(object));
}

/// Sets "Count" and "Items", the entries as objects with these properties.
template <class Collection, class Object, std::size_t Size>
void setObjects(JsonObject& json, const Collection& collection,
                const Shown<Object> (&properties)[Size]) {
  json.setItems(collection,
                [&](const auto& entry) { return jsonObject(objectOf(entry), properties); });
}

/// Writes "label: value" for a value that is not empty.
void printValue(std::string_view label, const Json& value);

template <class Object, std::size_t Size>
void printFields(const Object& object, const Shown<Object> (&properties)[Size]) {
  for (const auto& each : properties) {
    if (*each.heading != '\0') printValue(each.heading, each.value(object));
  }
}

/// Writes rows of values below headings, or that there are none.
void printRows(std::vector<std::string> headings, const std::vector<std::vector<Json>>& rows);

/// The properties that have a column, in the order of the columns.
template <class Object, std::size_t Size>
std::vector<const Shown<Object>*> columnsOf(const Shown<Object> (&properties)[Size]) {
  std::vector<const Shown<Object>*> columns;
  for (const bool isLong : {false, true}) {
    for (const auto& each : properties) {
      if (*each.heading != '\0' && each.isLong == isLong) columns.push_back(&each);
    }
  }
  return columns;
}

/// Writes the entries of a collection as a table.
template <class Collection, class Object, std::size_t Size>
void printTable(const Collection& collection, const Shown<Object> (&properties)[Size]) {
  const auto columns = columnsOf(properties);
  std::vector<std::string> headings;
  headings.reserve(columns.size());
  for (const auto* column : columns) headings.emplace_back(column->heading);
  std::vector<std::vector<Json>> rows;
  for (const auto& entry : collection) {
    auto& row = rows.emplace_back();
    for (const auto* column : columns) row.push_back(column->value(objectOf(entry)));
  }
  printRows(std::move(headings), rows);
}

/// Runs a request whose response is a list of such objects. The properties outlive the command.
template <class Request, class Object, std::size_t Size>
Run listing(std::shared_ptr<Request> request, const Shown<Object> (&properties)[Size]) {
  return [request = std::move(request), &properties](Session& session) {
    session.submit(
        *request, [&](const auto& list, JsonObject& json) { setObjects(json, list, properties); },
        [&](const auto& list) { printTable(list, properties); });
  };
}

}  // namespace cli
