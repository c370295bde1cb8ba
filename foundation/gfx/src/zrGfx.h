// Umbrella header of the windowing and drawing library.
#pragma once

#include "zrBase.h"
