// Umbrella header of the windowing and drawing library: the event queue and its events,
// display timing, windows and their services, and the OpenGL facade with its state cache.
#pragma once

#include "zrBase.h"

#include "smContext.h"
#include "smGl.h"
#include "smGlRecorder.h"
#include "smStateManager.h"
#include "smStateObject.h"
#include "tmGfxMsc.h"
#include "wsClipboard.h"
#include "wsCursor.h"
#include "wsCursorRegistry.h"
#include "wsDrawable.h"
#include "wsEventQ.h"
#include "wsEvents.h"
#include "wsHeadlessWindow.h"
#include "wsScreen.h"
#include "wsTestGfx.h"
#include "wsWinMgr.h"
#include "wsWindow.h"
#include "wsWindowStyle.h"
