#include "workbench/cli/sure_end.h"

#include <algorithm>
#include <set>

#include "workbench/files/text_encoding.h"
#include "workbench/session/bench_host.h"
#include "workbench/session/rehearsal.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

Rehearsal RehearsalOf(const TestArguments& arguments, bool hasOperator, const TestSetUp& setUp,
                      Answers answers) {
    const auto host = std::make_shared<BenchHost>(Clock::Virtual, TransportChoice(),
                                                  std::make_shared<FaultRules>());
    ReadBench(arguments, *host);
    return Rehearse(host, setUp, answers, FromUtf8(arguments.file), {.hasOperator = hasOperator});
}

/// The message of an error has the place of its action; a stop has none of its own.
String EndWords(const String& file, const Rehearsal& rehearsal, const RehearsedEnd& end) {
    const bool hasAction = end.action != RehearsedEnd::NoAction;
    const String place =
        hasAction && !end.isError ? SourceText(file, rehearsal.actions[end.action].source) : file;
    const bool isOpenQuestion = rehearsal.outcome == Outcome::Unanswered;
    return place + L": " + end.moment + L": " +
           (end.isError      ? end.words
            : isOpenQuestion ? String(L"nobody answers this question, so the test is stopped "
                                      L"(--answers or --ask)")
                             : L"here " + end.words);
}

/// The places of the actions that are begun: section and key.
std::set<std::pair<String, String>> BegunPlaces(const Rehearsal& rehearsal) {
    std::set<std::pair<String, String>> places;
    for (const RehearsedAction& action : rehearsal.actions) {
        if (action.times > 0) {
            places.emplace(action.source.section, EntryKey(action.source));
        }
    }
    return places;
}

}  // namespace

String WhyItSurelyEnds(const TestArguments& arguments, bool hasOperator, const TestSetUp& setUp,
                       const Answers& answers, const std::vector<Finding>& findings) {
    const Rehearsal rehearsal = RehearsalOf(arguments, hasOperator, setUp, answers);
    const auto end = std::ranges::find(rehearsal.ends, false, &RehearsedEnd::isAnswered);
    if (end != rehearsal.ends.end()) {
        return EndWords(FromUtf8(arguments.file), rehearsal, *end);
    }
    const auto begun = BegunPlaces(rehearsal);
    const auto finding = std::ranges::find_if(findings, [&](const Finding& candidate) {
        return EndsTest(candidate) &&
               begun.contains({candidate.place.section, candidate.place.entry});
    });
    return finding != findings.end() ? FindingWords(*finding) : String();
}

}  // namespace ace::workbench
