// UiCellProgressBar: a cell that shows how far a task has come, as a bar 125 pixels wide whose
// colour tells the task's status.
#pragma once

#include "uiCell.h"

namespace Zr {

class UiCellProgressBar : public UiCell {
public:
    // Running: the bar in the toolkit's blue; Done: full and green; Failed: red, at the value
    // where it stopped.
    enum CellStatus { Running = 0, Done = 1, Failed = 2 };

    UiCellProgressBar() = default;
    ~UiCellProgressBar() override;

    void draw(DrawArgs const& args) override;
    int getDesiredWidth() const override { return 125; }

    // Kept within 0 to 1; a value that is not a number counts as 0.
    void setValue(float value);
    float getValue() const { return _value; }
    void setStatus(CellStatus status) { _status = status; }
    CellStatus getStatus() const { return _status; }

private:
    float _value = 0.f;
    CellStatus _status = Running;
};

} // namespace Zr
