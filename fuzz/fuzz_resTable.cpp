// Fuzz target: resource tables given as text. The first byte picks the XML form, the text form
// or a single Widget element; the table read is then written in both forms, and a table written
// in the text form that reads back without a report must write back the same text.
#include "fuzzSupport.h"

#include "uiResTable.h"

#include "xmlWriter.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

using namespace Zr;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0)
        return 0;
    std::string const text(reinterpret_cast<char const*>(data) + 1, size - 1);
    UiResTable table;
    switch (data[0] % 3) {
    case 0:
        table.readTable(LiString(text), UiResource::LevelApplication);
        break;
    case 1:
        table.readTableText(LiString(text), UiResource::LevelSystem);
        break;
    case 2:
        table.readWidgetCatchErrors(LiString(text), UiResource::LevelDefault);
        break;
    }

    std::ostringstream xml;
    {
        XmlWriter writer(xml);
        table.writeTable(writer);
    }
    std::ostringstream first;
    table.writeTableText(first);

    FuzzSupport::reportCount() = 0;
    UiResTable again;
    again.readTableText(LiString(first.str()), UiResource::LevelApplication);
    if (FuzzSupport::reportCount() == 0) {
        std::ostringstream second;
        again.writeTableText(second);
        if (second.str() != first.str()) {
            std::fprintf(stderr,
                         "text form does not read back:\n--- written\n%s\n--- re-written\n%s\n",
                         first.str().c_str(), second.str().c_str());
            std::abort();
        }
    }
    return 0;
}
