#pragma once

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ktpnaips {

/// A general MET message of a directory: what `GetGeneralMETMessageRqs` fetches it by.
struct GeneralMETMessage {
  std::wstring Name;       ///< its name
  std::wstring EntryType;  ///< its type
};

/// The general MET messages that the service offers, in the order of the answer.
class GeneralMETMessageDirRsp : public ResponseBase, public Collection<GeneralMETMessage> {
 public:
  /// The name of the message at an index from 1; empty outside 1 to `Count`.
  [[nodiscard]] std::wstring Name(std::int16_t index) const;
  /// The type of the message at an index from 1; empty outside 1 to `Count`.
  [[nodiscard]] std::wstring EntryType(std::int16_t index) const;

 private:
  void extractData() override;
};

/// Lists the meteorological messages that belong to no one location.
class GeneralMETMessageDirRqs : public Request<GeneralMETMessageDirRsp> {
 public:
  GeneralMETMessageDirRqs();
};

/// Fetches a general MET message; the response's `Content` is its text.
class GetGeneralMETMessageRqs : public Request<BriefingResponse> {
 public:
  GetGeneralMETMessageRqs();

  /// The message's name in the directory, sent as given, also when empty (the default).
  Property<std::wstring> Name;

  /// The message's type in the directory, sent as given, also when empty (the default).
  Property<std::wstring> MessageType;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
