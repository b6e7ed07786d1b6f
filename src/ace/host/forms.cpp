#include <ace/host/forms.h>

namespace ace {

Control::Control(ControlPlace place, ControlKind kind, String name, ControlFields design)
    : ControlFields(std::move(design)), x_name(std::move(name)), x_kind(kind), x_place(place) {
    place.OfForm().x_controls.push_back(this);
}

Form::Form(String name, std::int32_t titleNumber, float width_, float height_)
    : width(width_), height(height_), x_name(std::move(name)), x_titleNumber(titleNumber) {}

Control* Form::Find(StringView name) const {
    for (Control* control : x_controls) {
        if (control->Name() == name) {
            return control;
        }
    }
    return nullptr;
}

void Form::Load() {
    if (!x_isLoaded) {
        Loaded();
        x_isLoaded = true;
    }
}

void Form::ShowModal(IFormHost& host) {
    Load();
    /// A show that ends without hiding the form leaves it as it was before: hidden, or shown by the
    /// call around it.
    struct Shown {
        Form& form;
        IFormHost* before;
        ~Shown() {
            if (form.x_host != nullptr) {
                form.x_host = before;
            }
            if (form.x_host == nullptr) {
                form.GiveUpFocus();
            }
        }
    };
    const Shown shown{*this, std::exchange(x_host, &host)};
    host.ShowModal(*this);
}

void Form::Hide() {
    if (IFormHost* host = std::exchange(x_host, nullptr)) {
        GiveUpFocus();
        host->Hide(*this);
    }
}

void Form::GiveUpFocus() {
    if (Control* before = std::exchange(x_focus, nullptr)) {
        before->Forget();
    }
}

void Form::SetFocus(Control& control) {
    Control* before = std::exchange(x_focus, &control);
    if (before != nullptr && before != &control) {
        before->Leave();
    }
}

void DefaultFormHost::ShowModal(Form& form) {
    form.CloseByFrame();
}

}  // namespace ace
