/// The host's list in which the editor offers the kinds of actions.
#pragma once

#include <optional>
#include <vector>

#include <ace/host/mouse.h>

namespace ace {

/// What a list hands on to the editor. Errors come out at the list; messages may run inside
/// `DoubleClicked`.
class IListEvents {
  public:
    virtual ~IListEvents() = default;
    virtual void DoubleClicked() = 0;
    /// The operator starts to drag the selected item: what does the drag carry? Copy and move are
    /// allowed; whatever comes of the drop, the list keeps its items.
    virtual void DragStarted(DragData& data) = 0;
    /// The drag has ended, dropped or not.
    virtual void DragEnded() = 0;
    /// The control goes and must not be used any more. Raises nothing.
    virtual void ControlGone() noexcept = 0;
};

/// How a list is to look and behave.
struct ListSetUp {
    /// Icons and captions in columns of a list.
    static constexpr std::int32_t ListView = 2;
    /// A drag starts by itself when the mouse is moved with its button down.
    static constexpr std::int32_t DragAutomatic = 1;

    std::vector<String> images = {};  ///< keys of the icons that items have; the pictures are the
                                      ///< host's
    std::int32_t view = ListView;
    std::int32_t dragMode = DragAutomatic;
    Boolean hideSelection = false;  ///< without the focus, the list doesn't show what is selected
};

/// A list of items, each with a key of its own. The host owns it and hands it to
/// `aceActionsEngine::LoadEditor`. No operation lets messages run. A failure is a run-time error;
/// `Errors::KeyInUse` is one of the list's own.
class IListControl {
  public:
    virtual ~IListControl() = default;
    /// Tells who hears of the operator's acts, and of the end of the control: one that goes while
    /// it has events calls `ControlGone`. They stay the editor's; none ends that. A call that
    /// raises leaves the control without events.
    virtual void SetEvents(IListEvents* events) = 0;
    /// A host with a look of its own may leave out what it likes.
    virtual void SetUp(const ListSetUp&) {}
    /// Removes all items.
    virtual void Clear() = 0;
    /// Adds an item behind the others. A key that is there already: error 457, and no item.
    virtual void Add(const String& key, const String& caption, const String& image) = 0;
    /// Key of the selected item; none when no item is selected.
    virtual std::optional<String> Selected() = 0;
};

}  // namespace ace
