#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simtest {

struct Child {
  std::string xml;
  bool optional = false;

  std::string name() const;
};

// An element with the prefix of the schema namespace, its content given as XML.
std::string element(std::string_view name, std::string_view content = "",
                    std::string_view attributes = "");

std::string joined(const std::vector<Child>& children);

// The same without one element, or with another text in it.
std::vector<Child> without(std::vector<Child> children, std::string_view name);
std::vector<Child> with(std::vector<Child> children, const Child& replacement);

// Points.
std::string loc(std::string_view name);
std::string coordinates();
std::string bearingDistance();

// Whole sequences with every optional element.
std::vector<Child> bulletinStage();
std::vector<Child> bulletin();
std::vector<Child> otherInfo(bool newForm);
std::vector<Child> searchAndRescueTime();
std::vector<Child> routeSegment();
std::vector<Child> flightRoute();
std::vector<Child> dinghies();
std::vector<Child> supplement(bool international);
std::vector<Child> flightStage(bool newForm);
std::string flightStageElement(const std::vector<Child>& stage, int number = 1);
std::vector<Child> sartimeStage();
std::vector<Child> sartimeNotification();

}  // namespace simtest
