// Umbrella header of the base library: the vocabulary of reference counts, callbacks, events,
// geometry, colours, time, strings and exceptions.
#pragma once

#include "cbDispatcher.h"
#include "coRgbColor.h"
#include "dtTime.h"
#include "evEvent.h"
#include "evKeyboardState.h"
#include "exBase.h"
#include "gePoint2.h"
#include "geRectangle.h"
#include "lkCounter.h"
#include "liString.h"
#include "rcBase.h"
#include "smallVector.h"
