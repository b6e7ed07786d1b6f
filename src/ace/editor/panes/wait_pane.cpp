#include <cmath>

#include <ace/editor/field_limits.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/wait_pane.h>

namespace ace {

namespace {

constexpr std::int32_t Rows = 1;
constexpr double MillisecondsPerSecond = 1000.0;
constexpr double TimeOfNew = 10000.0;  ///< milliseconds

}  // namespace

WaitPane::WaitPane(Form& form, EditorParts& parts)
    : Pane(form, parts, DialogPane::Wait, L"Wait", Rows) {
    txtWait.onEndInput = [this] { CheckLimits(Context(), txtWait); };
}

void WaitPane::Show(const Statements& stmt, Boolean isNew) {
    aceWait& record = Records().Wait;
    record = stmt([&] { return RecordToShow<aceWait>(isNew, {TimeOfNew}); });
    stmt([&] { ShowValue(Context(), txtWait, record.Time / MillisecondsPerSecond); });
}

std::optional<Refusal> WaitPane::Read(const Statements& stmt) {
    const double typed = txtWait.Value() * MillisecondsPerSecond;
    if (typed == 0.0 || !std::isfinite(typed)) {
        return stmt([&] { return Refusal{LimitsText(Context(), txtWait), &txtWait}; });
    }
    aceWait& record = Records().Wait;
    const double shown = record.Time / MillisecondsPerSecond;
    const double seconds = stmt([&] { return ValueShown(Context(), txtWait, shown); });
    if (seconds != shown) {
        record.Time = seconds * MillisecondsPerSecond;
    }
    return std::nullopt;
}

}  // namespace ace
