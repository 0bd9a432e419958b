#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/products.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using Names = std::vector<std::string>;

class BriefingAnswer : public testing::Test {
 protected:
  void load(const std::string& children) { test::load(response, test::success(children)); }
  std::int32_t faultOfLoading(const std::string& children) {
    return test::faultOf([&] { load(children); });
  }
  std::string contentOf(const std::string& name) const {
    return test::contentOf(folder.path() / name);
  }

  test::DataFolder folder;
  BriefingResponse response;
};

std::string briefingProduct(const std::string& type, const std::string& base64) {
  return "<n:product type=\"" + type + "\"><n:content>" + base64 + "</n:content></n:product>";
}

TEST_F(BriefingAnswer, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_FALSE(response.Payload());
  EXPECT_FALSE(response.ResponseDoc());
  EXPECT_EQ(response.Content(), L"");
  EXPECT_EQ(response.Product(), L"");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_TRUE(response.Images().empty());
  EXPECT_EQ(response.Item(1), nullptr);
}

TEST_F(BriefingAnswer, HasItsTextWithoutProducts) {
  load("<n:content>line 1\nline 2 &lt;\xC2\xB0&gt;</n:content>");
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Content(), L"line 1\nline 2 <\u00b0>");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(folder.names(), Names{});
}

TEST_F(BriefingAnswer, MayHaveNoText) {
  load("");
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Content(), L"");
}

TEST_F(BriefingAnswer, TakesOnlyTheAnswersOwnContentForItsText) {
  load(briefingProduct("PNG", "QUJD"));
  EXPECT_EQ(response.Content(), L"");
}

TEST_F(BriefingAnswer, WritesAGifUnderTheTypePng) {
  load(briefingProduct("GIF", "QUJD"));
  ASSERT_EQ(response.Count(), 1);
  const auto item = response.Item(1);
  EXPECT_EQ(item->ProductType(), L"PNG");
  EXPECT_EQ(item->File(), folder.file("NAIPS1.PNG"));
  EXPECT_EQ(item->Product(), L"");
  EXPECT_EQ(response.Product(), L"");
  EXPECT_EQ(contentOf("NAIPS1.PNG"), "ABC");
}

TEST_F(BriefingAnswer, KeepsAnyOtherTypeAsItsExtension) {
  load(briefingProduct("JPG", "QUJD") + briefingProduct("gif", "QUI=") +
       briefingProduct("a.b", "QQ=="));
  ASSERT_EQ(response.Count(), 3);
  EXPECT_EQ(response.Item(1)->ProductType(), L"JPG");
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS1.JPG"));
  EXPECT_EQ(response.Item(2)->ProductType(), L"gif");
  EXPECT_EQ(response.Item(2)->File(), folder.file("NAIPS1.gif"));
  EXPECT_EQ(response.Item(3)->File(), folder.file("NAIPS.a1.b"));
  EXPECT_EQ(contentOf("NAIPS1.JPG"), "ABC");
  EXPECT_EQ(contentOf("NAIPS1.gif"), "AB");
  EXPECT_EQ(contentOf("NAIPS.a1.b"), "A");
}

TEST_F(BriefingAnswer, NamesTheFileOfAProductWithoutATypeWithABarePoint) {
  load("<n:product><n:content>QUJD</n:content></n:product>" + briefingProduct("", "QUI="));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->ProductType(), L"");
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS1."));
  EXPECT_EQ(response.Item(2)->ProductType(), L"");
  EXPECT_EQ(response.Item(2)->File(), folder.file("NAIPS2."));
}

TEST_F(BriefingAnswer, ListsAProductWithoutContentAndGoesOn) {
  load("<n:product type=\"GIF\"/>" + briefingProduct("PNG", "QUJD"));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->ProductType(), L"PNG");
  EXPECT_EQ(response.Item(1)->File(), L"");
  EXPECT_EQ(response.Item(2)->File(), folder.file("NAIPS1.PNG"));
}

TEST_F(BriefingAnswer, GivesTwoProductsTwoNumbers) {
  load(briefingProduct("PNG", "QUJD") + briefingProduct("GIF", "REVG"));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS1.PNG"));
  EXPECT_EQ(response.Item(2)->File(), folder.file("NAIPS2.PNG"));
  EXPECT_EQ(contentOf("NAIPS1.PNG"), "ABC");
  EXPECT_EQ(contentOf("NAIPS2.PNG"), "DEF");
}

