// DrClipboard: the application's clipboard. It holds one carrier and how it got there, by a
// copy or a cut, and tells its observers of every change of content.
#pragma once

#include "cbDispatcher.h"
#include "drCarrier.h"

namespace Zr {

class DrClipboard {
public:
    // How the content was taken from its source; a paste after a cut may move instead of copy.
    enum SrcAction { Copy = 0, Cut = 1 };

    static DrClipboard& getInstance();

    DrClipboard() = default;
    DrClipboard(DrClipboard const&) = delete;
    DrClipboard& operator=(DrClipboard const&) = delete;

    // Null when the clipboard is empty.
    RCShdPtr<DrCarrier> const& getContent() const { return _content; }
    // Replaces the content; a null carrier empties the clipboard. A source action other than
    // Copy or Cut fails an assertion and changes nothing. Observers are told once.
    void setContent(RCShdPtr<DrCarrier> const& carrier, int srcAction);
    // Copy for an empty clipboard.
    int getSrcAction() const { return _srcAction; }
    // Empties the clipboard; observers are told only when there was something to drop.
    void clear();

    void addChangeCb(CbHandler<CbEmptyType>* handler) { _changed.addHandler(handler); }
    void removeChangeCb(CbHandler<CbEmptyType>* handler) { _changed.removeHandler(handler); }

private:
    RCShdPtr<DrCarrier> _content;
    int _srcAction = Copy;
    CbDispatcher<CbEmptyType> _changed;
};

} // namespace Zr
