#include "cli/pack/requests.h"

#include "cli/chart_files.h"
#include "cli/pack/coded_way.h"
#include "cli/pack/filling.h"
#include "cli/pack/pictures.h"
#include "cli/pack/times.h"
#include "cli/paths.h"
#include "cli/progress.h"
#include "cli/text_output.h"

#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/briefing/light.h>
#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/briefing/raim.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/spfib/location_directory.h>
#include <ktpnaips/spfib/route_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>
#include <ktpnaips/spfib/wind_temp_profile.h>

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace cli::pack {

using ktpnaips::BriefingResponse;
using ktpnaips::DateTime;
using ktpnaips::text::fromUtf8;
using ktpnaips::text::toUtf8;

namespace {

/// Writes the document of a request that is filled from this.
template <class Request, class From>
void showFilled(Session& session, const From& from) {
  Request request;
  fill(request, from);
  session.showDocument(request);
}

/// Hours of "PT06H" or "6".
std::optional<int> hoursOf(std::string_view duration) {
  if (duration.starts_with("PT")) duration.remove_prefix(2);
  if (duration.ends_with('H')) duration.remove_suffix(1);
  int hours = 0;
  const char* const end = duration.data() + duration.size();
  const auto [parsed, error] = std::from_chars(duration.data(), end, hours);
  if (error != std::errc() || parsed != end) return std::nullopt;
  return hours;
}

DateTime timeNow() {
  const auto now = std::chrono::system_clock::now();
  return DateTime{std::chrono::floor<std::chrono::seconds>(now).time_since_epoch()};
}

std::string serviceText(const GlobalOptions& options, const std::string& user) {
  const auto* service = options.simulate    ? "the simulated service"
                        : options.mode == 0 ? "the developer's service"
                        : options.mode == 2 ? "the test service"
                                            : "NAIPS";
  return fmt::format("Asked by naips for {} from {} (mode {}).", user.empty() ? "nobody" : user,
                     service, options.mode);
}

/// A lower-case ending of a file name; what may mean something else there is left out.
std::string endingOf(std::wstring_view productType) {
  std::string ending;
  for (const char c : toUtf8(productType)) {
    if (c >= 'A' && c <= 'Z') ending += static_cast<char>(c - 'A' + 'a');
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) ending += c;
  }
  return ending.empty() ? "bin" : ending;
}

/// The products of a chart that are shown: those in high resolution, or all without one.
std::vector<std::shared_ptr<ktpnaips::Product>> bestProducts(const ktpnaips::GetChartRsp& chart) {
  std::vector<std::shared_ptr<ktpnaips::Product>> all(chart.begin(), chart.end());
  const auto isHigh = [](const auto& product) { return product->Resolution() == L"HI"; };
  if (std::ranges::any_of(all, isHigh)) {
    std::erase_if(all, [&](const auto& product) { return !isHigh(product); });
  }
  return all;
}

bool isWanted(const ktpnaips::ChartDescriptor& chart, const std::vector<std::string>& wanted) {
  const auto same = [](const std::string& text, std::wstring_view other) {
    return ktpnaips::text::toUpper(fromUtf8(text)) == ktpnaips::text::toUpper(other);
  };
  return wanted.empty() || std::ranges::any_of(wanted, [&](const std::string& text) {
           return same(text, chart.Key()) || same(text, chart.ProductType());
         });
}

bool hasPeriod(const ktpnaips::BriefingRequest& request) {
  return request.From() != ktpnaips::noDateTime && request.From() < request.Till();
}

/// Sends the requests of one pack, one after another.
class Gathering {
 public:
  Gathering(Session& session, Flight flight, const Wanted& wanted)
      : session_(session), wanted_(wanted), progress_(0, !session.options().quiet) {
    pack_.flight = std::move(flight);
    pack_.made = timeNow();
    pack_.madeBy = serviceText(session.options(), session.userName());
    pack_.isSimulated = session.options().simulate;
  }

  void askAll() {
    constexpr std::size_t always = 6;  // bulletin, its number, validity and NOTAMs, winds, charts
    expectedNames_ = locationNames(pack_.flight).size();
    progress_.expect(always + codedWays(pack_.flight).size() + expectedNames_ +
                     raimLocations(pack_.flight).size());
    askBulletin();
    askRoutes();
    askLocations();
    askLights();
    askWinds();
    askRaim();
    askCharts();
    progress_.clear();
  }

  Gathered take() { return {std::move(pack_), std::move(outcomes_)}; }

 private:
  static constexpr int patience = 2;
  static constexpr std::size_t mostRequests = 300;

  /// Cuts a list of what is asked for one by one to what a pack may send, and says so.
  template <class Entry>
  void keepWithinBound(std::vector<Entry>& list, const std::string& what) {
    const std::size_t room = mostRequests - std::min(mostRequests, outcomes_.written().size());
    if (list.size() <= room) return;
    Answer answer;
    answer.title = what;
    fail(answer, fmt::format("{} of {} are left out: a pack sends {} requests at most.",
                             list.size() - room, list.size(), mostRequests));
    session_.remark(what + ": " + answer.reason);
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(room), list.end());
  }

  /// Sends a request; the answer fails when the response does.
  template <class Request>
  auto ask(Request& request, const std::string& what, Answer& answer) {
    answer.title = what;
    decltype(session_.fetch(request)) response;
    if (letDown_ == patience) {
      skip(answer);
      return response;
    }
    progress_.next(what);
    response = session_.fetch(request);
    progress_.clear();
    outcomes_.add(session_.outcome(response.get()),
                  [&](JsonObject& json) { json.set("Request", what); });
    session_.showOne(response.get(), what, [] {});
    take(response.get(), answer);
    return response;
  }

  void take(const ktpnaips::ResponseBase* response, Answer& answer) {
    const bool hasFailed = response == nullptr || response->Error();
    if (hasFailed) {
      fail(answer, session_.summary(response) + "\n" + plain(fromUtf8(errorText(response))));
    }
    const bool isLetDown = response != nullptr && response->errorCode().has_value();
    letDown_ = isLetDown ? letDown_ + 1 : 0;
    if (letDown_ < patience) return;
    isUnreached_ = response->outcome() == ktpnaips::Outcome::notSent;
    session_.remark(fmt::format("The service {}: the other requests are not sent.",
                                isUnreached_ ? "cannot be reached" : "does not answer"));
  }

  /// Leaves out a request that would only wait for the same failure.
  void skip(Answer& answer) {
    fail(answer, fmt::format("Not asked, as the service {} just before.",
                             isUnreached_ ? "could not be reached" : "did not answer"));
    outcomes_.add({{"Error", true},
                   {"ErrorText", answer.reason},
                   {"Outcome", "not-sent"},
                   {"Code", nullptr},
                   {"Request", answer.title}});
  }

  void fail(Answer& answer, std::string reason) {
    answer.failed = true;
    answer.reason = std::move(reason);
    pack_.failures.push_back(answer);
  }

  /// As `ask`, for a request that is answered by a briefing, whose text becomes the answer's.
  template <class Request>
  auto askText(Request& request, const std::string& what, Answer& answer) {
    auto response = ask(request, what, answer);
    if (!answer.failed) answer.text = plain(response->Content());
    return response;
  }

  void askBulletin() {
    const auto response = askText(*wanted_.bulletin, "Bulletin", pack_.bulletin);
    pack_.number.title = "Number of the bulletin";
    pack_.notamList.title = "List of the NOTAMs";
    if (pack_.bulletin.failed) {
      pack_.notamList.reason = "There is no bulletin whose NOTAMs could be listed.";
      pack_.validityUnknown = "there is no bulletin";
      return;
    }
    takeFiles(*response);
    const auto descriptor = askDescriptor();
    askValidity(descriptor.get());
    if (descriptor != nullptr) {
      askNotams(descriptor->Number());
    } else {
      pack_.notamList.reason = "The number of the bulletin is not known. " + pack_.number.reason;
    }
  }

  /// The files of a briefing stay until the program that asked for it removes them.
  void takeFiles(const BriefingResponse& response) {
    Chart chart;
    chart.answer.title = "Charts of the bulletin";
    for (const auto& item : response) {
      const std::string path = toUtf8(item->File());
      take(chart, path,
           fmt::format("bulletin-{}.{}", chart.pictures.size() + 1, endingOf(item->ProductType())));
      std::error_code ignored;
      if (!session_.keepsFiles()) std::filesystem::remove(pathOf(path), ignored);
    }
    if (response.Count() > 0) pack_.charts.push_back(std::move(chart));
  }

  void take(Chart& chart, const std::string& path, const std::string& fileName) {
    try {
      Picture picture = readPicture(path, fileName);
      if (isNew(picture)) chart.pictures.push_back(std::move(picture));
    } catch (const std::exception& failure) {
      fail(chart.answer, failure.what());
    }
  }

  [[nodiscard]] bool isNew(const Picture& picture) const {
    return std::ranges::none_of(pack_.charts, [&](const Chart& chart) {
      return std::ranges::find(chart.pictures, picture.base64, &Picture::base64) !=
             chart.pictures.end();
    });
  }

  /// The answer to a bulletin does not say its number: it is the aircraft's newest.
  std::shared_ptr<ktpnaips::SPFIBDescriptor> askDescriptor() {
    ktpnaips::ActiveSPFIBDirectoryRqs request;
    request.GroupId(wanted_.bulletin->GroupId());
    const auto response = ask(request, pack_.number.title, pack_.number);
    if (pack_.number.failed) return nullptr;
    const auto aircraft = ktpnaips::text::toUpper(fromUtf8(pack_.flight.aircraft));
    std::shared_ptr<ktpnaips::SPFIBDescriptor> newest;
    for (const auto& each : *response) {
      const bool isOurs = ktpnaips::text::toUpper(each->Aircraft()) == aircraft;
      if (isOurs && (newest == nullptr || each->DTG() >= newest->DTG())) newest = each;
    }
    if (newest == nullptr) {
      fail(pack_.number, "The service lists no bulletin for " + pack_.flight.aircraft + ".");
    } else {
      pack_.number.text = oneLine(newest->Number());
    }
    return newest;
  }

  void askValidity(const ktpnaips::SPFIBDescriptor* descriptor) {
    const auto& period = wanted_.bulletin->briefingReq();
    if (hasPeriod(period)) {
      pack_.validity = Period{period.From(), period.Till()};
      return;
    }
    pack_.validityUnknown = "the number of the bulletin is not known";
    if (descriptor == nullptr) return;
    ktpnaips::GetSPFIBRqs request;
    request.Number(descriptor->Number());
    Answer answer;
    const auto response = ask(request, "Validity of the bulletin", answer);
    pack_.validityUnknown = "the service does not tell it";
    if (answer.failed) return;
    const auto hours = hoursOf(toUtf8(response->Duration()));
    if (hours) {
      pack_.validity = Period{descriptor->DTG(), descriptor->DTG() + std::chrono::hours(*hours)};
    }
  }

  void askNotams(const std::wstring& number) {
    ktpnaips::ViewNOTAMListForSPFIBRqs request;
    request.SPFIBNo(number);
    const auto response = ask(request, pack_.notamList.title, pack_.notamList);
    if (pack_.notamList.failed) return;
    std::vector<std::string> places;
    for (const auto& notam : *response) {
      pack_.notams.push_back(
          {oneLine(notam->NotamId()), oneLine(notam->Location()), oneLine(notam->Summary())});
      if (std::ranges::find(places, pack_.notams.back().location) == places.end()) {
        places.push_back(pack_.notams.back().location);
      }
    }
    keepWithinBound(places, "NOTAM texts");
    progress_.expect(places.size());
    for (const std::string& place : places) askNotamTexts(*response, place);
  }

  void askNotamTexts(const ktpnaips::ViewNOTAMListForSPFIBRsp& list, const std::string& place) {
    ktpnaips::RetrieveFullTextNotamRqs request;
    for (const auto& notam : list) {
      if (oneLine(notam->Location()) == place) request.addKey(notam->NotamKey());
    }
    Answer answer;
    askText(request, "NOTAM texts" + (place.empty() ? "" : " " + place), answer);
    answer.title = place.empty() ? "No location" : place;
    pack_.notamTexts.push_back(std::move(answer));
  }

  void askRoutes() {
    auto ways = codedWays(pack_.flight);
    keepWithinBound(ways, "Routes by code");
    for (const CodedWay& coded : ways) {
      ktpnaips::GetRouteRqs request;
      fill(request, coded);
      Answer answer;
      const auto response = ask(
          request,
          fmt::format("Route {} from {} to {}", coded.way->code, coded.from->text, coded.to->text),
          answer);
      if (!answer.failed) {
        answer.text = routeText(*response);
        takeRoute(coded, answer.text);
      }
      pack_.routes.push_back(std::move(answer));
    }
  }

  void askLocations() {
    // Routes by code may have brought names.
    auto names = locationNames(pack_.flight);
    keepWithinBound(names, "Coordinates");
    progress_.expect(names.size() - std::min(names.size(), expectedNames_));
    for (const std::string& name : names) pack_.locations[name] = askLocation(name);
    forEachPlace(pack_.flight, [&](Place& place) {
      const auto found = pack_.locations.find(place.name);
      if (found == pack_.locations.end() || !found->second.position) return;
      const Position at = *found->second.position;
      place.position = place.distance > 0 ? destinationOf(at, place.bearing, place.distance) : at;
    });
  }

  Location askLocation(const std::string& name) {
    ktpnaips::LocAirspaceDirectoryRqs request;
    fill(request, name);
    Location location;
    const auto response = ask(request, "Coordinates of " + name, location.answer);
    if (location.answer.failed) return location;
    for (const auto& each : *response) {
      if (oneLine(each->Key()) != name || (location.position && !each->Coord())) continue;
      location.name = oneLine(each->Name());
      location.description = oneLine(each->Description());
      const auto& at = each->Coord();
      if (at == nullptr || std::abs(at->Lat()) > 90 || std::abs(at->Lon()) > 180) continue;
      location.position = Position{at->Lat(), at->Lon()};
      break;
    }
    return location;
  }

  /// The days at the places where light matters, each once.
  std::vector<std::pair<std::string, DateTime>> lightDays() const {
    std::vector<std::pair<std::string, DateTime>> days;
    const auto add = [&](const Place& place, DateTime time) {
      std::pair<std::string, DateTime> day(place.text, localDate(time, place.position));
      if (std::ranges::find(days, day) == days.end()) days.push_back(std::move(day));
    };
    for (const Stage& stage : pack_.flight.stages) {
      add(stage.from, stage.etd);
      add(stage.to, arrivalOf(pack_.flight, stage).value_or(stage.etd));
    }
    return days;
  }

  void askLights() {
    auto days = lightDays();
    keepWithinBound(days, "First and last light");
    progress_.expect(days.size());
    for (const auto& [place, day] : days) askLight(place, day);
  }

  void askLight(const std::string& place, DateTime day) {
    ktpnaips::FirstLastLightRqs request;
    request.setNamed(fromUtf8(place));
    request.ForDate(day);
    Light light;
    light.place = place;
    light.date = dateText(day);
    const auto response = ask(
        request, fmt::format("First and last light at {} on {}", place, light.date), light.answer);
    if (!light.answer.failed) {
      light.first = oneLine(response->FirstLight());
      light.last = oneLine(response->LastLight());
      light.firstTime = readTime(light.first);
      light.lastTime = readTime(light.last);
    }
    pack_.lights.push_back(std::move(light));
  }

  void askWinds() {
    ktpnaips::WindTempProfileRqs request;
    fill(request, pack_.flight);
    askText(request, "Winds and temperatures", pack_.winds);
  }

  void askRaim() {
    auto groups = raimLocations(pack_.flight);
    keepWithinBound(groups, "RAIM predictions");
    for (const auto& locations : groups) {
      ktpnaips::RAIMRqs request;
      fill(request, locations);
      askText(request, "RAIM prediction", pack_.raim.emplace_back());
    }
  }

  void askCharts() {
    pack_.hasCharts = wanted_.hasCharts;
    if (!pack_.hasCharts) return;
    ktpnaips::ChartDirectoryRqs request;
    const auto directory = ask(request, "List of the charts", pack_.chartList);
    if (pack_.chartList.failed) return;
    std::vector<std::shared_ptr<ktpnaips::ChartDescriptor>> chosen;
    for (const auto& each : *directory) {
      if (isWanted(*each, wanted_.charts)) chosen.push_back(each);
    }
    keepWithinBound(chosen, "Charts");
    progress_.expect(chosen.size());
    for (const auto& each : chosen) askChart(*each);
  }

  void askChart(const ktpnaips::ChartDescriptor& descriptor) {
    ktpnaips::GetChartRqs request;
    request.Key(descriptor.Key());
    Chart chart;
    chart.key = oneLine(descriptor.Key());
    const bool isStored = descriptor.StoreTime() > ktpnaips::noDateTime;
    chart.stored = isStored ? dayTimeText(descriptor.StoreTime()) : "";
    const auto response = ask(request, "Chart " + chart.key, chart.answer);
    if (!chart.answer.failed) {
      for (const auto& product : bestProducts(*response)) {
        take(chart, toUtf8(product->FilePath()), chartFileName(&descriptor, *product));
      }
    }
    const std::string name = oneLine(descriptor.Name());
    chart.answer.title = name.empty() ? chart.key : name;
    const bool isShownAlready = !chart.answer.failed && chart.pictures.empty();
    if (!isShownAlready) pack_.charts.push_back(std::move(chart));
  }

  Session& session_;
  const Wanted& wanted_;
  Progress progress_;
  Pack pack_;
  Outcomes outcomes_;
  std::size_t expectedNames_ = 0;
  int letDown_ = 0;  // requests in a row that the network let down
  bool isUnreached_ = false;
};

}  // namespace

Gathered gather(Session& session, Flight flight, const Wanted& wanted) {
  Gathering gathering(session, std::move(flight), wanted);
  gathering.askAll();
  return gathering.take();
}

void showDocuments(Session& session, const Flight& flight, const Wanted& wanted) {
  Flight copy = flight;
  session.showDocument(*wanted.bulletin);
  const auto coded = codedWays(copy);
  for (const CodedWay& each : coded) showFilled<ktpnaips::GetRouteRqs>(session, each);
  for (const std::string& name : locationNames(flight)) {
    showFilled<ktpnaips::LocAirspaceDirectoryRqs>(session, name);
  }
  if (coded.empty()) showFilled<ktpnaips::WindTempProfileRqs>(session, flight);
  for (const auto& locations : raimLocations(flight)) {
    showFilled<ktpnaips::RAIMRqs>(session, locations);
  }
  if (wanted.hasCharts) {
    ktpnaips::ChartDirectoryRqs request;
    session.showDocument(request);
  }
}

}  // namespace cli::pack
