#pragma once

#include "cli/request_file.h"

#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/geo/points.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// From the objects of request files to those of the library: each class has a table of its keys.
namespace cli {

/// A key of an object, and what its value does.
template <class Object>
struct Key {
  std::string_view name;
  void (*set)(Object& object, const FileValue& value);
};

/// The keys of a class: specialised with a table `all` of `Key<Object>`.
template <class Object>
struct Keys;

void read(const FileValue& from, std::wstring& into);
void read(const FileValue& from, bool& into);
void read(const FileValue& from, std::int16_t& into);
void read(const FileValue& from, double& into);
void read(const FileValue& from, ktpnaips::DateTime& into);
/// A point in one of its four forms.
void read(const FileValue& from, std::shared_ptr<ktpnaips::Point>& into);
/// An object; null is none.
template <class Object>
void read(const FileValue& from, std::shared_ptr<Object>& into);

/// Calls `setFlag` for each member of an object of flags: {"0": true, "6": false}.
void setFlags(ktpnaips::FlagWord& word, const FileValue& flags);

/// Refuses a key that the object does not have.
[[noreturn]] void refuseKey(const FileValue& value, const std::vector<std::string_view>& known);

template <class T>
T valueOf(const FileValue& from) {
  T value{};
  read(from, value);
  return value;
}

/// Sets what the members of an object name, in their order.
template <class Object>
void setMembers(Object& object, const FileValue& from) {
  for (const FileValue& member : from.members()) {
    const Key<Object>* found = nullptr;
    std::vector<std::string_view> known;
    for (const Key<Object>& key : Keys<Object>::all) {
      known.push_back(key.name);
      if (key.name == member.key()) found = &key;
    }
    if (found == nullptr) refuseKey(member, known);
    found->set(object, member);
  }
}

template <class Object>
void read(const FileValue& from, std::shared_ptr<Object>& into) {
  into = nullptr;
  if (from.isNull()) return;
  into = std::make_shared<Object>();
  setMembers(*into, from);
}

template <class T, class Rule>
void assign(ktpnaips::Property<T, Rule>& property, const FileValue& value) {
  property(valueOf<T>(value));
}

/// For `Key::set`: the property `Member`, as `set<&Object::Member>`.
template <auto Member, class Object>
void set(Object& object, const FileValue& value) {
  assign(object.*Member, value);
}

/// For `Key::set`: the flags.
template <class Object>
void flags(Object& object, const FileValue& value) {
  setFlags(object, value);
}

template <class Owner, class Argument>
std::remove_cvref_t<Argument> argumentOf(void (Owner::*)(Argument));
template <class Owner, class Argument>
Owner* ownerOf(void (Owner::*)(Argument));

/// For `Key::set`: each element of a list is given to the member function `Adder`.
template <auto Adder, class Object>
void addEach(Object& object, const FileValue& list) {
  using Argument = decltype(argumentOf(Adder));
  using Element =
      std::conditional_t<std::is_same_v<Argument, std::wstring_view>, std::wstring, Argument>;
  std::remove_pointer_t<decltype(ownerOf(Adder))>& owner = object;
  for (const FileValue& element : list.elements()) (owner.*Adder)(valueOf<Element>(element));
}

/// The object that a whole file describes.
template <class Object>
std::shared_ptr<Object> readObject(const std::string& file) {
  return valueOf<std::shared_ptr<Object>>(RequestFile(file).content());
}

}  // namespace cli
