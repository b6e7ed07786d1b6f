#pragma once

#include "workbench/words/wording.h"
