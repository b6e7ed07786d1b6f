#include <ace/settings/action_line.h>
#include <ace/settings/line_reporter.h>

namespace ace {

namespace {

String InQuotes(StringView text) {
    return L"\"" + String(text) + L"\"";
}

/// A number that is one, but too large, fails with error 6; anything else is none at all.
String NumberReason(const LineStep& step, std::int32_t error, StringView wanted) {
    return InQuotes(step.text) + (error == Errors::Overflow ? L" is too large" : String(wanted));
}

String ListReason(const LineStep& step, const RunTimeError& error) {
    const String count = std::to_wstring(step.number);
    if (step.number < 1) {
        return L"a list of " + count + L" entries can't be made";
    }
    if (step.number > MostEntries) {
        return count + L" entries are more than " + std::to_wstring(MostEntries);
    }
    return error.Description();
}

/// What is wrong, in words that need no knowledge of the reader. Fields count from 1 here.
String Reason(const LineStep& step, const RunTimeError& error) {
    switch (step.kind) {
        case LineStep::FindEqualSign:
            return L"there is no \"=\"";
        case LineStep::FindColon:
            return L"there is no \":\" behind the \"=\"";
        case LineStep::FindComma:
            return L"the value has fewer than two commas";
        case LineStep::FindField:
            return L"the value ends before field " + std::to_wstring(step.number + 1);
        case LineStep::NeedNumber:
            return NumberReason(step, error.Number(), L" is not a number");
        case LineStep::NeedTruth:
            return NumberReason(step, error.Number(), L" is neither a number nor true or false");
        case LineStep::MakeList:
            return ListReason(step, error);
        case LineStep::FindEntry:
            return L"entry number " + InQuotes(step.text) + L" is outside the list, which has " +
                   std::to_wstring(step.number);
        case LineStep::UseMoniDev:
            return L"this form needs at least three fields";
        case LineStep::Plain:
            break;
    }
    return error.Description();
}

}  // namespace

LineReporter::LineReporter(ILineObserver& observer, StringView section)
    : x_observer(observer), x_section(section) {
    for (const LineFieldRow& row : LineFieldTable) {
        x_origins[static_cast<std::size_t>(row.field)] =
            row.isReset ? FromReset : FromEarlierSection;
    }
    x_observer.SectionStarts(section);
}

void LineReporter::Read(LineReport& report) {
    Complete(report);
    x_observer.LineIsRead(report);
}

void LineReporter::Stopped(LineReport& report, const LineStep& step) {
    const RunTimeError error = CurrentRunTimeError();
    report.error = error.Number();
    report.reason = Reason(step, error);
    report.failedStep = step.kind;
    Complete(report);
    x_observer.LineIsRead(report);
}

void LineReporter::Complete(LineReport& report) {
    report.section = x_section;
    report.origins = &x_origins;
    if (report.meaning == LineMeaning::Entry) {
        report.inherited = FieldsOf(FindActionKind(report.row->kind)->record).Without(report.set);
    }
    for (const LineFieldRow& row : LineFieldTable) {
        if (report.set.Contains(row.field)) {
            x_origins[static_cast<std::size_t>(row.field)] = report.lineIndex;
        }
    }
}

}  // namespace ace
