#pragma once

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// A NOTAM of a list. All texts are empty where the answer gives none.
class NotamBaseDescriptor {
 public:
  Property<std::wstring> NotamKey;  ///< the key by which its full text is fetched
  Property<std::wstring> NotamId;   ///< series, number and year: "C1234/07"
  Property<std::wstring> Location;  ///< the location or area that it concerns
  Property<std::wstring> Summary;   ///< its subject in short
};

/// The NOTAMs of a pre-flight bulletin, in the order of the answer.
class ViewNOTAMListForSPFIBRsp : public ResponseBase,
                                 public Collection<std::shared_ptr<NotamBaseDescriptor>> {
 public:
  ReadOnly<std::wstring, ViewNOTAMListForSPFIBRsp> SPFIBNumber;  ///< the bulletin's number

 private:
  void extractData() override;
};

/// Lists the NOTAMs of a pre-flight bulletin.
class ViewNOTAMListForSPFIBRqs : public Request<ViewNOTAMListForSPFIBRsp> {
 public:
  ViewNOTAMListForSPFIBRqs();

  /// The bulletin's number, sent as given, also when empty (the default).
  Property<std::wstring> SPFIBNo;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

/// Asks for the full text of NOTAMs; the response's `Content` holds them.
class RetrieveFullTextNotamRqs : public Request<BriefingResponse> {
 public:
  RetrieveFullTextNotamRqs();

  /// The number of keys. Throws fault 6 when there are more than 32,767.
  [[nodiscard]] std::int16_t Count() const;

  /// Adds a NOTAM's key, trimmed and upper-cased; an empty one is ignored. There is no limit.
  void addKey(std::wstring_view key);

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;

  std::vector<std::wstring> keys_;
};

}  // namespace ktpnaips
