/// A list in memory that prints itself.
#pragma once

#include <ace/host/list_control.h>

#include "sim/sim_host.h"

namespace ace::sim {

/// Every call is one line of the host's journal and may be told to fail.
class SimList : public IListControl {
  public:
    explicit SimList(SimHost& host) : x_host(host) {}
    SimList(const SimList&) = delete;
    SimList& operator=(const SimList&) = delete;
    /// Tells its events that it goes.
    ~SimList() override;

    void SetEvents(IListEvents* events) override;
    void SetUp(const ListSetUp& setUp) override;
    void Clear() override;
    void Add(const String& key, const String& caption, const String& image) override;
    std::optional<String> Selected() override;

    /// A line for each item: `ACT:0 "Wait" WAI`, and "selected".
    String Text() const;

    // ---- the operator's acts: false when there is no such item, and where the list would tell
    // of it when nobody listens. A click alone tells nobody.

    /// Selects an item, or none by a click beside them.
    bool Click(const std::optional<String>& key);
    /// Clicks so, and once more.
    bool DoubleClick(const std::optional<String>& key);
    /// Starts to drag an item: what the drag carries. None when it can't be started.
    std::optional<DragData> Drag(const String& key);
    bool EndDrag();

  private:
    struct Item {
        String key;
        String caption;
        String image;
    };

    SimHost& x_host;
    IListEvents* x_events = nullptr;
    std::vector<Item> x_items;
    std::optional<String> x_selected;
};

}  // namespace ace::sim
