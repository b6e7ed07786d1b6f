/// A test as the list of its moments, in the order in which a host calls them.
#pragma once

#include "workbench/session/moments.h"
#include "workbench/session/set_up.h"

namespace ace::workbench {

/// All moments from the start of the test to its end:
///   single test      StartTest; for each subrange EnterSubrange, its frequencies, LeaveSubrange;
///                    StopTest
///   monitoring       StartTest, BeforeTestLoop; for each frequency NewFrequency, what the channels
///                    do there, AfterStep; AfterTestLoop, StopTest
///   susceptibility   StartTest; for each step EnterStep, its frequencies; StopTest
///   emission         StartTest; for each step BeforeStep, its frequencies, AfterStep; StopTest
///   sequence         StartTest; for each test BeforeTest, AfterTest; StopTest
///   azimuth chart    StartTest, the frequencies, StopTest
///   wireless tests   StartTest; for each test BeforeVKSTest, its VKSSteps, AfterVKSTest; StopTest
///   matrix           StartTest; for each frequency, bandwidth and power VKSDUTStepGlobBefore,
///                    VKSDUTStep, VKSDUTStepGlobAfter; StopTest
std::vector<Moment> PlanOf(const TestSetUp& setUp);

}  // namespace ace::workbench