TEST_F(BriefingAnswer, ReadsItsOwnChildrenInTheSchemaNamespaceOnly) {
  load("<n:more>" + briefingProduct("PNG", "QUJD") + "</n:more><product type=\"PNG\"/>");
  EXPECT_EQ(response.Count(), 0);
}

TEST_F(BriefingAnswer, WritesEveryByteUnchanged) {
  std::string base64;
  std::string bytes;
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (unsigned value = 0; value < 255; value += 3) {
    const unsigned group = value << 16U | (value + 1) << 8U | (value + 2);
    for (const unsigned shift : {18U, 12U, 6U, 0U}) base64 += alphabet[group >> shift & 63U];
    for (const unsigned shift : {16U, 8U, 0U}) bytes += static_cast<char>(group >> shift & 255U);
  }
  load(briefingProduct("BIN", base64 + "/w=="));
  EXPECT_EQ(contentOf("NAIPS1.BIN"), bytes + '\xFF');
}

TEST_F(BriefingAnswer, DecodesContentInLinesOrInPieces) {
  load(briefingProduct("A", "\nQU\r\nJD\n") + briefingProduct("B", "QU<!-- c -->JD") +
       briefingProduct("C", "<![CDATA[QUJD]]>") + briefingProduct("D", "&#81;UJD"));
  ASSERT_EQ(response.Count(), 4);
  for (const char* name : {"NAIPS1.A", "NAIPS1.B", "NAIPS1.C", "NAIPS1.D"}) {
    EXPECT_EQ(contentOf(name), "ABC") << name;
  }
}

TEST_F(BriefingAnswer, OffersItsItemsForIterationInOrder) {
  load(briefingProduct("A", "QUJD") + briefingProduct("B", "QUJD"));
  ASSERT_EQ(response.Images().size(), 2U);
  EXPECT_EQ(response.Images()[0], response.Item(1));
  EXPECT_EQ(response.Images()[1], response.Item(2));
}

TEST_F(BriefingAnswer, GivesNoItemOutsideOneToCount) {
  load(briefingProduct("A", "QUJD"));
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(2), nullptr);
  EXPECT_EQ(response.Item(-1), nullptr);
  EXPECT_EQ(response.Item(std::numeric_limits<std::int16_t>::max()), nullptr);
}

TEST_F(BriefingAnswer, StopsAtBrokenBase64AndKeepsWhatWasWrittenBefore) {
  EXPECT_EQ(faultOfLoading("<n:content>text</n:content>" + briefingProduct("PNG", "QUJD") +
                           briefingProduct("PNG", "QUJ") + briefingProduct("PNG", "REVG")),
            fault::invalidBase64);
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Content(), L"text");
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS1.PNG"));
  EXPECT_EQ(response.Item(2)->ProductType(), L"PNG");
  EXPECT_EQ(response.Item(2)->File(), folder.file("NAIPS2.PNG"));
  EXPECT_EQ(folder.names(), Names{"NAIPS1.PNG"});
  EXPECT_EQ(contentOf("NAIPS1.PNG"), "ABC");
}

TEST_F(BriefingAnswer, StopsAtEmptyBase64AndWritesNoFile) {
  EXPECT_EQ(faultOfLoading(briefingProduct("PNG", "")), fault::subscriptOutOfRange);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(folder.names(), Names{});
}

TEST_F(BriefingAnswer, RefusesATypeThatWouldLeadOutOfTheDataFolder) {
  for (const char* type : {"/../../x", "/x", "x/y", "/../x", "\\..\\..\\x", "\\x", "x:y", ":s"}) {
    EXPECT_EQ(faultOfLoading(briefingProduct(type, "QUJD")), fault::badFileName) << type;
    EXPECT_EQ(response.Count(), 1) << type;
    EXPECT_EQ(response.Item(1)->ProductType(), text::fromUtf8(type)) << type;
    EXPECT_EQ(folder.names(), Names{}) << type;
  }
}

TEST_F(BriefingAnswer, KeepsWhatItReadBeforeARefusedType) {
  EXPECT_EQ(faultOfLoading("<n:content>text</n:content>" + briefingProduct("PNG", "QUJD") +
                           briefingProduct("/../../x", "QUJD")),
            fault::badFileName);
  EXPECT_EQ(response.Content(), L"text");
  EXPECT_EQ(response.Count(), 2);
  EXPECT_EQ(folder.names(), Names{"NAIPS1.PNG"});
}

