/// Where in a file a load stopped, and why.
#pragma once

#include <ace/core/thread_context.h>
#include <ace/settings/line_observer.h>

namespace ace::workbench {

/// Watches a load from its construction to its end and keeps the line that stopped it.
class LoadPlace final : public ILineObserver {
  public:
    explicit LoadPlace(ThreadContext& context);
    ~LoadPlace() override;
    LoadPlace(const LoadPlace&) = delete;
    LoadPlace& operator=(const LoadPlace&) = delete;

    void SectionStarts(StringView section) override;
    void LineIsRead(const LineReport& report) override;

    /// One line about a load of `fileName` that ended with `error`: file, line number, section, the
    /// line and what is wrong with it. Without a line that stopped it: what the error says.
    String Describe(const String& fileName, const RunTimeError& error) const;

  private:
    ThreadContext& x_context;
    ILineObserver* x_before;
    String x_section;
    std::int32_t x_lineIndex = -1;  ///< of the line that stopped the load; -1 for none
    String x_line;
    String x_reason;
};

}  // namespace ace::workbench
