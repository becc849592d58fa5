// Compiled as part of foundation/, this must fail: host/ is a layer above foundation.
#include "host/platform/ErrorDialog.h"
