/// The reader's side of the observer: keeps what a report needs beyond the line itself.
#pragma once

#include <ace/settings/entry_line.h>
#include <ace/settings/line_observer.h>

namespace ace {

/// Tells an observer of the lines of one section. Made only when there is one.
class LineReporter {
  public:
    LineReporter(ILineObserver& observer, StringView section);
    /// A line that was read.
    void Read(LineReport& report);
    /// A line at which the reading ends. To be called while the error is in flight.
    void Stopped(LineReport& report, const LineStep& step);

  private:
    void Complete(LineReport& report);

    ILineObserver& x_observer;
    StringView x_section;
    FieldOrigins x_origins;
};

}  // namespace ace
