// Umbrella header of libZRui: every public header of the library and of the foundation.
#pragma once

#include "zrBase.h"
#include "zrGfx.h"
