#include <ktpnaips/platform/lasting.h>

#include <gtest/gtest.h>

#include <string>

namespace ktpnaips {
namespace {

/// Says when it is destroyed.
class Watched {
 public:
  Watched(bool& isThere, std::string text) : isThere_(isThere), text_(std::move(text)) {
    isThere_ = true;
  }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;
  ~Watched() { isThere_ = false; }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  bool& isThere_;
  std::string text_;
};

TEST(ALastingObject, IsThereUntilTheLibraryIsUnloaded) {
  bool isThere = false;
  {
    const platform::Lasting<Watched> object(isThere, "t");
    EXPECT_TRUE(isThere);
    EXPECT_EQ(object->text(), "t");
    EXPECT_EQ((*object).text(), "t");
  }
  EXPECT_FALSE(platform::isUnloading());
  EXPECT_TRUE(isThere);
}

}  // namespace
}  // namespace ktpnaips
