#pragma once

#include "workbench/main_job.h"
