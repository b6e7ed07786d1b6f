/// What an operator does in the action dialog, and what he sees there meanwhile.
#pragma once

#include <stdexcept>

#include "sim/form_acts.h"
#include "sim/form_view.h"
#include "support/engine_fixture.h"

namespace ace::test {

using Acts = std::vector<sim::FormAct>;

inline const sim::FormAct PressOk = sim::Press(L"cmdOK");
inline const sim::FormAct PressCancel = sim::Press(L"cmdCancel");

inline Control& ControlOn(const Form& form, const String& name) {
    Control* const control = form.Find(name);
    EXPECT_NE(control, nullptr) << testing::PrintToString(name);
    if (control == nullptr) {
        throw std::invalid_argument("no such control");
    }
    return *control;
}

// ---- looks at what stands: acts that change nothing ---------------------------------------------

/// A control has these words, shown or not.
inline sim::FormAct See(String name, String words) {
    return sim::Do([=](Form& form) {
        EXPECT_EQ(sim::WordsOf(ControlOn(form, name)), words) << testing::PrintToString(name);
    });
}
inline sim::FormAct SeeEnabled(String name, bool enabled) {
    return sim::Do([=](Form& form) {
        EXPECT_EQ(static_cast<bool>(ControlOn(form, name).enabled), enabled)
            << testing::PrintToString(name);
    });
}
inline sim::FormAct SeeTicked(String name, bool ticked) {
    return sim::Do([=](Form& form) {
        const auto* const box = ControlAs<CheckBox>(&ControlOn(form, name));
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(static_cast<bool>(box->ticked), ticked) << testing::PrintToString(name);
    });
}
/// Of these controls those show that are named first.
inline sim::FormAct SeeShown(std::vector<String> shown, std::vector<String> hidden = {}) {
    return sim::Do([=](Form& form) {
        for (const String& name : shown) {
            EXPECT_TRUE(ControlOn(form, name).IsShown()) << testing::PrintToString(name);
        }
        for (const String& name : hidden) {
            EXPECT_FALSE(ControlOn(form, name).IsShown()) << testing::PrintToString(name);
        }
    });
}
/// The dialog stands, and the focus is there; nowhere without a name.
inline sim::FormAct SeeFocus(String name) {
    return sim::Do([=](Form& form) {
        EXPECT_EQ(form.Focus() != nullptr ? form.Focus()->Name() : String(), name);
    });
}
inline sim::FormAct SeeTip(String name, String tip) {
    return sim::Do([=](Form& form) {
        EXPECT_EQ(ControlOn(form, name).toolTip, tip) << testing::PrintToString(name);
    });
}
/// The items of a list.
inline sim::FormAct SeeItems(String name, Lines items) {
    return sim::Do([=](Form& form) {
        const auto* const box = ControlAs<DropDown>(&ControlOn(form, name));
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->list, items) << testing::PrintToString(name);
    });
}

}  // namespace ace::test
