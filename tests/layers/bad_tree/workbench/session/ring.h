#pragma once

#include "workbench/session/link.h"
