#include "cli/pack/pdf.h"

#include "cli/paths.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/interruption.h>
#include <ktpnaips/platform/program.h>
#include <ktpnaips/platform/program_files.h>

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <fstream>
#include <ios>
#include <stdexcept>
#include <system_error>

namespace cli::pack {

namespace fs = std::filesystem;
namespace program = ktpnaips::program;

namespace {

constexpr std::array browserNames{
    "chromium", "chromium-browser", "google-chrome", "google-chrome-stable", "chrome", "msedge"};

/// A folder of its own for the browser's profile and files, gone with the object.
class WorkFolder {
 public:
  explicit WorkFolder(const fs::path& beside) : path_(beside) {
    path_ += ".browser";
    if (!ktpnaips::files::makePrivateFolder(path_)) {
      throw std::runtime_error(fmt::format("cannot make the folder {}", pathText(path_)));
    }
  }
  ~WorkFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  [[nodiscard]] const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

void writeFile(const fs::path& file, std::string_view content) {
  std::ofstream stream(file, std::ios::binary);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw std::runtime_error(fmt::format("cannot write {}", pathText(file)));
}

}  // namespace

fs::path findBrowser(const std::string& wanted) {
  if (!wanted.empty()) {
    std::error_code ignored;
    if (fs::is_regular_file(pathOf(wanted), ignored)) return pathOf(wanted);
    fs::path found = program::find(wanted);
    if (!found.empty()) return found;
    throw UsageError(fmt::format("--browser \"{}\" is not a program", wanted));
  }
  for (const char* name : browserNames) {
    fs::path found = program::find(name);
    if (!found.empty()) return found;
  }
  throw UsageError(
      "a PDF file needs Chromium, which is not installed (on Debian: apt install chromium); name "
      "one elsewhere with --browser, or print the HTML file from any browser");
}

void printToPdf(const fs::path& browser, std::string_view document, const fs::path& file) {
  const ktpnaips::interruption::Postponement postponed;  // until the folder is gone
  const WorkFolder folder(file);
  const fs::path page = folder.path() / "pack.html";
  const fs::path pdf = folder.path() / "pack.pdf";
  writeFile(page, document);
  const bool isPrinted =
      program::run(browser,
                   {"--headless", "--disable-gpu", "--no-first-run", "--no-pdf-header-footer",
                    "--user-data-dir=" + pathText(folder.path() / "profile"),
                    "--print-to-pdf=" + pathText(fs::absolute(pdf)), pathText(fs::absolute(page))},
                   "NAIPS_PASSWORD", std::chrono::minutes(2));
  std::error_code error;
  if (!isPrinted || fs::file_size(pdf, error) == 0 || error) {
    throw std::runtime_error(
        fmt::format("{} could not print the pack. As the system's administrator it does not run "
                    "without \"--no-sandbox\": ask as another user, or make the HTML file.",
                    pathText(browser)));
  }
  fs::rename(pdf, file);
}

}  // namespace cli::pack
