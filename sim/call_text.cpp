#include "sim/call_text.h"

namespace ace::sim {

String ArgumentText(const Value& value) {
    if (std::holds_alternative<std::monostate>(value)) {
        return L"nothing";
    }
    if (const String* text = std::get_if<String>(&value)) {
        return Quoted(*text);
    }
    if (const DynArray<String>* texts = std::get_if<DynArray<String>>(&value)) {
        String list = L"[";
        for (const String& text : *texts) {
            list += (list.size() > 1 ? L", " : L"") + Quoted(text);
        }
        return list + L"]";
    }
    return FormatGeneral(value, L'.');
}

}  // namespace ace::sim
