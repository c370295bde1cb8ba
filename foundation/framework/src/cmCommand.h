// CmCommand: one entry of an undo stack, which can be undone and done again. CmStateCommand is
// the entry an undo scope makes: the states of the objects it touched, before and after.
#pragma once

#include "cmRecordable.h"

#include <string>
#include <vector>

namespace Zr {

class CmCommand {
public:
    explicit CmCommand(std::string label = {}) : _label(std::move(label)) {}
    CmCommand(CmCommand const&) = delete;
    CmCommand& operator=(CmCommand const&) = delete;
    virtual ~CmCommand();

    // Does (or does again) what the command stands for.
    virtual void execute() = 0;
    // Puts back what execute changed.
    virtual void undo() = 0;
    // The text that menus show after "Undo " and "Redo ".
    virtual std::string getLabel() const { return _label; }
    void setLabel(std::string label) { _label = std::move(label); }

private:
    std::string _label;
};

// The saved states of the objects one undo scope changed. Undo puts the states from before
// back, the last object first; redo puts the states from after back, the first object first.
class CmStateCommand : public CmCommand {
public:
    struct Change {
        RCShdPtr<CmRecordable> object;
        OPtr<CmMemento> before;
        OPtr<CmMemento> after;
    };

    CmStateCommand(std::string label, std::vector<Change> changes);
    ~CmStateCommand() override;

    void execute() override;
    void undo() override;

    int getNbChanges() const { return static_cast<int>(_changes.size()); }
    bool isEmpty() const { return _changes.empty(); }
    // True when the command holds a state of `object`.
    bool touches(CmRecordable const* object) const;

private:
    std::vector<Change> _changes;
};

} // namespace Zr
