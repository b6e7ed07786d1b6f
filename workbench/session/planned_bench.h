/// The bench of a test that is only planned: its devices do what they are told.
#pragma once

#include "workbench/session/action_places.h"
#include "workbench/session/set_up.h"

namespace ace::sim {
struct SimBench;
class SimHost;
}  // namespace ace::sim

namespace ace::workbench {

/// Adds each device and table that an action or a channel names, of the class that it needs. A name
/// that two need in different classes is of the first one, and setting a device, which needs no
/// class, comes last.
void AddNamedDevices(sim::SimHost& host, const TestSetUp& setUp, const ActionPlaces& places);
/// Takes away the failures of equipment that the devices of the bench would see.
void MakeEquipmentWell(sim::SimBench& bench);

}  // namespace ace::workbench
