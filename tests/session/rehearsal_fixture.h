/// What a test would do, in lines to be compared with those that were worked out by hand.
#pragma once

#include "session_fixture.h"
#include "workbench/session/rehearsal.h"

namespace ace::workbench {

class RehearsalTest : public FolderTest {
  protected:
    /// `prepare` may put devices on the bench, which is known then.
    void Rehearse(const std::string& text, const std::string& answersText = {},
                  const std::function<void(sim::SimHost&)>& prepare = {}) {
        Write("test.ini", text);
        const auto host = std::make_shared<TransportHost>(Clock::Virtual, TransportChoice());
        if (prepare) {
            prepare(*host);
        }
        Answers answers(FromUtf8(answersText), L"answers.txt");
        found = workbench::Rehearse(host, SetUpOf(text), answers, WidePath("test.ini"),
                                    {.hasBench = static_cast<bool>(prepare)});
    }
    /// "[ActionsOnTest] EnterAction1 x3: Wait: 0.500 s", in the order of the file; behind the
    /// number the device for which the action waits.
    std::vector<std::string> Actions() const {
        std::vector<std::string> lines;
        for (const RehearsedAction& action : found.actions) {
            lines.push_back(ToUtf8(L"[" + action.source.section + L"] " + EntryKey(action.source)) +
                            " x" + std::to_string(action.times) +
                            (action.watcher.empty() ? "" : " by " + ToUtf8(action.watcher)) + ": " +
                            ToUtf8(action.text));
        }
        return lines;
    }
    /// "NewFrequency 1: 3, NewFrequency 2: 2"
    static std::string MomentsText(const std::vector<RehearsedMoments>& moments) {
        std::string text;
        for (const RehearsedMoments& part : moments) {
            text += (text.empty() ? "" : ", ") + ToUtf8(MomentCallRowOf(part.call).operation) +
                    " " + std::to_string(part.number) + ": " + std::to_string(part.times);
        }
        return text;
    }
    /// "NewFrequency 1: 3, NewFrequency 2: 2; 5 actions, 0.5 s"
    std::vector<std::string> Lists() const {
        std::vector<std::string> lines;
        for (const RehearsedList& list : found.lists) {
            lines.push_back(MomentsText(list.moments) + "; " + std::to_string(list.begun) +
                            " actions, " + ToUtf8(SecondsText(list.workMs)));
        }
        return lines;
    }
    /// "GPIB 0:13 x2, 10 bytes"
    std::vector<std::string> Addresses() const {
        std::vector<std::string> lines;
        for (const RehearsedAddress& address : found.addresses) {
            lines.push_back(ToUtf8(address.transport + L" " + address.address) + " x" +
                            std::to_string(address.times) +
                            (address.isStarted ? std::string(", started")
                                               : ", " + std::to_string(address.bytes) + " bytes"));
        }
        return lines;
    }
    /// "Amp: operate x2, standby x1"
    std::vector<std::string> Devices() const {
        std::vector<std::string> lines;
        for (const RehearsedDevice& device : found.devices) {
            std::string deeds;
            for (const RehearsedDeed& deed : device.deeds) {
                deeds += (deeds.empty() ? "" : ", ") + ToUtf8(deed.words) + " x" +
                         std::to_string(deed.times);
            }
            lines.push_back(ToUtf8(device.name) + ": " + deeds);
        }
        return lines;
    }
    /// "question "Door?" x1, start of test, 1 from the file"
    std::vector<std::string> Dialogs() const {
        std::vector<std::string> lines;
        for (const RehearsedDialog& shown : found.dialogs) {
            lines.push_back(
                ToUtf8(String(WordOf(shown.dialog.kind)) + L" " +
                       QuotedLine(shown.dialog.message)) +
                " x" + std::to_string(shown.times) + ", " + ToUtf8(shown.moment) +
                (shown.fromFile == 0 ? "" : ", " + std::to_string(shown.fromFile) + " by file") +
                (shown.differs ? ", differs" : ""));
        }
        return lines;
    }
    /// "start of test: the test is stopped"
    std::vector<std::string> Ends() const {
        std::vector<std::string> lines;
        for (const RehearsedEnd& end : found.ends) {
            lines.push_back(ToUtf8(end.moment + L": " + end.words));
        }
        return lines;
    }
    Rehearsal found;
};

/// Keys of a list, one for each action.
inline std::string List(const std::string& count, const std::string& key,
                        const std::vector<std::string>& actions) {
    std::string text = count + "=" + std::to_string(actions.size()) + "\n";
    for (std::size_t i = 0; i < actions.size(); ++i) {
        text += key + std::to_string(i + 1) + "=" + actions[i] + "\n";
    }
    return text;
}
inline std::string Enter(const std::vector<std::string>& actions) {
    return List("NumOfEnterActions", "EnterAction", actions);
}
inline std::string Leave(const std::vector<std::string>& actions) {
    return List("NumOfLeaveActions", "LeaveAction", actions);
}
inline std::string Freq(const std::vector<std::string>& actions) {
    return List("NumOfFreqActions", "FrequAction", actions);
}
inline std::string Mlc(const std::vector<std::string>& actions) {
    return List("NumOfMlcActions", "MLLeaAction", actions);
}
/// 1, 2 and 4 Hz, then 1 and 2 Hz; a second on each.
inline const std::string ThreeAndTwo =
    "[Workbench.Subrange1]\nStartHz=1\nStopHz=4\nStepPercent=100\nDwellMs=1000\n"
    "[Workbench.Subrange2]\nStartHz=1\nStopHz=2\nStepPercent=100\nDwellMs=1000\n";
inline const std::string Single = "[Workbench]\nModule=0\nSubRanges=2\n" + ThreeAndTwo;
/// A test without frequencies that runs `actions` at its start.
inline std::string AtStart(const std::vector<std::string>& actions) {
    return "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n" + Enter(actions);
}

}  // namespace ace::workbench