TEST_F(BriefingAnswer, FaultsWhereAFolderHasTheNameOfItsFile) {
  std::filesystem::create_directories(folder.path() / "NAIPS1.PNG");
  EXPECT_EQ(faultOfLoading(briefingProduct("PNG", "QUJD")), fault::pathFileAccess);
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS1.PNG"));
  EXPECT_EQ(folder.names(), Names{"NAIPS1.PNG"});
}

TEST_F(BriefingAnswer, WritesNewFilesEachTimeItIsLoaded) {
  load("<n:content>first</n:content>" + briefingProduct("PNG", "QUJD") +
       briefingProduct("PNG", "QUI="));
  load(briefingProduct("PNG", "REVG"));
  EXPECT_EQ(response.Content(), L"");
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS3.PNG"));
  EXPECT_EQ(folder.names(), (Names{"NAIPS1.PNG", "NAIPS2.PNG", "NAIPS3.PNG"}));
  EXPECT_EQ(contentOf("NAIPS1.PNG"), "ABC");
}

TEST_F(BriefingAnswer, EmptiesItselfOnAFailedAnswer) {
  load("<n:content>first</n:content>" + briefingProduct("PNG", "QUJD"));
  test::load(response, test::answer("<n:answer status=\"FAILURE\"><n:content>c</n:content>" +
                                    briefingProduct("PNG", "QUJD") + "</n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.Content(), L"");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(folder.names(), Names{"NAIPS1.PNG"});
}

TEST_F(BriefingAnswer, LeavesItsFilesToTheHost) {
  std::thread([&] {
    BriefingResponse own;
    test::load(own, test::success(briefingProduct("PNG", "QUJD")));
    EXPECT_EQ(own.Count(), 1);
  }).join();
  EXPECT_EQ(folder.names(), Names{"NAIPS1.PNG"});
}

TEST_F(BriefingAnswer, NeverSharesAFileWithAnotherThread) {
  constexpr int threads = 4;
  constexpr int answers = 25;
  std::vector<std::vector<std::wstring>> files(threads);
  std::vector<std::thread> running;
  for (int i = 0; i < threads; ++i) {
    running.emplace_back([&own = files[static_cast<std::size_t>(i)], i] {
      const std::string base64 = std::string("QU") + static_cast<char>('A' + i) + "A";
      for (int n = 0; n < answers; ++n) {
        BriefingResponse each;
        test::load(each, test::success(briefingProduct("PNG", base64)));
        own.push_back(each.Item(1)->File());
      }
    });
  }
  for (auto& thread : running) thread.join();
  std::set<std::wstring> distinct;
  for (int i = 0; i < threads; ++i) {
    const std::string expected{'A', static_cast<char>('@' + i / 4), static_cast<char>(i % 4 * 64)};
    for (const auto& file : files[static_cast<std::size_t>(i)]) {
      distinct.insert(file);
      EXPECT_EQ(test::contentOf(std::filesystem::path(file)), expected);
    }
  }
  EXPECT_EQ(distinct.size(), static_cast<std::size_t>(threads * answers));
  EXPECT_EQ(folder.names().size(), distinct.size());
}

TEST_F(BriefingAnswer, ListsMoreItemsThanItCanCount) {
  std::string products;
  for (int i = 0; i < 32768; ++i) products += "<n:product/>";
  load(products);
  EXPECT_EQ(test::faultOf([&] { (void)response.Count(); }), fault::overflow);
  EXPECT_EQ(response.Images().size(), 32768U);
}

TEST(BriefingItem, IsEmptyAtFirstAndHoldsWhatIsSet) {
  BriefItem item;
  EXPECT_EQ(item.Product(), L"");
  EXPECT_EQ(item.File(), L"");
  EXPECT_EQ(item.ProductType(), L"");
  item.Product(L" p ");
  item.File(L"f");
  item.ProductType(L"png");
  EXPECT_EQ(item.Product(), L" p ");
  EXPECT_EQ(item.File(), L"f");
  EXPECT_EQ(item.ProductType(), L"png");
}

TEST(ChartProduct, IsEmptyAtFirstAndHoldsWhatIsSet) {
  Product product;
  EXPECT_EQ(product.ProductType(), L"");
  EXPECT_EQ(product.Resolution(), L"");
  EXPECT_EQ(product.FilePath(), L"");
  product.ProductType(L"GIF");
  product.Resolution(L" hi ");
  product.FilePath(L"f");
  EXPECT_EQ(product.ProductType(), L"GIF");
  EXPECT_EQ(product.Resolution(), L" hi ");
  EXPECT_EQ(product.FilePath(), L"f");
}

}  // namespace
}  // namespace ktpnaips
