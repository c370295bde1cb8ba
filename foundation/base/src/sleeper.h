// Sleeper: puts the calling thread to sleep for a span. The high-resolution instance wakes
// close to the requested time by yielding through the last stretch instead of sleeping.
#pragma once

namespace Zr {

class Sleeper {
public:
    static Sleeper& getInstance();
    static Sleeper& getHighResInstance();

    // Sleeps for `seconds`; zero or a negative span returns at once.
    void sleep(double seconds) const;
    bool isHighRes() const { return _highRes; }

private:
    explicit Sleeper(bool highRes) : _highRes(highRes) {}
    bool _highRes;
};

} // namespace Zr
