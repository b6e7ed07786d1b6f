/// The version of the engine that a host is compiled against.
#pragma once

#define ACE_VERSION_MAJOR 0
#define ACE_VERSION_MINOR 1
#define ACE_VERSION_PATCH 0
/// To be compared: 1.2.3 is 10203.
#define ACE_VERSION (ACE_VERSION_MAJOR * 10000 + ACE_VERSION_MINOR * 100 + ACE_VERSION_PATCH)
