#include <ktpnaips/core/conversions.h>
#include <ktpnaips/notification/designator_list.h>

namespace ktpnaips {

std::wstring designatorList(const Procedure& procedure, const Pattern& designator,
                            std::wstring_view text) {
  return trapped<std::wstring>(procedure, [&](std::wstring& list) {
    list = designator.joinedMatches(Utils::cleanString(text));
  });
}

}  // namespace ktpnaips
