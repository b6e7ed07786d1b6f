/// The dialog of an API macro, on macros with inputs of both kinds.
#pragma once

#include "editor/bench_dialog.h"

namespace ace::test {

/// "log.mac" asks for a value, a table and a value, "one.mac" for a value, "table.mac" for a table,
/// "plain.mac" for nothing; "broken.mac" can't be loaded.
class MacroBench : public BenchDialog {
  protected:
    static constexpr std::int32_t ValueKind = 1;
    static constexpr std::int32_t TableKind = 3;

    MacroBench() {
        host->texts[24597] = L"#Name is no macro (#Name)";
        host->macros[L"log.mac"].parameters = {ValueKind, TableKind, ValueKind};
        host->macros[L"one.mac"].parameters = {ValueKind};
        host->macros[L"table.mac"].parameters = {TableKind};
        host->macros[L"broken.mac"].loads = false;
    }

    /// A macro with its parameters from 1 on.
    static p_Action Macro(const String& program, const Lines& parameters = {}) {
        aceAPI record;
        record.Program = program;
        record.Parameters.Redim(parameters.empty() ? 0 : 1,
                                static_cast<std::int32_t>(parameters.size()));
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            record.Parameters[static_cast<std::int32_t>(i) + 1] = parameters[i];
        }
        return Action(atAPI, record);
    }
    void AddMacro(Acts acts) { AddKind(atAPI, std::move(acts)); }
    const aceAPI& StoredMacro(std::int32_t index = 0) { return Stored<aceAPI>(index); }
    /// Parameters from 1 on; one line says so when there are none.
    static Lines ParametersOf(const aceAPI& record) {
        if (record.Parameters.UpperBound() < 1) {
            return {L"none"};
        }
        EXPECT_EQ(record.Parameters.LowerBound(), 1);
        return {record.Parameters.begin(), record.Parameters.end()};
    }
    Lines StoredParameters(std::int32_t index = 0) { return ParametersOf(StoredMacro(index)); }

    // ---- the pane ------------------------------------------------------------------------------

    static Lines CaptionsOf(const TabStrip& strip) {
        Lines captions;
        for (const Tab& tab : strip.tabs) {
            if (tab.visible) {
                captions.push_back(tab.caption);
            }
        }
        return captions;
    }
    /// The strip shows so many tabs, this one of them in front (from 0).
    static FormAct HasTabs(std::size_t count, std::int32_t current) {
        return Do([=](Form& form) {
            const auto& strip = *form.Find<TabStrip>(L"tabAPIParameter");
            EXPECT_TRUE(strip.IsShown());
            EXPECT_EQ(CaptionsOf(strip).size(), count);
            EXPECT_EQ(strip.current, current);
        });
    }
    static FormAct HasNoTabs() {
        return Do([](Form& form) {
            for (const StringView name :
                 {L"tabAPIParameter", L"fraAPIParameterTable", L"fraAPIParameterValue"}) {
                EXPECT_FALSE(form.Find(name)->IsShown()) << testing::PrintToString(name);
            }
        });
    }
    /// The parameter in front is a value, or a table, and reads so.
    static FormAct HasValue(const String& value) {
        return Do([=](Form& form) {
            EXPECT_TRUE(form.Find(L"fraAPIParameterValue")->IsShown());
            EXPECT_FALSE(form.Find(L"fraAPIParameterTable")->IsShown());
            EXPECT_EQ(form.Find<TextBox>(L"txtAPIParameterValue")->text, value);
        });
    }
    static FormAct HasTable(const String& table) {
        return Do([=](Form& form) {
            EXPECT_FALSE(form.Find(L"fraAPIParameterValue")->IsShown());
            EXPECT_TRUE(form.Find(L"fraAPIParameterTable")->IsShown());
            EXPECT_EQ(form.Find<FileBox>(L"filAPIParameterTable")->fileName, table);
        });
    }
    static FormAct TakeProgram(const String& program) {
        return ChooseFile(L"filAPIProgram", program);
    }
    static FormAct GoToTab(std::int32_t index) { return Choose(L"tabAPIParameter", index); }
    static FormAct TypeValue(const String& value) { return Type(L"txtAPIParameterValue", value); }
    static FormAct TakeTable(const String& table) {
        return ChooseTable(L"filAPIParameterTable", 40, 0, table);
    }

    // ---- the journal ---------------------------------------------------------------------------

    static String MacroLoaded(const String& program) {
        return Called(L"ApiMacro.Load", program, Value(), Value());
    }
    static inline const String CountAsked = L"ApiMacro.ParameterCount()";
    static String KindAsked(std::int32_t parameter) {
        return Called(L"ApiMacro.ParameterInfo", parameter);
    }
};

}  // namespace ace::test
