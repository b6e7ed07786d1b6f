/// A plain model of the sections that a numbered list has in its settings file. It knows nothing of
/// the engine.
#pragma once

#include <map>

#include "support/store_model.h"

namespace ace::test {

/// What a file keeps of an entry: the fifth list is not stored.
inline ModelEntry Stored(ModelEntry entry) {
    entry.util = 0;
    return entry;
}

/// The sections of a module without keys, by their number from 1.
struct PlainFileModel {
    std::map<int, ModelEntry> sections;
    int saved = 0;  ///< how many there are known to be

    void Save(const StoreModel& store) {
        for (int number = 1; number <= store.count; ++number) {
            sections[number] = Stored(store.list.At(number - 1));
        }
        if (store.count < saved) {
            for (int number = store.count + 1; number <= saved + 1; ++number) {
                sections.erase(number);
            }
        }
        saved = store.count;
    }
    void Load(StoreModel& store, int number) {
        store.count = number;
        saved = number;
        store.list = {};
        if (store.list.Resize(number - 1)) {
            for (int i = 0; i < number; ++i) {
                store.list.At(i) = sections[i + 1];
            }
        }
    }
};

/// The sections of a wireless template.
struct WirelessFileModel {
    struct Test {
        std::wstring key;
        int steps = 0;
        ModelEntry lists;
    };
    struct Step {
        std::wstring name;
        std::wstring key;
        ModelEntry lists;
    };
    std::map<int, Test> tests;
    std::map<std::pair<std::wstring, int>, Step> steps;  ///< by the key of the test and a number
    int saved = 0;

    void Save(const StoreModel& store) {
        for (int number = 1; number <= store.count; ++number) {
            Test test{store.keys.At(number - 1), 0, Stored(store.list.At(number - 1))};
            for (int i = 0; i < store.stepCount; ++i) {
                if (store.stepOwners.At(i) == test.key) {
                    ++test.steps;
                    steps[{test.key, test.steps}] = {store.stepNames.At(i), store.stepKeys.At(i),
                                                     Stored(store.steps.At(i))};
                }
            }
            tests[number] = test;
        }
        if (store.count < saved) {
            for (int number = store.count + 1; number <= saved + 1; ++number) {
                Delete(number);
            }
        }
        saved = store.count;
    }
    void Load(StoreModel& store, int number) {
        saved = number;
        store.count = 0;
        store.stepCount = 0;
        store.list = {};
        store.steps = {};
        if (!store.list.Resize(number) || number < 1) {
            store.list = {};
            return;
        }
        for (auto* texts : {&store.keys, &store.hostKeys, &store.hostNames}) {
            *texts = {};
            texts->Resize(number);
        }
        for (auto* texts : {&store.stepOwners, &store.stepNames, &store.stepKeys}) {
            texts->MakeAnew();
        }
        for (int i = 1; i <= number; ++i) {
            LoadTest(store, tests[i]);
        }
    }

  private:
    /// The key is read out of the old section, also when its test has moved to a lower number: the
    /// steps that were just written go with it.
    void Delete(int number) {
        const Test old = tests[number];
        for (int step = 1; step <= old.steps; ++step) {
            steps.erase({old.key, step});
        }
        tests.erase(number);
    }
    void LoadTest(StoreModel& store, const Test& test) {
        store.keys.At(store.count) = test.key;
        if (test.key.empty()) {
            return;
        }
        store.list.At(store.count) = test.lists;
        for (int i = 1; i <= test.steps; ++i) {
            const Step& step = steps[{test.key, i}];
            if (step.key.empty()) {
                continue;
            }
            for (auto* texts : {&store.stepOwners, &store.stepNames, &store.stepKeys}) {
                texts->Resize(store.stepCount);
            }
            store.steps.Resize(store.stepCount);
            store.stepOwners.At(store.stepCount) = test.key;
            store.stepNames.At(store.stepCount) = step.name;
            store.stepKeys.At(store.stepCount) = step.key;
            store.steps.At(store.stepCount) = step.lists;
            ++store.stepCount;
        }
        ++store.count;
    }
};

}  // namespace ace::test
