/// Where in a file a load stopped, and why; and which actions it passed over.
#pragma once

#include <vector>

#include <ace/core/thread_context.h>
#include <ace/settings/line_observer.h>

#include "workbench/session/action_places.h"

namespace ace::workbench {

/// Watches a load from its construction to its end and keeps the line that stopped it, and those of
/// actions whose keyword their list doesn't know. `places`, if any, is told of every line.
class LoadPlace final : public ILineObserver {
  public:
    explicit LoadPlace(ThreadContext& context, ActionPlaces* places = nullptr);
    ~LoadPlace() override;
    LoadPlace(const LoadPlace&) = delete;
    LoadPlace& operator=(const LoadPlace&) = delete;

    void SetStarts(const SetPlace& place) override;
    void SectionStarts(StringView section) override;
    void LineIsRead(const LineReport& report) override;

    /// One line about a load of `fileName` that ended with `error`: file, line number, section, the
    /// line and what is wrong with it. Without a line that stopped it: what the error says.
    String Describe(const String& fileName, const RunTimeError& error) const;
    /// One line about each action that was passed over, in the order of the load: section and line.
    const std::vector<String>& PassedOver() const { return x_passedOver; }

  private:
    ThreadContext& x_context;
    ILineObserver* x_before;
    ActionPlaces* x_places;
    String x_section;
    std::int32_t x_lineIndex = -1;  ///< of the line that stopped the load; -1 for none
    String x_line;
    String x_reason;
    std::vector<String> x_passedOver;
};

}  // namespace ace::workbench
