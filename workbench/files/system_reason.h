/// Why a call of the system failed.
#pragma once

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The system's words for a value of `errno`: "No such file or directory".
String SystemReason(int systemError);

}  // namespace ace::workbench
