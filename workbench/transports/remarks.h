/// What a transport tells people beside answers and errors.
#pragma once

#include <functional>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// Is told one line, in words for the operator: the cause of an answer that carries none. Unset for
/// a host that does not show such lines.
using Remark = std::function<void(const String& line)>;

inline void Tell(const Remark& remark, const String& line) {
    if (remark) {
        remark(line);
    }
}

}  // namespace ace::workbench
