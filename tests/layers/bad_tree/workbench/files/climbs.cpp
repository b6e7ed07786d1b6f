// A bottom room that asks one of the top.
#include "workbench/files/climbs.h"
#include "workbench/words/wording.h"
#include "workbench/session/session.h"
