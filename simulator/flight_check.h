#pragma once

#include "simulator/xml.h"

namespace sim {

// What the schema cannot say of a flight notification; each throws SoapFault.

// Stages are numbered from 1.
void checkStageNumbers(const XmlView& notification);

// Item 18 stands in the order of the stage's flight-plan form, item 19 has one of the two groups
// of survival equipment.
void checkFlightStage(const XmlView& stage);

}  // namespace sim
