// Mapping of the application's time into a node's local time and back.
#include "piTimePath.h"

namespace Zr {

PiTimePath::PiTimePath(RCShdPtr<TmTimeClient> timeClient, RCShdPtr<PiPath> path,
                       std::vector<Step> steps)
    : _timeClient(std::move(timeClient)), _path(std::move(path)), _steps(std::move(steps)) {}

PiTimePath::~PiTimePath() = default;

RCShdPtr<PiTimePath> PiTimePath::create(RCShdPtr<TmTimeClient> timeClient) {
    return makeShared<PiTimePath>(std::move(timeClient));
}

double PiTimePath::getTime() const {
    return getTime(_timeClient ? _timeClient->getTime() : 0.0);
}

double PiTimePath::getTime(double global) const {
    double t = global;
    for (Step const& s : _steps)
        t = (t - s.offset) * s.scale;
    return t;
}

bool PiTimePath::getHeadTime(double local, double& global) const {
    double t = local;
    for (auto it = _steps.rbegin(); it != _steps.rend(); ++it) {
        if (it->scale == 0.0)
            return false;
        t = t / it->scale + it->offset;
    }
    global = t;
    return true;
}

} // namespace Zr
