#pragma once

#include "workbench/session/chain.h"
