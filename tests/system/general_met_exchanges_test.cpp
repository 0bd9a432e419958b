#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/spfib/general_met.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>

using namespace ktpnaips;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class GeneralMetExchange : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, GeneralMetExchange, testing::Bool(), simulator::schemeName);

constexpr std::array<std::pair<const wchar_t*, const wchar_t*>, 13> messages{{
    {L"NATIONAL WEATHER SUMMARY", L"SUMMARY"},
    {L"VOLCANIC ASH ADVISORY DARWIN", L"VAA"},
    {L"VOLCANIC ACTIVITY SUMMARY", L"VAA"},
    {L"TROPICAL CYCLONE OUTLOOK CORAL SEA", L"TCO"},
    {L"TROPICAL CYCLONE OUTLOOK WESTERN", L"TCO"},
    {L"SPACE WEATHER ADVISORY", L"SWX"},
    {L"HF PROPAGATION BULLETIN", L"SWX"},
    {L"MOUNTAIN WAVE OUTLOOK", L"OUTLOOK"},
    {L"THUNDERSTORM OUTLOOK", L"OUTLOOK"},
    {L"FOG OUTLOOK SOUTH EAST", L"OUTLOOK"},
    {L"SMOKE AND DUST OUTLOOK", L"OUTLOOK"},
    {L"SEA STATE TASMAN", L"MARINE"},
    {L"MET SERVICE NOTICE", L"NOTICE"},
}};

TEST_P(GeneralMetExchange, ListsTheMessagesByNameAndType) {
  const auto directory = GeneralMETMessageDirRqs().submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(lastRequest(), requestOf("general-met-dir-rqs", ""));
  ASSERT_EQ(directory->Count(), 13);
  std::int16_t index = 0;
  for (const auto& [name, type] : messages) {
    EXPECT_EQ(directory->Name(++index), name);
    EXPECT_EQ(directory->EntryType(index), type);
  }
  for (const std::int16_t outside : {std::int16_t{0}, std::int16_t{14}}) {
    EXPECT_EQ(directory->Name(outside), L"");
    EXPECT_EQ(directory->EntryType(outside), L"");
  }
}

TEST_P(GeneralMetExchange, FetchesOneByNameAndType) {
  GetGeneralMETMessageRqs request;
  request.Name(L"TROPICAL CYCLONE OUTLOOK CORAL SEA");
  request.MessageType(L"TCO");
  const auto message = request.submit();
  ASSERT_TRUE(succeeded(message));
  EXPECT_EQ(lastRequest(), requestOf("general-met-brief-rqs",
                                     "<name>TROPICAL CYCLONE OUTLOOK CORAL SEA</name>"
                                     "<type>TCO</type>"));
  EXPECT_EQ(message->Content(),
            L"TROPICAL CYCLONE OUTLOOK FOR THE CORAL SEA\n"
            L"NO SIGNIFICANT TROPICAL LOWS. RISK OF DEVELOPMENT NEXT 3 DAYS: VERY LOW.\n");
  EXPECT_EQ(message->Product(), L"");
  EXPECT_EQ(message->Count(), 0);
}

TEST_P(GeneralMetExchange, FetchesEveryMessageThatIsListed) {
  const auto directory = GeneralMETMessageDirRqs().submit();
  ASSERT_TRUE(succeeded(directory));
  for (const GeneralMETMessage& listed : *directory) {
    GetGeneralMETMessageRqs request;
    request.Name(listed.Name);
    request.MessageType(listed.EntryType);
    const auto message = request.submit();
    EXPECT_TRUE(succeeded(message));
    EXPECT_FALSE(message->Content().empty());
  }
}

TEST_P(GeneralMetExchange, IsRefusedAMessageThatIsNotListed) {
  GetGeneralMETMessageRqs request;
  EXPECT_TRUE(refused(request.submit(), L"Unknown message:  ()"));
  EXPECT_EQ(lastRequest(), requestOf("general-met-brief-rqs", "<name/><type/>"));
  request.Name(L"SEA STATE TASMAN");
  request.MessageType(L"VAA");
  const auto message = request.submit();
  EXPECT_TRUE(refused(message, L"Unknown message: SEA STATE TASMAN (VAA)"));
  EXPECT_EQ(message->Content(), L"");
}

}  // namespace
