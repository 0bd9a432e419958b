#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

#include "fuzzing.h"

namespace fuzz {

/// Takes what is written to standard output and standard error while it lives.
class StandardStreams {
 public:
  StandardStreams() {
    std::fflush(stdout);
    for (std::size_t i = 0; i < streams.size(); ++i) {
      kept_[i] = ::dup(streams[i]);
      taken_[i] = ::memfd_create("stream", 0);
      require(::dup2(taken_[i], streams[i]) == streams[i], "a stream can be taken");
    }
  }
  ~StandardStreams() {
    std::fflush(stdout);
    for (std::size_t i = 0; i < streams.size(); ++i) {
      ::dup2(kept_[i], streams[i]);
      ::close(kept_[i]);
      ::close(taken_[i]);
    }
  }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;

  [[nodiscard]] std::string output() const {
    std::fflush(stdout);
    return contentOf(taken_[0]);
  }
  [[nodiscard]] std::string error() const { return contentOf(taken_[1]); }

 private:
  static constexpr std::array streams{STDOUT_FILENO, STDERR_FILENO};

  static std::string contentOf(int file) {
    std::string content(static_cast<std::size_t>(::lseek(file, 0, SEEK_END)), '\0');
    require(
        ::pread(file, content.data(), content.size(), 0) == static_cast<ssize_t>(content.size()),
        "what was written can be read");
    return content;
  }

  std::array<int, 2> kept_{};
  std::array<int, 2> taken_{};
};

}  // namespace fuzz
