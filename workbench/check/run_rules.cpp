// What a test does with an action when it runs.
#include <algorithm>
#include <set>

#include <ace/core/moment_table.h>
#include <ace/core/text.h>
#include <ace/execution/what_runs.h>
#include <ace/settings/action_line.h>

#include "workbench/check/rule_tests.h"
#include "workbench/session/wireless_run.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::int32_t FreqListNumber = 3;

bool IsAtFrequency(const CheckedAction& action) {
    return action.line.list == FreqListNumber && action.section.fixed != nullptr &&
           FrequencySetOf(action.section.moduleKind) == action.section.fixed;
}

/// Only a single test follows the frequency with its devices.
bool TracksFrequency(const CheckedAction& action) {
    return IsAtFrequency(action) && action.section.moduleKind == aceTemplate;
}

/// What the lists of a monitoring channel say goes to the channel.
bool IsOfChannel(const CheckedSection& section) {
    return section.sets == &ModuleLists::MoniChannels;
}

/// Nothing but messages to the operator stands behind it in its list.
bool IsLastButForMessages(const CheckedAction& action) {
    const ListFields& list = ActionLists[action.line.list - 1];
    const p_Subrange& set = action.section.Lists();
    for (std::int32_t i = action.line.entry + 1; i < set.*list.count; ++i) {
        if ((set.*list.actions)[i].ActionType != atNotify) {
            return false;
        }
    }
    return true;
}

/// The texts of an action in which placeholders are replaced.
std::vector<String> TextsOf(const CheckedAction& action) {
    std::vector<String> texts;
    if (const auto* const notify = action.As<aceNotify>()) {
        texts.push_back(notify->Message);
    } else if (const auto* const remote = action.As<aceRemote>()) {
        texts = {remote->Command, remote->Program};
    } else if (const auto* const macro = action.As<aceAPI>()) {
        for (std::int32_t i = 1; i <= macro->Parameters.UpperBound(); ++i) {
            texts.push_back(macro->Parameters[i]);
        }
    }
    return texts;
}

/// "#FREQ#" and the like: letters, digits and "_" between two "#". Small letters are a slip.
std::vector<String> PlaceholdersIn(const String& text) {
    constexpr StringView Letters =
        L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    std::vector<String> names;
    std::size_t begin = text.find(L'#');
    while (begin != String::npos) {
        const std::size_t end = text.find(L'#', begin + 1);
        if (end == String::npos) {
            break;
        }
        const StringView name = StringView(text).substr(begin + 1, end - begin - 1);
        const bool isName = !name.empty() && name.find_first_not_of(Letters) == StringView::npos;
        if (isName) {
            names.push_back(text.substr(begin, end + 1 - begin));
        }
        begin = isName ? text.find(L'#', end + 1) : end;
    }
    return names;
}

bool IsReplaced(const CheckedAction& action, const String& name) {
    const TestSetUp& setUp = action.file.Input().setUp;
    const bool isWireless = setUp.moduleKind == aceVKSTemplate || setUp.moduleKind == aceVKSDUT;
    const bool isGiven =
        isWireless &&
        std::ranges::find(setUp.placeholders, name, &Placeholder::name) != setUp.placeholders.end();
    const std::span<const StringView> ofRows = RowPlaceholders();
    const bool isOfRow = setUp.moduleKind == aceVKSDUT &&
                         std::ranges::find(ofRows, StringView(name)) != ofRows.end();
    return isGiven || isOfRow || (action.As<aceAPI>() != nullptr && name == L"#FREQ#");
}

}  // namespace

void RuleTests::SkippedAtFrequency(const CheckedAction& action, const Found& found) {
    if (IsAtFrequency(action) && !FrequencyKinds.Has(action.action.ActionType)) {
        found.At(action, {action.line.keyword});
    }
}

void RuleTests::ListNeverRuns(const CheckedFile& file, const CheckedSection& section,
                              const Found& found) {
    for (const CheckedLine& line : section.lines) {
        if (line.meaning == LineMeaning::Count && line.count > 0 && !section.Runs(line.list)) {
            found.At(file, section, line,
                     {Counted(static_cast<std::size_t>(line.count), L"action", L"actions")});
        }
    }
}

void RuleTests::TrackingOutside(const CheckedAction& action, const Found& found) {
    if (action.action.ActionType == atTrackFreq && IsAtFrequency(action) &&
        action.section.moduleKind != aceTemplate) {
        found.At(action);
    }
}

/// What stands behind it is passed over, and so is the rest of the test.
void RuleTests::StopsHere(const CheckedAction& action, const Found& found) {
    if (action.action.ActionType == atTestStop && !IsOfChannel(action.section) &&
        !IsAtFrequency(action) && action.section.Runs(action.line.list)) {
        found.At(action);
    }
}

void RuleTests::TracksNothing(const CheckedAction& action, const Found& found) {
    const std::optional<std::int32_t> kind = action.file.Input().setUp.testKind;
    if (action.action.ActionType == atTrackFreq && TracksFrequency(action) && kind &&
        FollowsNoFrequency(*kind)) {
        found.At(action, {std::to_wstring(*kind)});
    }
}

/// Results of a monitoring channel; in a walk that only goes on or ends, each of them ends it.
void RuleTests::SignalStopsTest(const CheckedAction& action, const Found& found) {
    constexpr KindSet Results(atComment, atGotoSingle, atStopLevSweep, atNbBbEtsi);
    if (Results.Has(action.action.ActionType) && !IsOfChannel(action.section) &&
        action.section.Runs(action.line.list)) {
        found.At(action, {action.line.keyword});
    }
}

void RuleTests::ParksNothing(const CheckedAction& action, const Found& found) {
    const bool parks =
        ParksAtTheEnd(action.section.moduleKind) && action.section.IsEndOfTest(action.line.list);
    if (action.action.ActionType == atParkAcc && !parks) {
        found.At(action);
    }
}

/// At the end of the test the last words to the operator hold nothing up.
void RuleTests::WaitsForOperator(const CheckedAction& action, const Found& found) {
    if (!action.section.Runs(action.line.list)) {
        return;
    }
    const auto* const track = action.As<aceTrackFreq>();
    if (track != nullptr && !track->GenName.empty() && track->AskOnMeasStart &&
        TracksFrequency(action)) {
        found.At(action, {L"whether " + QuotedLine(track->GenName) + L" is to be on"});
    }
    const auto* const notify = action.As<aceNotify>();
    const std::int32_t kind = action.action.ActionType;
    if (notify == nullptr || notify->Message.empty() || IsAtFrequency(action) ||
        (kind != atNotify && kind != atQuestion)) {
        return;
    }
    const bool isLast = kind == atNotify && action.section.IsEndOfTest(action.line.list) &&
                        IsLastButForMessages(action);
    const Answers* const answers = action.file.Input().answers;
    const PromptKind prompt = kind == atQuestion ? PromptKind::Question : PromptKind::Notification;
    const bool isAnswered = answers != nullptr && answers->CanAnswer(prompt, notify->Message);
    if (!isLast && !isAnswered) {
        found.At(action, {QuotedLine(notify->Message)});
    }
}

void RuleTests::PlaceholderStays(const CheckedAction& action, const Found& found) {
    std::set<String> told;
    for (const String& text : TextsOf(action)) {
        for (const String& name : PlaceholdersIn(text)) {
            if (!IsReplaced(action, name) && told.insert(name).second) {
                found.At(action, {name});
            }
        }
    }
}

}  // namespace ace::workbench
