#include "workbench/files/name_index.h"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>

#include "support/sample.h"

namespace ace::workbench {
namespace {

/// An index of the names in a list, and the list.
struct Names {
    std::vector<std::string> names;
    NameIndex index;

    auto Has(const std::string& name) const {
        return [this, &name](std::size_t number) { return Same(names[number], name); };
    }
    std::size_t Find(const std::string& name) const { return index.Find(name, Has(name)); }
    void Add(const std::string& name) {
        index.Add(name, names.size());
        names.push_back(name);
    }
    void Remove(const std::string& name) { index.Remove(name, Has(name)); }

    static std::string Lower(std::string text) {
        for (char& c : text) {
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        }
        return text;
    }
    static bool Same(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }
};

TEST(NameIndex, AnEmptyOneHasNoName) {
    Names names;
    EXPECT_EQ(names.Find("a"), NameIndex::None);
    names.Remove("a");
    names.index.Reserve(0);
    EXPECT_EQ(names.Find(""), NameIndex::None);
}

TEST(NameIndex, TheCaseOfTheLettersDoesNotCount) {
    Names names;
    names.Add("ActionsOnTest");
    names.Add("");
    names.Add("\xC4\xD6");
    EXPECT_EQ(names.Find("ACTIONSONTEST"), 0U);
    EXPECT_EQ(names.Find(""), 1U);
    EXPECT_EQ(names.Find("\xC4\xD6"), 2U);
    EXPECT_EQ(names.Find("\xE4\xF6"), NameIndex::None);
}

TEST(NameIndex, ARemovedNameIsGoneAndCanBeAddedAnew) {
    Names names;
    names.Add("a");
    names.Add("b");
    names.Remove("A");
    EXPECT_EQ(names.Find("a"), NameIndex::None);
    EXPECT_EQ(names.Find("b"), 1U);
    names.Add("a");
    EXPECT_EQ(names.Find("a"), 2U);
}

TEST(NameIndex, ManyActsEndLikeThoseOfAMap) {
    Names names;
    std::map<std::string, std::size_t> model;
    std::mt19937 random(test::FirstSeed());
    for (int i = 0; i < (test::WantsAll() ? 500000 : 20000); ++i) {
        const std::string name = "Name" + std::to_string(random() % 500);
        const auto found = model.find(name);
        ASSERT_EQ(names.Find(name), found == model.end() ? NameIndex::None : found->second);
        if (found == model.end()) {
            model[name] = names.names.size();
            names.Add(name);
        } else {
            model.erase(found);
            names.Remove(name);
        }
    }
}

}  // namespace
}  // namespace ace::workbench
