#include "support/every_kind.h"

#include <algorithm>
#include <set>

#include <ace/core/action_kinds.h>
#include <ace/execution/dispatcher.h>
#include <ace/settings/keyword_table.h>

namespace ace::test {
namespace {

/// What is wrong with the row of `kind` in each table that has one for every kind; empty for
/// nothing. A kind that is added and forgotten somewhere is named with the table.
std::string Missing(p_ActionTypes kind) {
    std::string missing;
    const auto require = [&](bool isThere, const char* table) {
        if (!isThere) {
            missing += std::string(missing.empty() ? "" : ", ") + table;
        }
    };
    const ActionKind* row = FindActionKind(kind);
    require(row != nullptr && row->kind == kind && row->icon.size() == 3, "core/action_kinds");
    require(FindWriter(kind) != nullptr, "settings/keyword_table: a row that is written");
    const auto keywords = KeywordTable();
    require(std::any_of(keywords.begin(), keywords.end(),
                        [&](const KeywordRow& keyword) {
                            return keyword.kind == kind && keyword.lists != 0;
                        }),
            "settings/keyword_table: a list that knows it");
    const bool onlyAsksTheHost = kind == atParkAcc;
    require(modActions::ActingKinds.Has(kind) != onlyAsksTheHost, "execution/dispatcher");
    return missing;
}

TEST(EveryKind, HasARowInEveryTableOfKinds) {
    for (std::int32_t kind = 0; kind < ActionKindCount; ++kind) {
        EXPECT_EQ(Missing(static_cast<p_ActionTypes>(kind)), "") << "kind " << kind;
    }
}

TEST(EveryKind, OutsideTheMembersNoTableHasARow) {
    for (const std::int32_t kind : {-1, 18, 31, 32, 2147483647}) {
        EXPECT_EQ(FindActionKind(kind), nullptr);
        EXPECT_EQ(FindWriter(static_cast<p_ActionTypes>(kind)), nullptr);
        EXPECT_FALSE(modActions::ActingKinds.Has(kind));
    }
}

TEST(EveryKind, HasALineThatIsReadIntoItsRecordUnlessItHasNone) {
    for (const KeywordRow& keyword : KeywordTable()) {
        const bool hasRecord = FindActionKind(keyword.kind)->record != RecordType::None;
        EXPECT_EQ(keyword.read != nullptr, hasRecord) << keyword.kind;
    }
}

TEST(EveryKind, HasAPaneExactlyWhenItHasARecord) {
    for (const ActionKind& row : ActionKinds()) {
        EXPECT_EQ(row.pane != DialogPane::None, row.record != RecordType::None) << row.kind;
    }
}

TEST(EveryKind, HasAnIconOfItsOwn) {
    std::set<StringView> icons;
    for (const ActionKind& row : ActionKinds()) {
        EXPECT_TRUE(icons.insert(row.icon).second) << row.kind;
    }
}

/// The lists of the generated tests: they hold what a line may name, and nothing else.
TEST(EveryKind, StandsInTheTestsListsThatKnowIt) {
    for (const KeywordRow& keyword : KeywordTable()) {
        for (std::size_t i = 0; keyword.write != nullptr && i < std::size(ActionLists); ++i) {
            const std::vector<p_Action> actions = EveryKindOf(ActionLists[i]);
            const bool isThere = std::ranges::any_of(
                actions, [&](const p_Action& action) { return action.ActionType == keyword.kind; });
            EXPECT_EQ(isThere, keyword.IsKnownIn(i)) << "kind " << keyword.kind << ", list " << i;
        }
    }
}

}  // namespace
}  // namespace ace::test
