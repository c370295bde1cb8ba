// LgQueue: log lines from any thread, kept in the order their entries were reserved until a
// logger drains them; LgStream, the text of one entry.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

namespace Zr {

class LgStream {
public:
    template <class T>
    LgStream& operator<<(T const& value) {
        _os << value;
        return *this;
    }
    // The text written so far.
    std::string completeString() const { return _os.str(); }

private:
    std::ostringstream _os;
};

class LgQueue {
public:
    using Entry = std::uint64_t;
    struct Line {
        int _level;
        std::string _text;
    };

    // Takes the next place in the queue; the caller writes into getStream(entry) and then
    // hands it over with addEntry. Places keep reservation order, whatever the completion order.
    Entry reserveEntry(int level);
    // The stream of a reserved, not yet added entry; only its reserving thread writes to it.
    LgStream& getStream(Entry entry);
    void addEntry(Entry entry);

    // Removes and returns the completed lines at the front, in reservation order. A line
    // still being written holds back the lines reserved after it.
    std::vector<Line> drain();
    // Blocks until a line can be drained or the timeout passes; true when one can.
    bool waitForLines(std::chrono::milliseconds timeout);
    // Entries reserved and not yet drained.
    std::size_t getPendingCount() const;

private:
    struct Slot {
        int _level = 0;
        bool _complete = false;
        LgStream _stream;
    };
    Slot& slotOf(Entry entry);

    mutable std::mutex _mutex;
    std::condition_variable _ready;
    std::deque<Slot> _slots;
    Entry _first = 0; // the entry number of _slots.front()
};

} // namespace Zr
