/// What a session tells its listener beside words.
#include "session_fixture.h"
#include "workbench/session/transport_host.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;

/// Keeps lines with their kinds, and moments with their costs.
class KeptKinds final : public SessionListener {
  public:
    bool WantsEffects() const override { return wantsEffects; }
    void OnLine(const Place&, LineKind kind, const String& words) override {
        static constexpr const char* Names[] = {"effect",  "failure", "dialog", "verdict",
                                                "comment", "request", "ending", "error"};
        lines.push_back(Names[static_cast<std::size_t>(kind)] + std::string(": ") + ToUtf8(words));
    }
    void OnMomentStarts(const Moment& moment) override {
        moments.push_back("begin " + ToUtf8(MomentWords(moment)));
    }
    void OnMomentEnds(const Moment& moment, const MomentCost& cost) override {
        moments.push_back("end " + ToUtf8(MomentWords(moment)) + ", " +
                          std::to_string(cost.actions) + " actions, " +
                          ToUtf8(SecondsText(cost.startMs)) + " to " +
                          ToUtf8(SecondsText(cost.endMs)));
    }
    bool wantsEffects = true;
    std::vector<std::string> lines;
    std::vector<std::string> moments;
};

class ListenerTest : public FolderTest {
  protected:
    /// The bus device at 12:5 is absent, and a macro can't be started.
    void Run(const std::string& text) {
        Write("test.ini", text);
        const auto host = std::make_shared<TransportHost>(Clock::Virtual, TransportChoice());
        host->instruments.absentGpib.insert(1205);
        host->macros[L"bad.mac"].starts = false;
        host->macros[L"bad.mac"].errorText = L"no licence";
        Answers answers(L"* | question | * | always Yes\n", L"answers.txt");
        Session session(host, SetUpOf(text), answers, kept);
        session.Load(WidePath("test.ini"));
        session.Run();
    }
    KeptKinds kept;
};

std::string WirelessStep(const std::string& actions) {
    return "[Workbench]\nModule=7\nSubRanges=1\n[ActionsOnTest1_VKS]\nVKS_UKey=T\nSUBSTEPS=1\n"
           "[ActionsOnStepT_1_VKS]\nVKS_Name=Power\nVKS_Key=P\n[ActionsOnStepT_1]\n" +
           actions;
}

TEST_F(ListenerTest, EachLineHasItsKind) {
    Run(
        WirelessStep("NumOfEnterActions=4\nEnterAction1=WAIT:500\n"
                     "EnterAction2=REMOTE:*RST,0,1205,0,,0,\nEnterAction3=QUESTION:Good?,,0\n"));
    EXPECT_THAT(kept.lines,
                ElementsAre("effect: wait 0.5 s",
                            "effect: GPIB 12:5: failed: the device can't be opened (simulated)",
                            "failure: failure \"A remote command could not be sent. / GPIB "
                            "address: 1205 / Command: *RST\": Ignore",
                            "dialog: question \"Good?\": Yes",
                            "effect: error report: error 13, type mismatch",
                            "error: ERROR 13: type mismatch at " + Path("test.ini") +
                                ": [ActionsOnStepT_1] EnterAction4",
                            "verdict: verdict of \"Power\": n.a., because the step was broken off",
                            "ending: the test is stopped"));
}

TEST_F(ListenerTest, OnlyEffectsCanBeUnwanted) {
    kept.wantsEffects = false;
    Run(
        WirelessStep("NumOfEnterActions=2\nEnterAction1=WAIT:500\nEnterAction2=QUESTION:Good?,,0"
                     "\n"));
    EXPECT_THAT(kept.lines, ElementsAre("dialog: question \"Good?\": Yes",
                                        "verdict: verdict of \"Power\": passed"));
}

TEST_F(ListenerTest, AMessageBoxIsToldWhereEffectsAreUnwanted) {
    kept.wantsEffects = false;
    Run("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
        "EnterAction1=API:bad.mac\n");
    EXPECT_THAT(kept.lines,
                ElementsAre("dialog: message \"no licence\"", "ending: the test is stopped"));
}

TEST_F(ListenerTest, AMomentIsToldAroundWhatHappensInItWithItsActionsAndItsTime) {
    Run("[Workbench]\nModule=6\n[Workbench.Subrange1]\nStartHz=1\nStopHz=1\nStepPercent=1\n"
        "DwellMs=250\n[ActionsOnAzimuthChart]\nNumOfEnterActions=2\nEnterAction1=WAIT:500\n"
        "EnterAction2=SOUND:\nNumOfFreqActions=1\nFrequAction1=WAIT:1000\n");
    EXPECT_THAT(kept.moments,
                ElementsAre("begin start of test", "end start of test, 2 actions, 0 s to 0.5 s",
                            "begin new frequency", "end new frequency, 1 actions, 0.5 s to 1.75 s",
                            "begin end of test", "end end of test, 0 actions, 1.75 s to 1.75 s"));
}

}  // namespace
}  // namespace ace::workbench
