#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What members.txt says, and the same of a type library.
namespace members {

/// A function of an interface. Of a property each of its functions stands by itself.
struct Function {
  std::string kind;  ///< get, put, set, method, or read for either get or method
  std::string type;  ///< of the property or the result
  std::string name;
  std::vector<std::string> parameters;  ///< their types, besides a property's value
  std::string initial;                  ///< as the table writes it; empty when it names none
  bool anywhere = false;                ///< its place among the others is not fixed
};

/// A class or an interface.
struct Type {
  bool isInterface = false;
  std::string name;
  std::vector<std::string> interfaces;  ///< besides its own
  std::vector<Function> functions;
};

/// As a line of the table, without the default.
std::string describe(const Function& function);

/// What members.txt says, read once. Throws std::runtime_error at a line that it does not
/// understand.
const std::vector<Type>& table();

/// The names of the interfaces, or of the classes, of the table.
std::vector<std::string> names(bool interfaces);

/// The entry of that name, or nullptr.
const Type* find(const std::vector<Type>& types, std::string_view name);

}  // namespace members
