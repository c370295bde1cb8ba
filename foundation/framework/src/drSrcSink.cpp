// DrSrcSink's defaults: a source that gives nothing and a sink that takes nothing.
#include "drSrcSink.h"

namespace Zr {

bool DrSrcSink::willPopulateSelection() {
    return false;
}

void DrSrcSink::populateSelection(DrCarrier&) {}

bool DrSrcSink::willConsumeSelection(DrCarrier const&) {
    return false;
}

bool DrSrcSink::consumeSelection(DrCarrier&) {
    return false;
}

void DrSrcSink::dropCompleted(DrCarrier&) {}

void DrSrcSink::operationCancelled(DrCarrier&) {}

} // namespace Zr
