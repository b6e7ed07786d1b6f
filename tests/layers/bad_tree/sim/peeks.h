#pragma once

#include "workbench/cli/main_job.h"
