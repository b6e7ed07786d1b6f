/// Effects of a drag over every node of a tree, as tables tell them.
#pragma once

#include "editor/mouse_acts.h"

namespace ace::test {

/// The effects with each of them. The cursor shows a move where a drop with Shift makes a copy:
/// Control alone is a copy.
inline constexpr StringView Moves = L"22122222";
/// Of a line over another one of its list.
inline constexpr StringView MovesOnly = L"22222222";
inline constexpr StringView Copies = L"11111111";
inline constexpr StringView Nothing = L"00000000";

class DragEffects : public MouseTest {
  protected:
    /// The keys of a text; a slash before one stands for all lines below that moment.
    Lines Keys(StringView words) {
        Lines keys;
        for (std::size_t begin = 0; begin < words.size();) {
            const std::size_t end = std::min(words.find(L' ', begin), words.size());
            const String word(words.substr(begin, end - begin));
            if (word.starts_with(L"/")) {
                Append(keys, LineKeys(word.substr(1)));
            } else if (!word.empty()) {
                keys.push_back(word);
            }
            begin = end + 1;
        }
        return keys;
    }
    /// The effects of a drag over that node, one for each way to hold the keys.
    String EffectsOver(const DragData& data, const String& key) {
        String effects;
        for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
            effects += std::to_wstring(tree.DragOver(data, key, shift));
        }
        host->journal.Clear();
        return effects;
    }
    /// A table is to tell of each node once.
    void ExpectAllKeys(Lines told) {
        Lines all = AllKeys();
        std::ranges::sort(all);
        std::ranges::sort(told);
        EXPECT_EQ(told, all);
    }

  private:
    Lines LineKeys(const String& moment) {
        Lines keys;
        const TreeNode node = tree.Find(moment);
        for (TreeNode line = tree.FirstChild(node); line; line = tree.NextSibling(line)) {
            keys.push_back(tree.Key(line));
        }
        EXPECT_FALSE(keys.empty()) << testing::PrintToString(moment);
        return keys;
    }
};

}  // namespace ace::test
