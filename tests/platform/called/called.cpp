// The program that tests call. Writes its arguments but the first into the file that the first
// names, each with a line end; called with "status N" it ends with that status, with "read" when
// its input has ended, with "wait" after a minute, with "has NAME" with 0 when it has this
// variable.
#include <ktpnaips/platform/terminal.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

int main(int argc, char** argv) {
  const std::vector<std::string> arguments = ktpnaips::terminal::arguments(argc, argv);
  std::cout << "What a called program writes.\n";
  if (arguments.front() == "status") return std::stoi(arguments.at(1));
  if (arguments.front() == "read")
    return std::cin.get() == std::istream::traits_type::eof() ? 0 : 1;
  if (arguments.front() == "has") {
    return ktpnaips::terminal::environment(arguments.at(1).c_str()) ? 0 : 1;
  }
  if (arguments.front() == "wait") {
    std::this_thread::sleep_for(std::chrono::minutes(1));
    return 0;
  }
  const std::u8string name(arguments.front().begin(), arguments.front().end());
  std::ofstream file(std::filesystem::path(name), std::ios::binary);
  for (std::size_t i = 1; i < arguments.size(); ++i) file << arguments[i] << '\n';
}
