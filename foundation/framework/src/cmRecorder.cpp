// The recorder of undo scopes: per-thread scope state, and the record of saved states.
#include "cmRecorder.h"

namespace Zr {

namespace {

struct RecorderState {
    RCShdPtr<CmRecord> current;
    std::vector<CmCommandStack*> stacks; // one per open scope, outermost first
    int suppress = 0;
};

RecorderState& state() {
    thread_local RecorderState s;
    return s;
}

} // namespace

void CmRecordable::willChange() {
    CmRecorder::willChange(*this);
}

CmRecord::CmRecord() {
    _entries.reserve(4);
}

CmRecord::~CmRecord() = default;

bool CmRecord::contains(CmRecordable const* object) const {
    for (Entry const& e : _entries)
        if (e.object.get() == object)
            return true;
    return false;
}

void CmRecord::save(CmRecordable& object) {
    if (contains(&object))
        return;
    OPtr<CmMemento> before = object.snapshotState();
    _entries.push_back(Entry{RCShdPtr<CmRecordable>(&object), std::move(before)});
}

OPtr<CmStateCommand> CmRecord::takeCommand(std::string const& label) {
    std::vector<CmStateCommand::Change> changes;
    std::vector<Entry> entries = std::move(_entries);
    _entries.clear();
    for (Entry& e : entries) {
        OPtr<CmMemento> after = e.object->snapshotState();
        if (e.before && after && e.before->equals(*after))
            continue;
        changes.push_back({std::move(e.object), std::move(e.before), std::move(after)});
    }
    if (changes.empty())
        return nullptr;
    return std::make_unique<CmStateCommand>(label, std::move(changes));
}

void CmRecorder::willChange(CmRecordable& object) {
    RecorderState& s = state();
    if (s.suppress > 0 || !s.current)
        return;
    s.current->save(object);
}

bool CmRecorder::isRecording() {
    RecorderState const& s = state();
    return s.suppress == 0 && !s.current.isNull();
}

int CmRecorder::getScopeDepth() {
    return static_cast<int>(state().stacks.size());
}

RCShdPtr<CmRecord> CmRecorder::getCurrentRecord() {
    return state().current;
}

CmCommandStack* CmRecorder::getInnermostStack() {
    RecorderState const& s = state();
    return s.stacks.empty() ? nullptr : s.stacks.back();
}

void CmRecorder::openScope(CmCommandStack* stack, RCShdPtr<CmRecord> const& record) {
    RecorderState& s = state();
    if (s.stacks.empty())
        s.current = record;
    s.stacks.push_back(stack);
}

void CmRecorder::closeScope() {
    RecorderState& s = state();
    if (s.stacks.empty())
        return;
    s.stacks.pop_back();
    if (s.stacks.empty())
        s.current = nullptr;
}

void CmRecorder::beginSuppress() {
    ++state().suppress;
}

void CmRecorder::endSuppress() {
    RecorderState& s = state();
    if (s.suppress > 0)
        --s.suppress;
}

bool CmRecorder::isSuppressed() {
    return state().suppress > 0;
}

} // namespace Zr
