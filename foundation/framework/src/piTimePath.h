// PiTimePath: how the application's time maps into the local time of a node inside groups.
// Each group on the way shifts and scales time: local = (global - offset) * scale.
#pragma once

#include "piPath.h"
#include "tmTimeClient.h"

#include <vector>

namespace Zr {

struct PiTimeStep {
    double offset = 0.0;
    double scale = 1.0;
    bool operator==(PiTimeStep const&) const = default;
};

class PiTimePath : public RCObject {
public:
    using Step = PiTimeStep;

    // `path` null means the top level; `steps` apply from the top down, none is the identity.
    explicit PiTimePath(RCShdPtr<TmTimeClient> timeClient, RCShdPtr<PiPath> path = nullptr,
                        std::vector<Step> steps = {});
    ~PiTimePath() override;

    // A top-level time path of the client.
    static RCShdPtr<PiTimePath> create(RCShdPtr<TmTimeClient> timeClient);

    // The local time of the client's current time (of time 0 with no client).
    double getTime() const;
    // The local time of a global time.
    double getTime(double global) const;
    // The global time of a local time; false, leaving `global` unchanged, when a step has
    // scale 0 and so no global time maps there.
    bool getHeadTime(double local, double& global) const;

    RCShdPtr<PiPath> getPath() const { return _path; }
    RCShdPtr<TmTimeClient> getTimeClient() const { return _timeClient; }
    std::vector<Step> const& getSteps() const { return _steps; }

private:
    RCShdPtr<TmTimeClient> _timeClient;
    RCShdPtr<PiPath> _path;
    std::vector<Step> _steps;
};

} // namespace Zr
