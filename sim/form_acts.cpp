#include "sim/form_acts.h"

#include <utility>

namespace ace::sim {

namespace {

Control* Usable(const Form& form, const String& name) {
    Control* const control = form.Find(name);
    return control != nullptr && control->IsUsable() ? control : nullptr;
}

/// `act` on a control that can be reached, and still can when it has got the focus.
template <class Act>
FormAct OnControl(String name, Act act) {
    return [name = std::move(name), act = std::move(act)](Form& form) {
        Control* const control = Usable(form, name);
        if (control == nullptr) {
            return false;
        }
        if (control->TakesFocus()) {
            form.SetFocus(*control);
        }
        return Usable(form, name) != nullptr && act(*control);
    };
}

/// Does `act` when the control is of the kind.
template <class Kind, class Act>
bool DoTo(Control& control, Act act) {
    Kind* const ofKind = ControlAs<Kind>(&control);
    if (ofKind != nullptr) {
        act(*ofKind);
    }
    return ofKind != nullptr;
}

template <class Items>
bool IsThere(const Items& items, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < items.size();
}

bool CanBeChosen(Control& control, std::int32_t index) {
    const auto* const list = ControlAs<DropDown>(&control);
    const auto* const group = ControlAs<OptionGroup>(&control);
    const auto* const strip = ControlAs<TabStrip>(&control);
    return (list != nullptr && IsThere(list->list, index)) ||
           (group != nullptr && IsThere(group->options, index)) ||
           (strip != nullptr && IsThere(strip->tabs, index) &&
            strip->tabs[static_cast<std::size_t>(index)].visible);
}

}  // namespace

FormAct Press(String control) {
    return OnControl(std::move(control), [](Control& c) {
        return DoTo<Button>(c, [](Button& button) { button.Click(); }) ||
               DoTo<Picture>(c, [](Picture& picture) { picture.Press(MouseButtons::Left); });
    });
}

FormAct PressMouse(String control, std::int32_t button) {
    return OnControl(std::move(control), [button](Control& c) {
        return DoTo<Picture>(c, [button](Picture& picture) { picture.Press(button); });
    });
}

FormAct Choose(String control, std::int32_t index) {
    return OnControl(std::move(control), [index](Control& c) {
        return CanBeChosen(c, index) &&
               (DoTo<DropDown>(c, [index](DropDown& list) { list.Choose(index); }) ||
                DoTo<OptionGroup>(c, [index](OptionGroup& group) { group.Choose(index); }) ||
                DoTo<TabStrip>(c, [index](TabStrip& strip) { strip.Select(index); }));
    });
}

FormAct Type(String control, String text) {
    return OnControl(std::move(control), [text = std::move(text)](Control& c) {
        return DoTo<TextBox>(c, [&](TextBox& box) { box.Type(text); }) ||
               DoTo<ValueBox>(c, [&](ValueBox& box) { box.Type(text); });
    });
}

FormAct Insert(String control, String text) {
    return OnControl(std::move(control), [text = std::move(text)](Control& c) {
        return DoTo<TextBox>(c, [&](TextBox& box) { box.Insert(text); });
    });
}

FormAct EndInput(String control) {
    return OnControl(std::move(control), [](Control& c) {
        return DoTo<ValueBox>(c, [](ValueBox& box) { box.EndInput(); });
    });
}

FormAct Tick(String control, bool ticked) {
    return OnControl(std::move(control), [ticked](Control& c) {
        const auto* const box = ControlAs<CheckBox>(&c);
        return box != nullptr && box->ticked != ticked &&
               DoTo<CheckBox>(c, [ticked](CheckBox& one) { one.Tick(ticked); });
    });
}

FormAct ChooseFile(String control, String file) {
    return OnControl(std::move(control), [file = std::move(file)](Control& c) {
        const auto* const files = ControlAs<FileBox>(&c);
        return files != nullptr && !files->ofTables &&
               DoTo<FileBox>(c, [&](FileBox& box) { box.ChooseFile(file); });
    });
}

FormAct ChooseTable(String control, ITableType type, ITableMeasClass measClass, String table) {
    return OnControl(std::move(control), [=, table = std::move(table)](Control& c) {
        const auto* const tables = ControlAs<FileBox>(&c);
        return tables != nullptr && tables->ofTables &&
               DoTo<FileBox>(c, [&](FileBox& box) { box.ChooseTable(type, measClass, table); });
    });
}

FormAct SelectText(String control, std::int32_t start, std::int32_t length) {
    return OnControl(std::move(control), [start, length](Control& c) {
        auto* const box = ControlAs<TextBox>(&c);
        const bool isInside =
            box != nullptr && start >= 0 && length >= 0 &&
            static_cast<std::size_t>(start) <= box->text.size() &&
            static_cast<std::size_t>(length) <= box->text.size() - static_cast<std::size_t>(start);
        if (isInside) {
            box->selectionStart = start;
            box->selectionLength = length;
        }
        return isInside;
    });
}

FormAct Focus(String control) {
    return OnControl(std::move(control), [](Control& c) { return c.TakesFocus(); });
}

FormAct DropFiles(String control, std::vector<String> files) {
    return [control = std::move(control), files = std::move(files)](Form& form) {
        Control* const found = Usable(form, control);
        return found != nullptr && DoTo<TextBox>(*found, [&](TextBox& box) { box.Drop(files); });
    };
}

FormAct PressKey(std::int32_t key) {
    return Do([key](Form& form) { form.PressKey(key); });
}

FormAct CloseFrame() {
    return Do([](Form& form) { form.CloseByFrame(); });
}

FormAct Do(std::function<void(Form&)> act) {
    return [act = std::move(act)](Form& form) {
        act(form);
        return true;
    };
}

}  // namespace ace::sim
