#pragma once

#include <cstddef>
#include <string>

namespace cli {

/// How far a command of several requests has come, on standard error: a bar that is rewritten on a
/// terminal, a line a request elsewhere.
class Progress {
 public:
  Progress(std::size_t total, bool isShown);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// So many more requests than known before will be sent.
  void expect(std::size_t more) { total_ += more; }
  /// The next request is sent.
  void next(const std::string& what);
  /// Clears the line, for other output.
  void clear();

 private:
  std::size_t total_;
  bool isShown_;
  bool isRewritten_;
  std::size_t count_ = 0;
  std::size_t width_ = 0;  // of the line that can be seen
};

}  // namespace cli
