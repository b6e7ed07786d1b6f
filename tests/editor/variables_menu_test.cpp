/// The menu of replace variables in the action dialog.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

struct MenuOfModule {
    aceModul moduleKind;
    String shown;                                      ///< as it stands in the journal
    std::vector<std::pair<String, String>> variables;  ///< caption and what it inserts
};
void PrintTo(const MenuOfModule& row, std::ostream* out) {
    *out << "module " << row.moduleKind;
}

const MenuOfModule Menus[] = {
    {aceVKSTemplate,
     L"UserDialogs.ShowPopupMenu(1 \"Measurement Frequency\", 2 \"DUT Connector\", "
     L"3 \"TZP Connector\", 4 \"DUT Bandwidth\", 5 \"DUT Frequency\", 6 \"DUT Power\", "
     L"7 \"DUT is in Hoppingmode\")",
     {{L"Measurement Frequency", L"#MEASFREQ#"},
      {L"DUT Connector", L"#DUTCONNECTOR#"},
      {L"TZP Connector", L"#TZPCONNECTOR#"},
      {L"DUT Bandwidth", L"#BW#"},
      {L"DUT Frequency", L"#FREQ#"},
      {L"DUT Power", L"#POWER#"},
      {L"DUT is in Hoppingmode", L"#HOPPING#"}}},
    {aceVKSDUT,
     L"UserDialogs.ShowPopupMenu(1 \"Measurement Frequency\", 2 \"DUT Bandwidth\", "
     L"3 \"DUT Frequency\", 4 \"DUT Power\", 5 \"DUT is in Hoppingmode\")",
     {{L"Measurement Frequency", L"#MEASFREQ#"},
      {L"DUT Bandwidth", L"#BW#"},
      {L"DUT Frequency", L"#FREQ#"},
      {L"DUT Power", L"#POWER#"},
      {L"DUT is in Hoppingmode", L"#HOPPING#"}}},
};

struct VariableField {
    const char* name;
    p_Action action;
    String field;
    String button;
};
void PrintTo(const VariableField& row, std::ostream* out) {
    *out << row.name;
}
const VariableField VariableFields[] = {
    {"Message", Tell(L"ab"), L"txtMessage", L"cb_show_VKSVars(0)"},
    {"Command", Gpib(5, L"ab"), L"txtGpibCommand", L"cb_show_VKSVars(1)"},
    {"Parameter", Api(L"values.mac"), L"txtAPIParameterValue", L"cb_show_VKSVars(2)"},
};

class VariablesMenu : public ShownDialog {
  protected:
    VariablesMenu() { host->macros[L"values.mac"].parameters = {1}; }
};

class WirelessMenu : public VariablesMenu, public ::testing::WithParamInterface<MenuOfModule> {};
INSTANTIATE_TEST_SUITE_P(Of, WirelessMenu, ::testing::ValuesIn(Menus), [](const auto& one) {
    return one.param.moduleKind == aceVKSDUT ? std::string("Matrix") : std::string("Tests");
});

TEST_P(WirelessMenu, EachItemInsertsItsVariable) {
    OpenWith(GetParam().moduleKind);
    Acts acts;
    for (const auto& [caption, variable] : GetParam().variables) {
        host->user.ExpectMenu(caption);
        acts.insert(acts.end(), {sim::Type(L"txtMessage", L""), sim::Press(L"cb_show_VKSVars(0)"),
                                 See(L"txtMessage", variable)});
    }
    acts.push_back(PressCancel);
    ShowNew(atNotify, acts);
    EXPECT_EQ(host->journal.LinesOf(L"UserDialogs.ShowPopupMenu"),
              Lines(GetParam().variables.size(), GetParam().shown));
}

