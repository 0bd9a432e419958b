#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "tests/component/component.h"

using component::Object;

namespace {

/// What a person sees of a message box.
struct Box {
  std::wstring title;
  std::vector<std::wstring> texts;
  std::vector<std::wstring> buttons;
  bool isVisible = false;
  bool isModal = false;  // its thread does nothing else until it is closed
};

std::wstring textOf(HWND window) {
  std::wstring text(1024, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 1024)));
  return text;
}

std::wstring classOf(HWND window) {
  std::wstring name(64, L'\0');
  name.resize(static_cast<std::size_t>(GetClassNameW(window, name.data(), 64)));
  return name;
}

/// The dialogue box that this process shows, or nullptr.
HWND findBox() {
  HWND box = nullptr;
  const auto look = [](HWND window, LPARAM result) -> BOOL {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || classOf(window) != L"#32770") return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
  };
  EnumWindows(look, reinterpret_cast<LPARAM>(&box));
  return box;
}

Box read(HWND window) {
  Box box;
  box.title = textOf(window);
  box.isVisible = IsWindowVisible(window) != 0;
  const auto add = [](HWND child, LPARAM result) -> BOOL {
    Box& into = *reinterpret_cast<Box*>(result);
    if (IsWindowVisible(child) == 0 || textOf(child).empty()) return TRUE;
    (classOf(child) == L"Button" ? into.buttons : into.texts).push_back(textOf(child));
    return TRUE;
  };
  EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&box));
  return box;
}

/// Waits for a box, reads it and presses its button; runs beside the call that shows it.
class Reader {
 public:
  explicit Reader(const std::atomic<bool>& callIsOver)
      : callIsOver_(callIsOver), thread_([this] { run(); }) {}
  Box finish() {
    thread_.join();
    return box_;
  }

 private:
  void run() {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 30s;
    HWND window = nullptr;
    while (window == nullptr && !callIsOver_ && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(50ms);
      window = findBox();
    }
    if (window == nullptr) return;
    std::this_thread::sleep_for(200ms);  // until it is drawn
    box_ = read(window);
    box_.isModal = !callIsOver_;
    const HWND button = GetDlgItem(window, IDOK) == nullptr ? GetDlgItem(window, IDCANCEL)
                                                            : GetDlgItem(window, IDOK);
    SendMessageW(button, BM_CLICK, 0, 0);
  }

  const std::atomic<bool>& callIsOver_;
  Box box_;
  std::thread thread_;  // last: it uses the others
};

class ReportBox : public component::Test {
 protected:
  /// What is shown while the part appends itself to `parent`.
  static Box shownBy(const Object& part, const Object& parent) {
    std::atomic<bool> isOver = false;
    Reader reader(isOver);
    component::call(part, L"appendTo", {_variant_t(parent.Get()), L"urn:x"});
    isOver = true;
    return reader.finish();
  }
};

using Texts = std::vector<std::wstring>;

TEST_F(ReportBox, IsModalWithTheDefaultTitleTheTextAndOneButton) {
  const Object stage = component::create("SPFIBStageSpec");
  const Box box = shownBy(stage, component::newElement());
  EXPECT_TRUE(box.isVisible);
  EXPECT_TRUE(box.isModal);
  EXPECT_EQ(box.title, L"Error");
  EXPECT_EQ(box.texts, Texts{L"Error 91 (Object variable or With block variable not set) in "
                             L"procedure IAppendable_appendTo of Class Module SPFIBStage"});
  EXPECT_EQ(box.buttons, Texts{L"OK"});
  EXPECT_EQ(findBox(), nullptr) << "the button has closed it";
}

TEST_F(ReportBox, NamesAStandardModule) {
  const Object point = component::create("NamedPoint");
  component::put(point, L"Name", L"YSSY");
  const Box box = shownBy(point, nullptr);
  EXPECT_EQ(box.texts, Texts{L"Error 91 (Object variable or With block variable not set) in "
                             L"procedure addElement of Module modBrevank"});
  EXPECT_EQ(box.buttons, Texts{L"OK"});
}

TEST_F(ReportBox, IsNotShownWithoutAFailure) {
  const Object point = component::create("NamedPoint");
  EXPECT_FALSE(shownBy(point, component::newElement()).isVisible);
}

}  // namespace
