#include <ktpnaips/core/masking.h>

#include <gtest/gtest.h>

#include <string>

namespace ktpnaips {
namespace {

TEST(Masking, HidesThePasswordAttributeInEitherKindOfQuotes) {
  EXPECT_EQ(withMaskedPasswords(R"(<n:a requestor="P" password="a&quot;b'c" scope="x"/>)"),
            R"(<n:a requestor="P" password="********" scope="x"/>)");
  EXPECT_EQ(withMaskedPasswords(R"(<a password = 'a"b'/><b)"
                                "\n\tpassword=\"\"/>"),
            R"(<a password = '********'/><b)"
            "\n\tpassword=\"********\"/>");
}

TEST(Masking, HidesTheNewPasswordUnderAnyPrefixAndWithAttributes) {
  EXPECT_EQ(withMaskedPasswords("<ndd:new-password>a&lt;b password=\"c\"</ndd:new-password><e/>"),
            "<ndd:new-password>********</ndd:new-password><e/>");
  EXPECT_EQ(withMaskedPasswords("<new-password>a\r\nb</new-password>"),
            "<new-password>********</new-password>");
  EXPECT_EQ(withMaskedPasswords("<x:new-password xmlns:x=\"http://a/b\">ab</x:new-password>"),
            "<x:new-password xmlns:x=\"http://a/b\">********</x:new-password>");
}

TEST(Masking, HidesAValueThatDoesNotEnd) {
  EXPECT_EQ(withMaskedPasswords("<a password=\"abc"), "<a password=\"********");
  EXPECT_EQ(withMaskedPasswords("<a password='abc"), "<a password='********");
  EXPECT_EQ(withMaskedPasswords("<n:new-password>abc"), "<n:new-password>********");
}

TEST(Masking, HidesEveryPassword) {
  EXPECT_EQ(withMaskedPasswords("<a password=\"1\"/><new-password>2</new-password> password='3'"),
            "<a password=\"********\"/><new-password>********</new-password> password='********'");
}

TEST(Masking, LeavesEverythingElse) {
  for (const char* text :
       {"", "password", "<a mypassword=\"x\"/>", "<a n:password=\"x\"/>", "<new-password/>",
        "<new-password />text", "<a:new-password b=\"/\"/>text", "</n:new-password>text",
        "<old-password>x</old-password>", "a password is needed: \"x\""}) {
    EXPECT_EQ(withMaskedPasswords(text), text);
  }
}

}  // namespace
}  // namespace ktpnaips
