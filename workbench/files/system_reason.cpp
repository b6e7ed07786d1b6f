#include "workbench/files/system_reason.h"

#include <system_error>

#include "workbench/files/text_encoding.h"

namespace ace::workbench {

String SystemReason(int systemError) {
    return FromUtf8(std::generic_category().message(systemError));
}

}  // namespace ace::workbench
