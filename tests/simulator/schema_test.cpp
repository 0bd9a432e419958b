#include <gmock/gmock.h>

#include <string>
#include <utility>

#include "tests/simulator/documents.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class RequestSchema : public ServiceTest, public ::testing::WithParamInterface<Document> {
 protected:
  std::string send(const std::vector<Child>& sequence) {
    return answer(GetParam().path, GetParam().body(sequence));
  }
};

TEST_P(RequestSchema, LetsAWholeRequestPass) {
  EXPECT_THAT(send(GetParam().children), HasSubstr("status=\"SUCCESS\""));
}

TEST_P(RequestSchema, LetsOptionalElementsBeLeftOut) {
  std::vector<Child> needed = GetParam().children;
  std::erase_if(needed, [](const Child& child) { return child.optional; });
  EXPECT_THAT(send(needed), Not(HasSubstr("soap:Fault")));
}

TEST_P(RequestSchema, FaultsOnEverySwappedPairOfElements) {
  for (std::size_t i = 0; i + 1 < GetParam().children.size(); ++i) {
    std::vector<Child> swapped = GetParam().children;
    std::swap(swapped[i], swapped[i + 1]);
    const std::string culprit = swapped[i + 1].optional ? swapped[i + 1].name() : swapped[i].name();
    EXPECT_THAT(send(swapped),
                HasSubstr("Element '" + culprit + "': This element is not expected"));
  }
}

TEST_P(RequestSchema, FaultsOnEveryMissingElementAndNamesIt) {
  for (const Child& child : GetParam().children) {
    if (child.optional) {
      continue;
    }
    const std::string text = send(without(GetParam().children, child.name()));
    const std::size_t expected = text.find("Expected is");
    ASSERT_NE(expected, std::string::npos) << child.name() << ": " << text;
    EXPECT_THAT(text.substr(expected), HasSubstr(" " + child.name()));
  }
}

TEST_P(RequestSchema, FaultsOnAnUnknownElement) {
  std::vector<Child> more = GetParam().children;
  more.push_back({element("colour-of-the-sky")});
  EXPECT_THAT(send(more), HasSubstr("soap:Fault"));
}

INSTANTIATE_TEST_SUITE_P(Of, RequestSchema, ::testing::ValuesIn(documents()),
                         [](const auto& document) { return document.param.label; });

}  // namespace
}  // namespace simtest
