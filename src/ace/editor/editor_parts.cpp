#include <ace/editor/editor_parts.h>

namespace ace {

ITreeControl& ViewOf(const EditorParts& parts) {
    if (parts.m_View == nullptr) {
        Raise(Errors::ObjectNotSet);
    }
    return *parts.m_View;
}

EngineState& EngineOf(const EditorParts& parts) {
    return *Required(parts.engine);
}

}  // namespace ace
