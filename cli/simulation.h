#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace cli {

/// The built-in simulated service, for the length of a command.
class Simulation {
 public:
  /// Starts it with this account. Throws `UsageError` where it is not built in.
  Simulation(const std::string& user, const std::string& password,
             const std::string& schemaNamespace);
  ~Simulation();
  Simulation(const Simulation&) = delete;
  Simulation& operator=(const Simulation&) = delete;

  /// "address:port" where it listens.
  [[nodiscard]] std::string address() const;
  /// The file of its certificate authority.
  [[nodiscard]] std::string caFile() const;

  /// The account that it has by default.
  static std::string documentedUser();
  static std::string documentedPassword();

 private:
  struct Running;
  std::unique_ptr<Running> running_;
};

}  // namespace cli
