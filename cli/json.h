#pragma once

#include <ktpnaips/core/date_time.h>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>

namespace cli {

/// Keys stay in the order in which they are set.
using Json = nlohmann::ordered_json;

/// A text as JSON.
Json jsonText(std::wstring_view text);

/// A value as it stands in JSON.
struct WrittenJson {
  std::string text;
};

/// An object that is written as it is made: nothing is kept of what has been set. Secrets in its
/// texts are masked; what a terminal would act on is escaped.
class JsonObject {
 public:
  using Write = std::function<void(std::string_view piece)>;

  explicit JsonObject(Write write);

  void set(std::string_view key, const Json& value);
  /// Sets what another object has.
  void setAll(const Json& object);
  /// Sets "Count" and "Items", each entry made by `item`.
  template <class Collection, class Item>
  void setItems(const Collection& collection, Item item) {
    set("Count", static_cast<std::size_t>(std::distance(collection.begin(), collection.end())));
    writeKey("Items");
    write_("[");
    bool isFirst = true;
    for (const auto& entry : collection) {
      if (!isFirst) write_(",");
      isFirst = false;
      write(item(entry));
    }
    write_("]");
  }
  void end();

 private:
  void writeKey(std::string_view key);
  void write(Json value);
  void write(const WrittenJson& value) { write_(value.text); }

  Write write_;
  bool isEmpty_ = true;
};

/// Sets what an object has.
using JsonMembers = std::function<void(JsonObject& json)>;

/// Writes an object in one line to standard output.
void printJson(const JsonMembers& members);

/// The text of an object.
WrittenJson writtenJson(const JsonMembers& members);

/// "YYYY-MM-DDThh:mm:ssZ".
std::string dateTimeText(ktpnaips::DateTime value);

}  // namespace cli
