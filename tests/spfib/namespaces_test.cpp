#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/spfib/general_met.h>
#include <ktpnaips/spfib/location_directory.h>
#include <ktpnaips/spfib/route_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

/// Requests that are appended in another namespace than that of the schema.
class NamespaceOfARequest : public testing::Test {
 protected:
  using Elements = std::vector<std::wstring>;

  static xml::Node appended(const IAppendable& request) {
    const xml::Document document = xml::Document::create();
    const xml::Node parent = modBrevank::addElement(document, L"parent", given);
    request.appendTo(parent, given);
    return parent.firstChild();
  }

  /// The element's children by name, with a star behind those of the schema's namespace.
  static Elements childrenOf(const xml::Node& element) {
    Elements children;
    for (xml::Node child = element.firstChild(); child; child = child.nextSibling()) {
      const bool isGiven = child.namespaceUri() == given;
      EXPECT_TRUE(isGiven || child.namespaceUri() == Deployment::current().schemaNamespace);
      children.push_back(child.name() + (isGiven ? L"" : L"*"));
    }
    return children;
  }

 private:
  static constexpr std::wstring_view given = L"urn:given";

  test::FreshSettings settings_;
};

TEST_F(NamespaceOfARequest, IsTheSchemasForDurationAndFlightOfABulletin) {
  SPFIBRqs request;
  request.briefingReq().Duration(12);
  request.Duration(6);
  request.GroupId(L"club");
  request.SPFIBSpec(std::make_shared<SPFIBSpec>());
  request.SPFIBSpec()->addStage(std::make_shared<SPFIBStageSpec>());
  request.SPFIBSpec()->Item(1)->Departing(L"yssy");
  request.SPFIBSpec()->Item(1)->Destination(L"ymml");
  request.SPFIBSpec()->Item(1)->Route(std::make_shared<SPFIBRoute>());
  const xml::Node element = appended(request);
  EXPECT_EQ(childrenOf(element),
            (Elements{L"ndd:duration", L"ndd:duration*", L"ndd:group-id", L"ndd:spfib*"}));
  const xml::Node flight = element.lastChild();
  EXPECT_EQ(childrenOf(flight),
            (Elements{L"ndd:domestic*", L"ndd:acid*", L"ndd:stage*", L"ndd:tas*", L"ndd:exp-wind*",
                      L"ndd:intl-series-notam*", L"ndd:full-text-notam*", L"ndd:charts*",
                      L"ndd:mid-sigwx-gpwt*", L"ndd:variant*"}));
  const xml::Node stage = flight.firstChild().nextSibling().nextSibling();
  EXPECT_EQ(childrenOf(stage), (Elements{L"ndd:adep*", L"ndd:etd*", L"ndd:ades*",
                                         L"ndd:weight-category*", L"ndd:level*"}));
}

TEST_F(NamespaceOfARequest, IsTheSchemasForWhatAnUpdateAdds) {
  UpdateSPFIBRqs request;
  request.briefingReq().Duration(12);
  request.Duration(6);
  EXPECT_EQ(childrenOf(appended(request)),
            (Elements{L"ndd:duration", L"ndd:duration*", L"ndd:number*", L"ndd:stage*"}));
}

TEST_F(NamespaceOfARequest, IsTheSchemasForTheAerodromesOfARouteDirectory) {
  EXPECT_EQ(childrenOf(appended(RouteDirectoryRqs())), (Elements{L"ndd:adep*", L"ndd:ades*"}));
}

TEST_F(NamespaceOfARequest, IsTheGivenOneForAllOthers) {
  EXPECT_EQ(childrenOf(appended(GetSPFIBRqs())), Elements{L"ndd:number"});
  ActiveSPFIBDirectoryRqs directory;
  directory.GroupId(L"club");
  EXPECT_EQ(childrenOf(appended(directory)), Elements{L"ndd:group-id"});
  EXPECT_EQ(childrenOf(appended(WindTempProfileRqs())), Elements{L"ndd:tas"});
  const xml::Node route = appended(GetRouteRqs());
  EXPECT_EQ(childrenOf(route), Elements{L"ndd:route"});
  EXPECT_EQ(childrenOf(route.firstChild()), (Elements{L"ndd:adep", L"ndd:ades", L"ndd:code"}));
  EXPECT_EQ(childrenOf(appended(LocAirspaceDirectoryRqs())), Elements{L"ndd:loc"});
  EXPECT_EQ(childrenOf(appended(GetGeneralMETMessageRqs())), (Elements{L"ndd:name", L"ndd:type"}));
}

}  // namespace
}  // namespace ktpnaips
