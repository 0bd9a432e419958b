#include "tests/simulator/requests.h"

#include <algorithm>

namespace simtest {

std::string Child::name() const {
  constexpr std::string_view prefix = "<ndd:";
  return xml.substr(prefix.size(), xml.find_first_of(" />") - prefix.size());
}

std::string element(std::string_view name, std::string_view content, std::string_view attributes) {
  std::string text = "<ndd:";
  text.append(name).append(attributes.empty() ? "" : " ").append(attributes).append(">");
  return text.append(content).append("</ndd:").append(name).append(">");
}

std::string joined(const std::vector<Child>& children) {
  std::string text;
  for (const Child& child : children) {
    text += child.xml;
  }
  return text;
}

std::vector<Child> without(std::vector<Child> children, std::string_view name) {
  std::erase_if(children, [&](const Child& child) { return child.name() == name; });
  return children;
}

std::vector<Child> with(std::vector<Child> children, const Child& replacement) {
  std::ranges::replace_if(
      children, [&](const Child& child) { return child.name() == replacement.name(); },
      replacement);
  return children;
}

std::string loc(std::string_view name) {
  return element("loc", name);
}

std::vector<Child> bulletinStage() {
  return {{element("adep", loc("YSSY"))},
          {element("etd", "2026-11-20T22:00:00Z")},
          {element("ades", loc("YMML"))},
          {element("weight-category", "L"), true},
          {element("level", "F350")},
          {element("route", element("waypoints", loc("WOL")) + element("waypoints", coordinates()) +
                                element("waypoints")),
           true},
          {element("additional-loc", "YSCB"), true},
          {element("area", "21"), true},
          {element("alternate", element("ades", loc("YMAV")) + element("level", "F120")), true}};
}

std::vector<Child> bulletin() {
  return {{element("domestic", "true")},
          {element("acid", "VHABC")},
          {element("stage", joined(bulletinStage())), true},
          {element("tas", "N0450")},
          {element("exp-wind", "true")},
          {element("intl-series-notam", "false")},
          {element("full-text-notam", "false")},
          {element("charts", "false")},
          {element("mid-sigwx-gpwt", "false")},
          {element("variant", "LO")}};
}

std::vector<Child> otherInfo(bool newForm) {
  const std::vector<std::string> names =
      newForm ? std::vector<std::string>{"sts",  "pbn", "nav",  "com",  "dat",  "sur", "dep",
                                         "dest", "eet", "sel",  "typ",  "code", "dle", "opr",
                                         "orgn", "per", "altn", "ralt", "talt", "rif", "rmk"}
              : std::vector<std::string>{"eet",  "rif",  "sel", "opr", "sts",  "per",
                                         "com",  "nav",  "dat", "dep", "dest", "altn",
                                         "ralt", "code", "rmk", "typ", "dla"};
  std::vector<Child> children;
  for (const std::string& name : names) {
    const std::string text = name == "sts" ? "HOSP MEDEVAC" : name == "pbn" ? "A1 B2" : "C";
    children.push_back({element(name, text), true});
  }
  return children;
}

std::vector<Child> supplement(bool international) {
  return {{element("end", "PT04H30M"), true},
          {element("pob", "4"), true},
          {element("radios", "", "uhf='false' vhf='true' elt-406-MHz='true'")},
          {element("survival", "",
                   international ? "polar='false' desert='true' maritime='true' jungle='false'"
                                 : "first-aid='true' rations='false' water='true'")},
          {element("jackets", "", "light='true' fluor='false' uhf='false' vhf='true'")},
          {element("dinghies", joined(dinghies())), true},
          {element("acft-col-mark", "WHITE"), true},
          {element("rmk", "NIL"), true},
          {element("pilot", "", "name='D DEMO' phone='0400 000 000'")}};
}

std::vector<Child> flightStage(bool newForm) {
  std::vector<Child> stage = {{element("acid", "VHABC")}, {element("frul", "I")},
                              {element("ftyp", "G")},     {element("num-acft", "1")},
                              {element("atyp", "B738")},  {element("wtc", "M")}};
  if (newForm) {
    stage.push_back({element("nav-com-equip", "S D F G E2 J5")});
    stage.push_back({element("surv-equip", "L B1")});
  } else {
    stage.push_back({element("nav-com-equip", "SDFG")});
    stage.push_back({element("ssr-equip", element("equip", "C"), "ads='true'")});
  }
  const std::vector<Child> rest = {{element("adep", "YSSY")},
                                   {element("etd", "2026-11-20T22:00:00Z")},
                                   {element("ades", "YMML")},
                                   {element("teet", "PT01H30M")},
                                   {element("altn", "YMAV"), true},
                                   {element("route", joined(flightRoute()))},
                                   {element("reg", "VHABC")},
                                   {element("other-info", joined(otherInfo(newForm)))},
                                   {element("sartimeinfo", joined(searchAndRescueTime())), true},
                                   {element("suppl-info", joined(supplement(newForm))), true}};
  stage.insert(stage.end(), rest.begin(), rest.end());
  return stage;
}

std::string flightStageElement(const std::vector<Child>& stage, int number) {
  return element("stage", joined(stage), "number='" + std::to_string(number) + "'");
}

std::vector<Child> sartimeStage() {
  return {{element("adep", "YSBK")},
          {element("etd", "2026-11-20T22:00:00Z")},
          {element("ades", "YSCB")},
          {element("alt", "YSWG"), true},
          {element("waypoint", "PSP") + element("waypoint", "RIVET"), true}};
}

std::vector<Child> sartimeNotification() {
  return {{element("acid", "VHABC")},
          {element("atyp", "C172")},
          {element("stage", joined(sartimeStage()), "number='1'"), true},
          {element("rmk", "TRAINING"), true},
          {element("sar", joined(searchAndRescueTime()))},
          {element("end", "PT05H00M"), true},
          {element("pob", "2 TBAN")},
          {element("radios", "", "VHF='true' UHF='false' elt-406-MHz='true'")},
          {element("pilot", "", "name='D DEMO' phone='0400 000 000'")}};
}

std::string coordinates() {
  return element("coord", element("lat", "-33.866700") + element("long", "151.200000"));
}

std::string bearingDistance() {
  return element("bear-dist",
                 element("loc", "SY") + element("bear", "45") + element("dist", "025"));
}

std::vector<Child> searchAndRescueTime() {
  return {{element("sartime", "2026-11-21T02:30:00Z")},
          {element("ats-unit", "CENSAR")},
          {element("endpoint", "ARRIVAL"), true},
          {element("location", "YSCB")}};
}

std::vector<Child> routeSegment() {
  return {{element("ats-route", "H65"), true},   {element("waypoint", loc("RAZZI")), true},
          {element("new-speed", "N0440"), true}, {element("new-level", "F330"), true},
          {element("cc-level", "F350"), true},   {element("new-rules", "V"), true}};
}

std::vector<Child> flightRoute() {
  return {
      {element("speed", "N0450")},
      {element("level", "F350")},
      {element("segment", element("waypoint", loc("WOL"))) +
           element("segment", element("ats-route", "H65") + element("waypoint", loc("RAZZI")) +
                                  element("new-speed", "N0440") + element("new-level", "F330")) +
           element("segment", element("waypoint", coordinates())) +
           element("segment", element("waypoint", bearingDistance()) + element("new-rules", "V")) +
           element("segment"),
       true}};
}

std::vector<Child> dinghies() {
  return {{element("number", "2")},
          {element("capacity", "8")},
          {element("covered", "true")},
          {element("colour", "YELLOW")}};
}

}  // namespace simtest
