#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/light.h>
#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/briefing/raim.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/password.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/notification/notification_directory.h>
#include <ktpnaips/spfib/general_met.h>
#include <ktpnaips/spfib/location_directory.h>
#include <ktpnaips/spfib/route_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/spfib_requests.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/failure_recorder.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

/// Where operations are posted, by a server that answers each with an empty success.
class PostedOperation : public testing::Test {
 protected:
  PostedOperation() {
    NAIPSConfig().Mode(1);
    NAIPSConfig().UseProxy(true);
  }

  /// The path to which the request is posted.
  template <class Request>
  std::string pathOf(const Request& request) {
    std::string line;
    const test::RawServer server([&](test::Peer& peer) {
      const std::string sent = peer.readRequest();
      line = sent.substr(0, sent.find("\r\n"));
      const std::string body = test::success("");
      peer.write("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " +
                 std::to_string(body.size()) + "\r\n\r\n" + body);
    });
    Deployment deployment;
    deployment.proxyHost = L"relay.test";
    deployment.connectTo = server.address();
    const test::ScopedDeployment scope(deployment);
    const test::FailureRecorder ignored;
    const auto response = request.submit();
    EXPECT_NE(response, nullptr);
    EXPECT_FALSE(response->Error());
    return line;
  }

 private:
  test::FreshSettings settings_;
};

TEST_F(PostedOperation, GoesToTheReferenceServiceForRoutesAndLocations) {
  const std::string line = "POST /naips/reference-service HTTP/1.1";
  EXPECT_EQ(pathOf(RouteDirectoryRqs()), line);
  EXPECT_EQ(pathOf(GetRouteRqs()), line);
  EXPECT_EQ(pathOf(LocAirspaceDirectoryRqs()), line);
}

TEST_F(PostedOperation, GoesToTheAccountServiceForPasswordAndGroups) {
  const std::string line = "POST /naips/account-service HTTP/1.1";
  EXPECT_EQ(pathOf(ChangePasswordRqs()), line);
  EXPECT_EQ(pathOf(GetGroupAffiliationRqs()), line);
}

TEST_F(PostedOperation, GoesToTheBriefingServiceForBriefings) {
  const std::string line = "POST /naips/briefing-service HTTP/1.1";
  EXPECT_EQ(pathOf(FirstLastLightRqs()), line);
  EXPECT_EQ(pathOf(RAIMRqs()), line);
  EXPECT_EQ(pathOf(ViewNOTAMListForSPFIBRqs()), line);
  EXPECT_EQ(pathOf(RetrieveFullTextNotamRqs()), line);
  EXPECT_EQ(pathOf(SPFIBRqs()), line);
  EXPECT_EQ(pathOf(GetSPFIBRqs()), line);
  EXPECT_EQ(pathOf(UpdateSPFIBRqs()), line);
  EXPECT_EQ(pathOf(ActiveSPFIBDirectoryRqs()), line);
  EXPECT_EQ(pathOf(WindTempProfileRqs()), line);
  EXPECT_EQ(pathOf(GetGeneralMETMessageRqs()), line);
  EXPECT_EQ(pathOf(GeneralMETMessageDirRqs()), line);
}

TEST_F(PostedOperation, GoesToTheNotificationServiceForFlightNotifications) {
  const std::string line = "POST /naips/flight-notification-service HTTP/1.1";
  EXPECT_EQ(pathOf(SubmitICAOFlightNotifRqs()), line);
  EXPECT_EQ(pathOf(SubmitSARTimeNotifRqs()), line);
  EXPECT_EQ(pathOf(ActiveFlightNotifDirRqs()), line);
}

TEST_F(PostedOperation, GoesToTheMetServiceForCharts) {
  const std::string line = "POST /naips/met-service HTTP/1.1";
  EXPECT_EQ(pathOf(GetChartRqs()), line);
  EXPECT_EQ(pathOf(ChartDirectoryRqs()), line);
}

}  // namespace
}  // namespace ktpnaips
