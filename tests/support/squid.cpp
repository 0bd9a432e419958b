#include "tests/support/squid.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/support/raw_server.h"

namespace ktpnaips::test {

namespace {

std::filesystem::path newFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "ktp-squid-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for squid");
  std::filesystem::permissions(name, std::filesystem::perms::all);  // squid may drop its rights
  return name;
}

bool listens(std::uint16_t port) {
  const int made = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const bool connected =
      ::connect(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  ::close(made);
  return connected;
}

}  // namespace

Squid::Squid() : folder_(newFolder()), port_(unusedPort()) {
  writeConfiguration();
  start();
  waitUntilItListens();
}

Squid::~Squid() {
  ::kill(process_, SIGTERM);
  ::waitpid(process_, nullptr, 0);
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void Squid::writeConfiguration() const {
  const std::string folder = folder_.string();
  // "secret 1", as `openssl passwd -apr1` writes it
  std::ofstream(folder + "/accounts") << "pilot:$apr1$ktpnaips$2/DY1QOJnEGxeif5Turq8.\n";
  std::ofstream(folder + "/squid.conf")
      << "http_port 127.0.0.1:" << port_ << '\n'
      << "auth_param basic program /usr/lib/squid/basic_ncsa_auth " << folder << "/accounts\n"
      << "auth_param basic children 1 startup=1\n"
      << "auth_param basic realm flight planning\n"
      << "acl known proxy_auth REQUIRED\n"
      << "http_access allow known\n"
      << "http_access deny all\n"
      << "cache deny all\n"
      << "access_log none\n"
      << "cache_log " << folder << "/cache.log\n"
      << "pid_filename none\n"
      << "pinger_enable off\n"
      << "coredump_dir " << folder << '\n'
      << "shutdown_lifetime 0 seconds\n";
}

void Squid::start() {
  std::string program = "squid";
  std::string foreground = "-N";
  std::string option = "-f";
  std::string file = (folder_ / "squid.conf").string();
  std::string name = "-nktp" + std::to_string(port_);
  const std::array<char*, 6> arguments{program.data(), foreground.data(), name.data(),
                                       option.data(),  file.data(),       nullptr};
  for (const char* const path : {"/usr/sbin/squid", "/usr/local/sbin/squid", "/usr/bin/squid"})
    if (::posix_spawn(&process_, path, nullptr, nullptr, arguments.data(), environ) == 0) return;
  throw std::runtime_error("squid is not installed: install the package 'squid'");
}

void Squid::waitUntilItListens() const {
  for (int i = 0; i < 200; ++i) {
    if (listens(port_)) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  throw std::runtime_error("squid does not start: see " + (folder_ / "cache.log").string());
}

}  // namespace ktpnaips::test
