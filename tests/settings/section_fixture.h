/// A section in memory, read and written through the codec of a thread of its own.
#pragma once

#include <ace/settings/action_line.h>

#include "support/fixture.h"

namespace ace::test {

class SectionTest : public HostTest {
  protected:
    using Lines = std::vector<String>;
    static constexpr std::size_t Enter = 0;
    static constexpr std::size_t Leave = 1;
    static constexpr std::size_t Freq = 2;
    static constexpr std::size_t Mlc = 3;

    /// Reads the lines as a section into `target`.
    void Read(const Lines& lines) {
        host->files[L"f"][L"S"] = lines;
        sim::SimSettingsFile file(*host, L"f");
        modActions::ReadSection(context, file, L"S", target, observer);
    }
    std::int32_t ErrorOfReading(const Lines& lines) {
        return ErrorOf([&] { Read(lines); });
    }
    /// Reads entry lines of one list, given without key, under their numbers from 1.
    void ReadList(std::size_t list, const Lines& values) {
        static constexpr StringView CountKeys[] = {L"NumOfEnterActions=", L"NumOfLeaveActions=",
                                                   L"NumOfFreqActions=", L"NumOfMlcActions="};
        static constexpr StringView EntryKeys[] = {L"EnterAction", L"LeaveAction", L"FrequAction",
                                                   L"MLLeaAction"};
        Lines lines{String(CountKeys[list]) + std::to_wstring(values.size())};
        for (const String& value : values) {
            lines.push_back(String(EntryKeys[list]) + std::to_wstring(lines.size()) + L"=" + value);
        }
        Read(lines);
    }
    /// The lines that `source` is written as.
    Lines Written(const p_Subrange& source) {
        sim::SimSettingsFile file(*host, L"f");
        modActions::WriteActionList(context, file, L"S", source);
        file.Release();
        return host->files[L"f"][L"S"];
    }
    /// A set whose one list (from 0) holds one action.
    static p_Subrange SetWith(const p_Action& action, std::size_t list = Enter) {
        p_Subrange set;
        Fill(set, ActionLists[list], {action});
        return set;
    }
    /// What stands behind the "=" of the line that an action is written as.
    String WrittenAs(const p_Action& action, std::size_t list = Enter) {
        const p_Subrange set = SetWith(action, list);
        const Value lines = modActions::WriteSection(context, set.*ActionLists[list].actions, 1,
                                                     static_cast<std::int32_t>(list) + 1);
        const String line = std::get<DynArray<String>>(lines)[1];
        return line.substr(line.find(L'=') + 1);
    }
    /// Entry `index` of a list, both from 0.
    p_Action& Entry(std::int32_t index, std::size_t list = Enter) {
        return (target.*ActionLists[list].actions)[index];
    }
    template <class Record>
    Record& RecordAt(std::int32_t index, std::size_t list = Enter) {
        return RecordOf<Record>(Entry(index, list));
    }

    p_Subrange target;
    ILineObserver* observer = nullptr;
};

}  // namespace ace::test
