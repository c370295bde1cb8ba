// LgQueue: ordered hand-over of log lines between threads.
#include "lgQueue.h"

#include "exBase.h"

namespace Zr {

LgQueue::Entry LgQueue::reserveEntry(int level) {
    std::lock_guard<std::mutex> lock(_mutex);
    _slots.emplace_back();
    _slots.back()._level = level;
    return _first + _slots.size() - 1;
}

LgQueue::Slot& LgQueue::slotOf(Entry entry) {
    ZR_ASSERT_TEXT(entry >= _first && entry - _first < _slots.size(), "entry is reserved");
    return _slots[static_cast<std::size_t>(entry - _first)];
}

LgStream& LgQueue::getStream(Entry entry) {
    std::lock_guard<std::mutex> lock(_mutex);
    Slot& slot = slotOf(entry);
    ZR_ASSERT_TEXT(!slot._complete, "entry is not yet added");
    // A deque keeps its elements in place when it grows, so the reference outlives the lock.
    return slot._stream;
}

void LgQueue::addEntry(Entry entry) {
    {
        std::lock_guard<std::mutex> lock(_mutex);
        Slot& slot = slotOf(entry);
        ZR_ASSERT_TEXT(!slot._complete, "entry is not yet added");
        slot._complete = true;
    }
    _ready.notify_all();
}

std::vector<LgQueue::Line> LgQueue::drain() {
    std::vector<Line> lines;
    std::lock_guard<std::mutex> lock(_mutex);
    while (!_slots.empty() && _slots.front()._complete) {
        lines.push_back(Line{_slots.front()._level, _slots.front()._stream.completeString()});
        _slots.pop_front();
        ++_first;
    }
    return lines;
}

bool LgQueue::waitForLines(std::chrono::milliseconds timeout) {
    std::unique_lock<std::mutex> lock(_mutex);
    return _ready.wait_for(lock, timeout,
                           [this] { return !_slots.empty() && _slots.front()._complete; });
}

std::size_t LgQueue::getPendingCount() const {
    std::lock_guard<std::mutex> lock(_mutex);
    return _slots.size();
}

} // namespace Zr
