/// A plain model of the lists that follow the host's, for random tests. It knows nothing of the
/// engine: entries are named by numbers, and every step of an operation is one line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/model_lists.h"

namespace ace::test {

/// The lists of one object and its open editor. Each operation answers the number of its error.
struct StoreModel {
    ModelArray<ModelEntry> list;
    int count = -1;
    bool suppressed = false;
    std::vector<std::wstring> editor;  ///< what the editor is asked for
    std::wstring loading;              ///< its first call of a refresh

    // the wireless template alone
    bool wireless = false;
    ModelArray<std::wstring> keys;
    ModelArray<std::wstring> hostKeys;
    ModelArray<std::wstring> hostNames;
    ModelArray<ModelEntry> steps;
    int stepCount = 0;
    ModelArray<std::wstring> stepOwners;
    ModelArray<std::wstring> stepNames;
    ModelArray<std::wstring> stepKeys;

    static constexpr int OutOfBounds = 9;

    /// `index` comes from 1 and is left from 0.
    static int AddEntry(ModelArray<ModelEntry>& entries, int& number, int& index) {
        index = index - 1;
        number = number + 1;
        if (!entries.Resize(number)) {
            return OutOfBounds;
        }
        if (index >= number) {
            index = number;
        } else {
            for (int i = number - 1; i >= index; --i) {
                if (!entries.Has(i)) {
                    return OutOfBounds;
                }
                entries.At(i + 1) = entries.At(i);
            }
        }
        if (!entries.Has(index)) {
            return OutOfBounds;
        }
        entries.At(index).enter = 0;
        entries.At(index).leave = 0;
        entries.At(index).mlc = 0;
        return 0;
    }

    static int DeleteEntry(ModelArray<ModelEntry>& entries, int& number, int& index) {
        index = index - 1;
        number = number - 1;
        for (int i = index; i < number; ++i) {
            if (!entries.Has(i) || !entries.Has(i + 1)) {
                return OutOfBounds;
            }
            entries.At(i) = entries.At(i + 1);
        }
        if (number >= 0) {
            entries.Resize(number);
        } else {
            entries.MakeAnew();
        }
        return 0;
    }

    int Add(int index, const std::wstring& key) {
        if (const int error = AddEntry(list, count, index); error != 0) {
            return error;
        }
        if (wireless) {
            for (ModelArray<std::wstring>* texts : {&keys, &hostKeys, &hostNames}) {
                texts->Resize(count);
            }
            if (!keys.Has(count - 1)) {
                return OutOfBounds;
            }
            keys.At(count - 1) = key;
        } else if (!suppressed) {
            Refresh(index - 1);
        }
        return 0;
    }

    int Delete(int index, const std::wstring& key) {
        if (wireless) {
            if (const int error = DeleteTest(key); error != 0) {
                return error;
            }
            DeleteSteps(key);
        } else if (const int error = DeleteEntry(list, count, index); error != 0) {
            return error;
        }
        if (!suppressed) {
            Refresh(std::nullopt);
        }
        return 0;
    }

    int Move(int source, int destination) {
        suppressed = true;
        if (!Holds(source - 1)) {
            return OutOfBounds;
        }
        const ModelEntry entry = list.At(source - 1);
        const std::wstring key = wireless ? keys.At(source - 1) : L"";
        if (const int error = Delete(source, L""); error != 0) {
            return error;
        }
        if (const int error = Add(destination, L""); error != 0) {
            return error;
        }
        if (!Holds(destination - 1)) {
            return OutOfBounds;
        }
        Put(destination - 1, entry, key);
        suppressed = false;
        Refresh(destination - 1);
        return 0;
    }

    int Swap(int source, int destination) {
        suppressed = true;
        if (!Holds(source - 1) || !Holds(destination - 1)) {
            return OutOfBounds;
        }
        const ModelEntry entry = list.At(source - 1);
        const std::wstring key = wireless ? keys.At(source - 1) : L"";
        Put(source - 1, list.At(destination - 1), wireless ? keys.At(destination - 1) : L"");
        Put(destination - 1, entry, key);
        suppressed = false;
        Refresh(destination - 1);
        return 0;
    }

    int AddStep(const std::wstring& key, const std::wstring& owner, const std::wstring& name) {
        for (int i = 0; i < stepCount; ++i) {
            if (stepKeys.At(i) == key && stepOwners.At(i) == owner) {
                return 0;
            }
        }
        int index = stepCount + 1;
        AddEntry(steps, stepCount, index);
        for (ModelArray<std::wstring>* texts : {&stepOwners, &stepNames, &stepKeys}) {
            texts->Resize(stepCount);
        }
        stepOwners.At(stepCount - 1) = owner;
        stepNames.At(stepCount - 1) = name;
        stepKeys.At(stepCount - 1) = key;
        return 0;
    }

  private:
    bool Holds(int index) const { return list.Has(index) && (!wireless || keys.Has(index)); }

    void Put(int index, const ModelEntry& entry, const std::wstring& key) {
        list.At(index) = entry;
        if (wireless) {
            keys.At(index) = key;
        }
    }

    void Refresh(std::optional<int> selected) {
        editor.push_back(loading);
        if (selected) {
            editor.push_back(L"Editor.SetSubrange(" + std::to_wstring(*selected) + L")");
        }
    }

    static void ShiftDown(ModelArray<std::wstring>& texts, int from) {
        for (int i = from; i < texts.Upper(); ++i) {
            texts.At(i) = texts.At(i + 1);
        }
    }

    /// The place behind the last test is searched too.
    int DeleteTest(const std::wstring& key) {
        for (int i = 0; i <= count; ++i) {
            if (!keys.Has(i)) {
                return OutOfBounds;
            }
            if (keys.At(i) != key) {
                continue;
            }
            int index = i + 1;
            DeleteEntry(list, count, index);
            ShiftDown(keys, i);
            if (count < 0) {
                hostKeys.MakeAnew();
                hostNames.MakeAnew();
            } else {
                for (ModelArray<std::wstring>* texts : {&keys, &hostKeys, &hostNames}) {
                    texts->Resize(count);
                }
            }
            return 0;
        }
        return 0;
    }

    void DeleteSteps(const std::wstring& key) {
        const int times = stepCount;
        for (int time = 0; time < times; ++time) {
            int found = 0;
            while (found < stepCount && stepOwners.At(found) != key) {
                ++found;
            }
            if (found >= stepCount) {
                return;
            }
            int index = found + 1;
            DeleteEntry(steps, stepCount, index);
            for (ModelArray<std::wstring>* texts : {&stepOwners, &stepNames, &stepKeys}) {
                ShiftDown(*texts, found);
                texts->Resize(stepCount);
            }
        }
    }
};

}  // namespace ace::test
