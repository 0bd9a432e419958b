#pragma once

#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/flag_word.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/spfib/spfib_spec.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

/// Asks for a new pre-flight bulletin. Flags are kept for the host and not sent.
class SPFIBRqs : public PeriodRequest, public FlagWord {
 public:
  SPFIBRqs();

  /// Hours of validity, 0 to 30; other values are refused silently. Not sent when 0 (the default).
  /// Independent of the duration in `briefingReq`.
  Property<std::int16_t, rule::Within<0, 30>> Duration;

  /// The flight, shared with the host; needed. Default: none.
  Property<std::shared_ptr<ktpnaips::SPFIBSpec>> SPFIBSpec;

  /// The group on whose behalf the bulletin is asked, sent as given; left out when empty (the
  /// default).
  Property<std::wstring> GroupId;

 private:
  void appendItems(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

/// What a stored bulletin was asked for: its airspeed, and departure, destination and
/// departure time of each stage. Nothing else is read back.
class GetSPFIBRsp : public ResponseBase {
 public:
  /// No object until an answer has been read.
  ReadOnly<std::shared_ptr<ktpnaips::SPFIBSpec>, GetSPFIBRsp> SPFIBSpec;

  /// The duration as the service writes it. Default "".
  ReadOnly<std::wstring, GetSPFIBRsp> Duration;

 private:
  void extractData() override;
};

/// Fetches what a stored bulletin was asked for.
class GetSPFIBRqs : public Request<GetSPFIBRsp> {
 public:
  GetSPFIBRqs();

  /// The bulletin's number, sent as given, also when empty (the default).
  Property<std::wstring> Number;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

/// Asks for an update of a stored bulletin.
class UpdateSPFIBRqs : public PeriodRequest {
 public:
  UpdateSPFIBRqs();

  /// Hours of validity, 0 to 30; other values are refused silently. Not sent when 0 (the default).
  /// Independent of the duration in `briefingReq`.
  Property<std::int16_t, rule::Within<0, 30>> Duration;

  /// The bulletin's number, sent as given, also when empty (the default).
  Property<std::wstring> SPFIBNumber;

  /// How many stages, from the first, the update includes: 1 to 10; other values are refused
  /// silently. Default 1.
  Property<std::int16_t, rule::Within<1, 10>> StageCount{1};

 private:
  void appendItems(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
