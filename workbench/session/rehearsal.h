/// What a test would do, found out by running it where nothing leaves this machine and no time
/// passes.
#pragma once

#include <memory>
#include <vector>

#include "workbench/session/action_places.h"
#include "workbench/session/session.h"
#include "workbench/session/transport_host.h"

namespace ace::workbench {

/// An action of the file.
struct RehearsedAction {
    ActionSource source;
    String text;            ///< as the editor shows it; empty for an entry that came back empty
    std::size_t like = 0;   ///< index of the first action that is the same in all that it is told
    std::size_t times = 0;  ///< that it was begun; of parking at the end, that it was asked for
    /// The device whose readings alone begin its list, which this plan never did; otherwise empty.
    String watcher{};
};

/// Moments in which a list ran, one behind the other and of one kind and number.
struct RehearsedMoments {
    MomentCall call = MomentCall::StartTest;
    std::int32_t number = 0;  ///< of the subrange, sweep, step, test, row or channel; 0 for none
    std::size_t times = 0;
};

/// A list of which actions were begun.
struct RehearsedList {
    Moment first;                             ///< in which it ran first
    std::vector<RehearsedMoments> moments{};  ///< in which it ran, in their order
    std::size_t begin = 0;                    ///< its actions are `Rehearsal::actions` from here
    std::size_t end = 0;                      ///< up to here
    std::size_t begun = 0;                    ///< actions, with those that are asked for
    double workMs = 0.0;                      ///< time that they took
};

/// What stands on the operator's screen for one action.
struct RehearsedDialog {
    Dialog dialog;  ///< as it stands the first time
    String moment;  ///< in which it stands first
    Reply reply{};  ///< the first one
    std::size_t times = 0;
    std::size_t fromFile = 0;  ///< of which a line of the answers answers so many
    bool differs = false;      ///< the message is not the same each time
};

/// A place to which commands go, a program or a macro.
struct RehearsedAddress {
    String transport;        ///< as the traffic log calls it
    String address;          ///< of a program the file of its command line
    bool isStarted = false;  ///< a program or macro, no place for commands
    std::size_t times = 0;
    std::size_t bytes = 0;  ///< of all commands, with their terminators
};

/// Something that is done to a device.
struct RehearsedDeed {
    String words;
    std::size_t times = 0;
};
struct RehearsedDevice {
    String name;
    std::vector<RehearsedDeed> deeds{};
};

/// That the test ends before its time, or why.
struct RehearsedEnd {
    static constexpr std::size_t NoAction = static_cast<std::size_t>(-1);

    String moment;
    String words;
    bool isError = false;           ///< a run-time error, whose words name its action
    std::size_t action = NoAction;  ///< the one that failed, or behind which the test is stopped
    bool isAnswered = false;        ///< stopped as a line of the answers says
};

/// All of it, each thing in the order in which the test comes to it, the actions in that of the
/// file.
struct Rehearsal {
    Outcome outcome = Outcome::Finished;
    Summary counts;
    std::vector<RehearsedAction> actions;
    std::vector<RehearsedList> lists;
    std::vector<RehearsedDialog> dialogs;
    std::vector<RehearsedAddress> addresses;
    std::vector<RehearsedDevice> devices;
    std::vector<RehearsedEnd> ends;
    std::vector<GoneSection> gone;    ///< with actions of rows that the matrix has not
    std::size_t programsAwaited = 0;  ///< starts that wait for the program's confirmation
    /// Actions to park the accessories that the end of the test takes as one request: the engine
    /// begins none of them, so that no count of a run has them.
    std::size_t parkedAtTheEnd = 0;
};

/// What a rehearsal takes for given.
struct RehearsalOptions {
    bool hasBench = true;     ///< otherwise each device is there that an action names
    bool hasOperator = true;  ///< he says Yes, OK or Ignore; without him nobody answers a question
};

/// Runs the test of `file` on `host`, whose clock is virtual and whose transports are simulated.
/// The answers come before the operator, and equipment under test that the bench has is well. A
/// file that can't be loaded is `CommandError` `BadFile`.
Rehearsal Rehearse(const std::shared_ptr<TransportHost>& host, const TestSetUp& setUp,
                   Answers& answers, const String& file, const RehearsalOptions& options);

}  // namespace ace::workbench
