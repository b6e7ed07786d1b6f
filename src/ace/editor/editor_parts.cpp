#include <ace/editor/editor_parts.h>

namespace ace {

namespace {

template <class ControlOfHost>
ControlOfHost& Linked(ControlOfHost* link) {
    if (link == nullptr) {
        Raise(Errors::ObjectNotSet);
    }
    return *link;
}

}  // namespace

void RequireNoDialog(const EditorParts& parts) {
    if (parts.isEditing) {
        Raise(Errors::ArrayInUse);
    }
}

ITreeControl& ViewOf(const EditorParts& parts) {
    return Linked(parts.m_View);
}

IListControl& PaletteOf(const EditorParts& parts) {
    return Linked(parts.m_List);
}

Boolean EmiTemplate(const EditorParts& parts) {
    return parts.engine != nullptr && parts.engine->EmiTemplate;
}

OwnWork::OwnWork(EditorParts& parts) : x_parts(parts) {
    if (parts.isAtWork) {
        Raise(Errors::ArrayInUse);
    }
    parts.isAtWork = true;
}

}  // namespace ace
