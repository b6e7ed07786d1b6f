#pragma once

#include <ace/core/text.h>
