#include "sim/sim_list.h"

#include <algorithm>
#include <utility>

namespace ace::sim {

SimList::~SimList() {
    if (IListEvents* const events = std::exchange(x_events, nullptr)) {
        events->ControlGone();
    }
}

void SimList::SetEvents(IListEvents* events) {
    x_events = nullptr;
    x_host.Call(L"List.SetEvents", CallText(events != nullptr));
    x_events = events;
}

void SimList::SetUp(const ListSetUp& setUp) {
    x_host.Call(L"List.SetUp", CallText(static_cast<std::int32_t>(setUp.images.size()), setUp.view,
                                        setUp.dragMode, setUp.hideSelection));
}

void SimList::Clear() {
    x_host.Call(L"List.Clear", {});
    x_items.clear();
    x_selected.reset();
}

/// A list holds a few items, so that a look at all of them is the quickest.
void SimList::Add(const String& key, const String& caption, const String& image) {
    x_host.Call(L"List.Add", CallText(key, caption, image));
    if (std::ranges::find(x_items, key, &Item::key) != x_items.end()) {
        Raise(Errors::KeyInUse);
    }
    x_items.push_back({key, caption, image});
}

std::optional<String> SimList::Selected() {
    x_host.Call(L"List.Selected", {}, true);
    return x_selected;
}

String SimList::Text() const {
    String text;
    for (const Item& item : x_items) {
        text += item.key + L" " + Quoted(item.caption) + L" " + item.image;
        text += x_selected == item.key ? L" selected\n" : L"\n";
    }
    return text;
}

// ---- the operator's acts -----------------------------------------------------------------------

bool SimList::Click(const std::optional<String>& key) {
    if (key && std::ranges::find(x_items, *key, &Item::key) == x_items.end()) {
        return false;
    }
    x_selected = key;
    return true;
}

bool SimList::DoubleClick(const std::optional<String>& key) {
    if (x_events == nullptr || !Click(key)) {
        return false;
    }
    x_events->DoubleClicked();
    return true;
}

std::optional<DragData> SimList::Drag(const String& key) {
    if (x_events == nullptr || !Click(key)) {
        return std::nullopt;
    }
    DragData data;
    x_events->DragStarted(data);
    return data;
}

bool SimList::EndDrag() {
    if (x_events == nullptr) {
        return false;
    }
    x_events->DragEnded();
    return true;
}

}  // namespace ace::sim
