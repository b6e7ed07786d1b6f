/// Where the actions of a loaded file come from.
#pragma once

#include <optional>
#include <vector>

#include <ace/core/action_lists.h>
#include <ace/settings/line_observer.h>

namespace ace::workbench {

/// The entry of a file that an action is.
struct ActionSource {
    String section;
    std::int32_t list = 0;   ///< number of its list, from 1
    std::int32_t entry = 0;  ///< index in the list, from 0
    /// Index of its line in the section, from 0: that of the last line that filled it or, of an
    /// entry that came back empty, the line with its key that was passed over. -1 for none.
    std::int32_t lineIndex = -1;
};

/// An action of the lists with its source.
struct PlacedAction {
    const p_Action* action;
    ActionSource source;
    const DynArray<p_Action>* list;  ///< in which it stands
};

/// A section whose actions stand in no list any more.
struct GoneSection {
    String section;
    std::size_t actions = 0;  ///< at least one
};

/// "EnterAction3"
String EntryKey(const ActionSource& source);
/// "file.ini:33: [ActionsOnSR1] EnterAction3 "WAIT:100"", as the file has it now; without what
/// can't be read any more.
String SourceText(const String& fileName, const ActionSource& source);

/// Keeps, during loads that it is told of, which line filled which entry. The lists of the engines
/// must outlive what is asked afterwards, and have the sets in the places in which they were read
/// or of which `SetsMoved` was told.
class ActionPlaces final : public ILineObserver {
  public:
    void SetStarts(const SetPlace& place) override;
    void SectionStarts(StringView section) override;
    void LineIsRead(const LineReport& report) override;

    /// Numbered sets have moved: the one that was read into element `i` of `sets` stands in element
    /// `indexes[i]` now; -1 for one that is gone.
    void SetsMoved(const DynArray<p_Subrange>& sets, const std::vector<std::int32_t>& indexes);

    /// The sections with actions that were read into sets that are gone, in the order of the load.
    std::vector<GoneSection> Gone() const;

    /// The source of an action that stands in one of the lists; nothing for any other address. It
    /// takes time in proportion to the number of sections.
    std::optional<ActionSource> Find(const p_Action* action) const;
    /// All actions of the lists, in the order in which their sets were read.
    std::vector<PlacedAction> All() const;

  private:
    struct EntryLineOf {
        std::int32_t list;
        std::int32_t entry;
        std::int32_t lineIndex;
        bool isAction;  ///< not one that was passed over
    };
    struct FilledSet {
        SetPlace place;
        String section;
        std::vector<EntryLineOf> entries;
    };

    static void AppendAll(const FilledSet& filled, const p_Subrange& set,
                          std::vector<PlacedAction>& all);

    std::vector<FilledSet> x_sets;
};

}  // namespace ace::workbench
