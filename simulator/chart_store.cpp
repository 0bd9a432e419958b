#include "simulator/chart_store.h"

#include <openssl/evp.h>

#include <cstddef>

namespace sim {
namespace {

constexpr std::size_t keptCharts = 64;

std::string key(const ChartRequest& request, Format format) {
  return request.kind + '\n' + (request.high ? "high" : "low") + '\n' +
         (format == Format::png ? "png" : "pdf") + '\n' +
         std::to_string(request.valid.time_since_epoch().count()) + '\n' + request.title;
}

}  // namespace

const std::string& ChartStore::base64(const ChartRequest& request, Format format) {
  const std::string name = key(request, format);
  if (const auto found = drawn_.find(name); found != drawn_.end()) {
    return found->second;
  }
  if (drawn_.size() >= keptCharts) {
    drawn_.clear();
  }
  return drawn_.emplace(name, base64Lines(drawChart(request, format))).first->second;
}

std::string base64Lines(std::string_view bytes) {
  constexpr std::size_t lineBytes = 57;  // 76 characters
  std::string result;
  result.reserve((bytes.size() / lineBytes + 1) * 78);
  while (!bytes.empty()) {
    const std::string_view line = bytes.substr(0, lineBytes);
    unsigned char text[77];
    EVP_EncodeBlock(text, reinterpret_cast<const unsigned char*>(line.data()),
                    static_cast<int>(line.size()));
    result.append(reinterpret_cast<const char*>(text)).append("\r\n");
    bytes.remove_prefix(line.size());
  }
  return result;
}

}  // namespace sim