class EachVariableField : public VariablesMenu,
                          public ::testing::WithParamInterface<VariableField> {
  protected:
    /// The text of the field behind the acts and a choice of the power.
    void Insert(Acts acts, const String& expected) {
        OpenWith(aceVKSTemplate, {GetParam().action});
        host->user.ExpectMenu(L"DUT Power");
        acts.insert(acts.begin(), sim::Type(GetParam().field, L"ab"));
        acts.push_back(sim::Press(GetParam().button));
        acts.push_back(See(GetParam().field, expected));
        acts.push_back(PressCancel);
        ShowLine(acts);
    }
};
INSTANTIATE_TEST_SUITE_P(Each, EachVariableField, ::testing::ValuesIn(VariableFields),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(EachVariableField, AVariableComesInAtTheCaret) {
    Insert({}, L"ab#POWER#");
    Insert({sim::SelectText(GetParam().field, 1)}, L"a#POWER#b");
    Insert({sim::SelectText(GetParam().field, 0)}, L"#POWER#ab");
}

TEST_P(EachVariableField, AVariableTakesThePlaceOfWhatIsSelected) {
    Insert({sim::SelectText(GetParam().field, 1, 1)}, L"a#POWER#");
    Insert({sim::SelectText(GetParam().field, 0, 2)}, L"#POWER#");
}

TEST_P(EachVariableField, TheFieldsOfTheOtherPanesStayAsTheyWere) {
    OpenWith(aceVKSTemplate, {GetParam().action});
    host->user.ExpectMenu(L"DUT Power");
    Acts acts{sim::Press(GetParam().button)};
    for (const VariableField& other : VariableFields) {
        if (other.field != GetParam().field) {
            acts.push_back(See(other.field, L""));
        }
    }
    acts.push_back(PressCancel);
    ShowLine(acts);
}

TEST_P(EachVariableField, TheNextOneGoesOnBehindIt) {
    OpenWith(aceVKSTemplate, {GetParam().action});
    host->user.ExpectMenu(L"DUT Power");
    host->user.ExpectMenu(L"DUT Frequency");
    ShowLine({sim::Type(GetParam().field, L"ab"), sim::SelectText(GetParam().field, 1),
              sim::Press(GetParam().button), sim::Press(GetParam().button),
              See(GetParam().field, L"a#POWER##FREQ#b"), PressCancel});
}

TEST_P(EachVariableField, AMenuThatIsLeftInsertsNothing) {
    OpenWith(aceVKSDUT, {GetParam().action});
    host->user.ExpectMenu(std::nullopt);
    ShowLine({sim::Type(GetParam().field, L"ab"), sim::Press(GetParam().button),
              See(GetParam().field, L"ab"), PressCancel});
}

/// The field is told of it as of what is typed.
TEST_F(VariablesMenu, AVariableInAnEmptyCommandEnablesTheTest) {
    OpenWith(aceVKSTemplate);
    host->user.ExpectMenu(L"DUT Power");
    ShowNew(atRemote, {SeeEnabled(L"cmdTestAction(1)", false), sim::Press(L"cb_show_VKSVars(1)"),
                       SeeEnabled(L"cmdTestAction(1)", true), PressOk});
    EXPECT_EQ(RecordOf<aceRemote>(Stored()).Command, L"#POWER#");
}

TEST_F(VariablesMenu, AVariableOfAMessageIsStoredWithIt) {
    OpenWith(aceVKSDUT);
    host->user.ExpectMenu(L"DUT is in Hoppingmode");
    ShowNew(atNotify,
            {sim::Type(L"txtMessage", L"now "), sim::Press(L"cb_show_VKSVars(0)"), PressOk});
    EXPECT_EQ(Stored(), Tell(L"now #HOPPING#"));
}

class ModulesWithVariables : public VariablesMenu, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Each, ModulesWithVariables, ::testing::Range(0, 9));

TEST_P(ModulesWithVariables, OnlyTheWirelessModulesHaveTheButton) {
    const auto moduleKind = static_cast<aceModul>(GetParam());
    const bool isWireless = moduleKind == aceVKSTemplate || moduleKind == aceVKSDUT;
    OpenWith(moduleKind, {Tell(L"a"), Gpib(5, L"a"), Api(L"values.mac")});
    for (const int line : {0, 1, 2}) {
        const std::vector<String> button{L"cb_show_VKSVars(" + std::to_wstring(line) + L")"};
        ShowLine({isWireless ? SeeShown(button) : SeeShown({}, button), PressCancel}, line);
    }
}

TEST_F(VariablesMenu, AnItemThatTheMenuDoesNotHaveIsNone) {
    struct Beyond : DefaultUserDialogs {
        std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>& items) override {
            return items.size();
        }
    } dialogs;
    EXPECT_FALSE((PopUpMenu{{{1, L"one"}}}).PopUp(dialogs));
}

/// A comment has no field that takes one.
TEST_F(VariablesMenu, ACommentHasNoButtonOfVariables) {
    OpenWith(aceVKSTemplate, {Comment(true)});
    ShowLine({SeeShown({}, {L"cb_show_VKSVars(0)"}), PressCancel});
}

}  // namespace
}  // namespace ace::test
