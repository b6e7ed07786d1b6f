#include <ace/host/platform.h>
#include <windows.h>
