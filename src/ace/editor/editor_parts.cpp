#include <ace/editor/editor_parts.h>

namespace ace {

ITreeControl& ViewOf(const EditorParts& parts) {
    if (parts.m_View == nullptr) {
        Raise(Errors::ObjectNotSet);
    }
    return *parts.m_View;
}

}  // namespace ace
