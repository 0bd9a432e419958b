#include "simulator/flight_plan_text.h"

#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/briefing_period.h"
#include "simulator/data/text.h"
#include "simulator/data/time.h"
#include "simulator/place.h"

namespace sim {
namespace {

// Items of field 18 in the order of a message; dof and reg stand elsewhere in a request.
constexpr std::string_view otherItems[] = {
    "sts", "pbn",  "nav", "com", "dat", "sur",  "dep", "dest", "dof",  "reg",  "eet", "sel",
    "typ", "code", "dle", "dla", "opr", "orgn", "per", "altn", "ralt", "talt", "rif", "rmk"};

std::string withoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

void appendWord(std::string& text, const std::string& word) {
  if (!word.empty()) {
    text.append(text.empty() ? "" : " ").append(word);
  }
}

std::string aircraft(const XmlView& stage) {
  const std::string number = stage.childText("num-acft");
  const std::optional<XmlView> old = stage.child("ssr-equip");
  const std::string surveillance =
      old ? old->childText("equip") + (old->flag("ads") ? "D" : "") : stage.childText("surv-equip");
  return (number == "1" ? "" : number) + stage.childText("atyp") + '/' + stage.childText("wtc") +
         '-' + withoutBlanks(stage.childText("nav-com-equip")) + '/' + withoutBlanks(surveillance);
}

std::string rulesWord(const std::string& rules) {
  if (rules == "I") {
    return "IFR";
  }
  return rules == "V" ? "VFR" : rules;
}

std::string segmentText(const XmlView& segment) {
  const std::string climb = segment.childText("cc-level");
  std::string point;
  if (const std::optional<XmlView> waypoint = segment.child("waypoint")) {
    point = placeIn(*waypoint).text;
  }
  const std::string change =
      segment.childText("new-speed") + segment.childText("new-level") + climb;
  if (!change.empty()) {
    point += '/' + change;
  }
  std::string text = segment.childText("ats-route");
  appendWord(text, (climb.empty() ? "" : "C/") + point);
  appendWord(text, rulesWord(segment.childText("new-rules")));
  return text;
}

std::string segmentsText(const XmlView& route) {
  std::string text;
  for (const XmlView& segment : route.children("segment")) {
    appendWord(text, segmentText(segment));
  }
  return text.empty() ? "DCT" : text;
}

std::string otherItem(const XmlView& stage, std::string_view name) {
  const XmlView info = *stage.child("other-info");
  if (name == "dof") {
    const std::string etd = stage.childText("etd");
    return etd.substr(2, 2) + etd.substr(5, 2) + etd.substr(8, 2);
  }
  if (name == "reg") {
    return stage.childText("reg");
  }
  std::string text = info.childText(name);
  if (name == "rmk") {
    if (const std::optional<XmlView> sartime = stage.child("sartimeinfo")) {
      appendWord(text, sartimeText(*sartime));
    }
  }
  return name == "pbn" ? withoutBlanks(text) : text;
}

std::string otherText(const XmlView& stage) {
  std::string text;
  for (const std::string_view name : otherItems) {
    if (const std::string item = otherItem(stage, name); !item.empty()) {
      appendWord(text, upperCase(name) + '/' + item);
    }
  }
  return text;
}

struct Letter {
  std::string_view attribute;
  char letter;
};

// "R/UVE" of the attributes that are true; empty without any.
std::string lettersText(const char* item, const XmlView& element,
                        std::initializer_list<Letter> letters) {
  std::string text;
  for (const Letter& letter : letters) {
    if (element.flag(letter.attribute)) {
      text.push_back(letter.letter);
    }
  }
  return text.empty() ? text : item + text;
}

std::string dinghyText(const XmlView& supplement) {
  const std::optional<XmlView> dinghies = supplement.child("dinghies");
  if (!dinghies) {
    return {};
  }
  return "D/" + dinghies->childText("number") + ' ' + dinghies->childText("capacity") +
         (dinghies->childText("covered") == "true" ? " C " : " ") + dinghies->childText("colour");
}

std::string labelled(const char* item, const std::string& text) {
  return text.empty() ? text : item + text;
}

// The equipment that the letters of item 19 have no place for goes with the remarks.
std::string remarksText(const XmlView& supplement) {
  std::string text = supplement.childText("rmk");
  const XmlView survival = *supplement.child("survival");
  for (const auto& [attribute, words] :
       {std::pair{"first-aid", "FIRST AID KIT"}, std::pair{"rations", "RATIONS"},
        std::pair{"water", "WATER"}}) {
    if (survival.flag(attribute)) {
      appendWord(text, words);
    }
  }
  return labelled("N/", text);
}

std::string pilotText(const XmlView& pilot) {
  std::string text = pilot.attribute("name");
  appendWord(text, pilot.attribute("phone"));
  return labelled("C/", text);
}

}  // namespace

std::string flightPlanText(const XmlView& stage) {
  const XmlView route = *stage.child("route");
  const std::string departure = dayHourMinute(dateTimeOf(stage.childText("etd"))).substr(2);
  std::string arrival = trimmedUpperCase(stage.childText("ades"));
  arrival += hoursMinutes(stage.childText("teet"));
  appendWord(arrival, stage.childText("altn"));

  std::string text =
      "(FPL-" + stage.childText("acid") + '-' + stage.childText("frul") + stage.childText("ftyp");
  text += "\n-" + aircraft(stage);
  text += "\n-" + trimmedUpperCase(stage.childText("adep")) + departure;
  text += "\n-" + route.childText("speed") + route.childText("level") + ' ' + segmentsText(route);
  text += "\n-" + arrival;
  text += "\n-" + otherText(stage);
  if (const std::optional<XmlView> supplement = stage.child("suppl-info")) {
    if (const std::string item = supplementText(*supplement); !item.empty()) {
      text += "\n-" + item;
    }
  }
  return text + ')';
}

std::string routeSummary(const XmlView& stage) {
  return trimmedUpperCase(stage.childText("adep")) + ' ' + segmentsText(*stage.child("route")) +
         ' ' + trimmedUpperCase(stage.childText("ades"));
}

std::string supplementText(const XmlView& supplement) {
  const std::string persons = supplement.childText("pob");
  std::string text = labelled("E/", hoursMinutes(supplement.childText("end")));
  appendWord(text, labelled("P/", persons == "TBA" ? "TBN" : persons));
  appendWord(text, lettersText("R/", *supplement.child("radios"),
                               {{"uhf", 'U'}, {"vhf", 'V'}, {"elt-406-MHz", 'E'}}));
  appendWord(text,
             lettersText("S/", *supplement.child("survival"),
                         {{"polar", 'P'}, {"desert", 'D'}, {"maritime", 'M'}, {"jungle", 'J'}}));
  appendWord(text, lettersText("J/", *supplement.child("jackets"),
                               {{"light", 'L'}, {"fluor", 'F'}, {"uhf", 'U'}, {"vhf", 'V'}}));
  appendWord(text, dinghyText(supplement));
  appendWord(text, labelled("A/", supplement.childText("acft-col-mark")));
  appendWord(text, remarksText(supplement));
  appendWord(text, pilotText(*supplement.child("pilot")));
  return text;
}

std::string sartimeText(const XmlView& sartime) {
  const std::string time = sartime.childText("sartime");
  std::string text = "SARTIME " + (time.empty() ? "TBA" : dayHourMinute(dateTimeOf(time)));
  for (const char* part : {"ats-unit", "endpoint", "location"}) {
    appendWord(text, sartime.childText(part));
  }
  return text;
}

std::string hoursMinutes(const std::string& duration) {
  std::string text = duration;
  std::erase_if(text, [](char c) { return c < '0' || c > '9'; });
  return text;
}

}  // namespace sim
