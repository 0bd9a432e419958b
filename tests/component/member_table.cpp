#include "tests/component/member_table.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <regex>
#include <stdexcept>

namespace members {
namespace {

constexpr std::array kinds{"get", "put", "set", "method", "read"};

std::vector<std::string> split(const std::string& text, const std::regex& separator) {
  if (text.empty()) return {};
  return {std::sregex_token_iterator(text.begin(), text.end(), separator, -1), {}};
}

/// "class NAME : INTERFACE..." or "interface NAME : BASE".
Type typeOf(const std::string& line) {
  static const std::regex form(R"((class|interface) (\w+)(?: : (.+))?)");
  std::smatch match;
  if (!std::regex_match(line, match, form)) throw std::runtime_error("no such type: " + line);
  Type type;
  type.isInterface = match[1] == "interface";
  type.name = match[2];
  type.interfaces = split(match[3], std::regex(" "));
  return type;
}

/// "  [~]KIND... TYPE NAME[(PARAMETER...)] [DEFAULT]": one function a kind.
void addFunctions(const std::string& line, Type& type) {
  static const std::regex form(
      R"( +(~?)((?:(?:get|put|set|method|read) +)+)(\w+) +(\w+)(?:\(([^)]*)\))?(?: +(.+))?)");
  std::smatch match;
  if (!std::regex_match(line, match, form)) throw std::runtime_error("no such member: " + line);
  Function function;
  function.anywhere = match[1].length() != 0;
  function.type = match[3];
  function.name = match[4];
  function.parameters = split(match[5], std::regex(", *"));
  const std::string written = match[2];
  for (const char* kind : kinds) {
    if (written.find(kind) == std::string::npos) continue;
    function.kind = kind;
    function.initial = function.kind == "get" ? match[6].str() : std::string();
    type.functions.push_back(function);
  }
}

std::vector<Type> readTable(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error("cannot read " + file);
  std::vector<Type> types;
  for (std::string line; std::getline(stream, line);) {
    if (line.empty() || line.front() == '#') continue;
    if (line.front() != ' ') {
      types.push_back(typeOf(line));
    } else {
      addFunctions(line, types.at(types.size() - 1));
    }
  }
  return types;
}

}  // namespace

std::string describe(const Function& function) {
  std::string text = function.kind + ' ' + function.type + ' ' + function.name;
  if (function.kind == "get" && function.parameters.empty()) return text;
  if (function.kind == "put" || function.kind == "set") return text;
  text += '(';
  for (const std::string& parameter : function.parameters) {
    if (text.back() != '(') text += ", ";
    text += parameter;
  }
  return text + ')';
}

const std::vector<Type>& table() {
  static const std::vector<Type> types = readTable(KTP_COMPONENT_TESTS "/members.txt");
  return types;
}

std::vector<std::string> names(bool interfaces) {
  std::vector<std::string> result;
  for (const Type& type : table())
    if (type.isInterface == interfaces) result.push_back(type.name);
  return result;
}

const Type* find(const std::vector<Type>& types, std::string_view name) {
  const auto found = std::ranges::find(types, name, &Type::name);
  return found == types.end() ? nullptr : &*found;
}

}  // namespace members
