#include "tests/system/nginx.h"
#include "tests/system/simulator.h"

#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address_v4.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <boost/system/error_code.hpp>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace nginx {
namespace {

namespace asio = boost::asio;

/// How the hosts of requests start that stand in the log to say how far it is written.
constexpr std::string_view markPrefix = "mark-";

std::string inFolder(const std::string& file) {
  return simulator::environment("NAIPS_NGINX_FOLDER") + "/" + file;
}

std::uint16_t plainPort() {
  const std::string address = simulator::environment("NAIPS_NGINX");
  return static_cast<std::uint16_t>(std::stoul(address.substr(address.rfind(':') + 1)));
}

/// What the log holds before the request to this host; nothing while that is not there.
std::optional<std::vector<LogEntry>> logUpTo(const std::string& mark) {
  std::vector<LogEntry> entries;
  std::ifstream file(inFolder("access.log"));
  for (std::string line; std::getline(file, line);) {
    LogEntry entry;
    std::istringstream(line) >> entry.host >> entry.status >> entry.protocol >> entry.connection >>
        entry.numberInConnection >> entry.transferEncoding;
    if (entry.host == mark) return entries;
    if (!entry.host.starts_with(markPrefix)) entries.push_back(entry);
  }
  return std::nullopt;
}

void turn(const char* state) {
  const std::string command = inFolder("nginx-switch ") + state;
  EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace

std::wstring address(bool overHttp) {
  return ktpnaips::text::fromUtf8(
      simulator::environment(overHttp ? "NAIPS_NGINX" : "NAIPS_NGINX_TLS"));
}

std::wstring authorityFile() {
  return ktpnaips::text::fromUtf8(inFolder("ca.pem"));
}

std::vector<LogEntry> log() {
  static int marks = 0;
  const std::string mark = std::string(markPrefix) + std::to_string(++marks) + ".nginx.example";
  answerTo("GET / HTTP/1.1\r\nHost: " + mark + "\r\nConnection: close\r\n\r\n");
  for (int attempt = 0; attempt < 500; ++attempt) {
    if (auto entries = logUpTo(mark)) return *std::move(entries);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  throw std::runtime_error("nginx does not write its log");
}

std::string answerTo(std::string_view request) {
  asio::io_context io;
  asio::ip::tcp::socket socket(io);
  socket.connect({asio::ip::address_v4::loopback(), plainPort()});
  asio::write(socket, asio::buffer(request));
  std::string answer;
  boost::system::error_code ended;
  asio::read(socket, asio::dynamic_buffer(answer), ended);
  return answer;
}

Outage::Outage() {
  turn("off");
}

Outage::~Outage() {
  turn("on");
}

}  // namespace nginx
