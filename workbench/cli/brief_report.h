/// What a run prints with "--brief".
#pragma once

#include <optional>
#include <vector>

#include "workbench/cli/console_report.h"

namespace ace::workbench {

/// Prints a session without its single effects: each moment with its actions and the time it took,
/// behind what the operator was shown in it, failures, verdicts, comments, requests and errors. A
/// stretch of frequencies is one moment, and so are the rows of a matrix; of a line that comes
/// again and again in one, the first and the last are printed.
class BriefReport final : public SessionListener {
  public:
    /// `report`, which does the printing, and `setUp` must outlive the object.
    BriefReport(ConsoleReport& report, const TestSetUp& setUp) : x_report(report), x_setUp(setUp) {}

    bool WantsEffects() const override { return false; }
    void OnLine(const Place& place, LineKind kind, const String& words) override;
    void OnMomentStarts(const Moment& moment) override;
    void OnMomentEnds(const Moment& moment, const MomentCost& cost) override;
    void OnProgress(std::size_t done, std::size_t total) override;

  private:
    /// A line that came more than once, as it came last.
    struct Repeated {
        Place place;
        LineKind kind;
        String words;
        std::size_t times;
    };
    /// Moments that are told as one.
    struct Stretch {
        Moment first;
        Moment last;
        std::size_t count = 0;  ///< of frequencies or rows
        std::size_t actions = 0;
        double workMs = 0.0;
        double endMs = 0.0;
        std::vector<Repeated> lines{};
    };

    bool IsPartOfStretch(const Moment& moment) const;
    bool StandsBesideStretch(const Moment& moment) const;
    void CloseStretch();
    String WordsOf(const Stretch& stretch) const;

    ConsoleReport& x_report;
    const TestSetUp& x_setUp;
    std::optional<Stretch> x_stretch;
    bool x_isInMoment = false;
    bool x_isBeside = false;  ///< the moment that runs does not belong to the stretch
};

}  // namespace ace::workbench
