#include "support/device_moments.h"

namespace ace::test {
namespace {

/// An engine whose host is nothing but the do-nothing services.
class DefaultHost : public ::testing::Test {
  protected:
    Boolean Run(const p_Action& action) {
        Fill(engine.State().MainTest, EnterList, {action});
        return engine.StartTest();
    }
    static p_Action Remote(std::int32_t iface, const String& program = {}) {
        aceRemote record;
        record.Command = L"*RST";
        record.Iface = iface;
        record.Program = program;
        return Action(atRemote, record);
    }

    ThreadContext context;
    aceActionsEngine engine{context};
};

TEST_F(DefaultHost, LoadsAndSavesNothingWithoutAnError) {
    for (std::int32_t moduleKind = 0; moduleKind < ModulCount; ++moduleKind) {
        engine.LoadActions(L"any.ini", 2, static_cast<aceModul>(moduleKind));
        engine.SaveActions(L"any.ini");
    }
    EXPECT_EQ(engine.State().MainSubrangeCount, -1);
}

TEST_F(DefaultHost, WaitsAndTellsAndAsksAreThroughAtOnceAndNothingStops) {
    for (const p_Action& action :
         {WaitFor(3600000), Tell(L"Close the door"), Ask(L"Lamp green?")}) {
        EXPECT_FALSE(Run(action)) << action.ActionType;
    }
}

TEST_F(DefaultHost, ACommandOverAnyTransportFailsAndTheTestGoesOn) {
    for (const std::int32_t iface : {0, 1, 2}) {
        EXPECT_FALSE(Run(Remote(iface))) << iface;
    }
    EXPECT_FALSE(Run(Remote(0, L"exerciser")));
}

TEST_F(DefaultHost, NoDeviceIsFoundAndTheTestGoesOn) {
    for (const p_ActionTypes kind :
         {atSetDevice, atCheckEut, atMonitorEUT, atSwitchAmp, atSwitchUnit}) {
        EXPECT_FALSE(Run(OnDevice(kind, L"EUT"))) << kind;
    }
    Fill(engine.State().MainTest, FreqList, {Follow(L"generator", L"monitor")});
    EXPECT_FALSE(Run(Action(atProtRec)));
    EXPECT_FALSE(engine.NewFrequency(30e6, false));
}

/// A runner that loads nothing is a macro that failed, and that asks for a stop.
TEST_F(DefaultHost, NoMacroIsLoadedAndTheTestStops) {
    aceAPI record;
    record.Program = L"log.mac";
    record.Parameters.Redim(0, 0);
    EXPECT_TRUE(Run(Action(atAPI, record)));
}

TEST_F(DefaultHost, SignalsAndTheRestOfTheTestNeedNoHost) {
    EXPECT_TRUE(Run(Action(atTestStop)));
    EXPECT_TRUE(Run(Comment(true)));
    EXPECT_FALSE(Run(Action(atParkAcc)));
    EXPECT_TRUE(context.TestRunning);
    EXPECT_FALSE(engine.StopTest());
    EXPECT_FALSE(context.TestRunning);
    engine.StopAllActions();
}

}  // namespace
}  // namespace ace::test
