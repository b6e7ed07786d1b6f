#pragma once

#include <vector>

#include <ace/execution/walks.h>
  #  include "sim/journal.h"
#include <ace/host/basic_types.h>
// #include <ace/editor/frm_editor.h>
#include "impatient_detail.h"
