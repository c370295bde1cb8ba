// Fuzz target: tool files (the node types of resources/nodes) given as bytes, read by the tool
// registry from a file. A file either reads as a tool, whose inputs and stored values are then
// listed, or raises PiToolRegistryEx::ExBadToolFile; nothing else may escape.
#include "fuzzFile.h"

#include "piTool.h"
#include "piToolRegistry.h"

#include "msgProtocol.h"

#include <cstddef>
#include <cstdint>

using namespace Zr;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    MsgProtocol::setDisplayHandler([](MsgBase const&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    FuzzFile const file("tool.xml", data, size);
    PiToolRegistry registry;
    try {
        RCShdPtr<PiTool> tool = registry.readToolFile(file.path());
        if (tool)
            registry.registerTool(tool);
    } catch (PiToolRegistryEx::ExBadToolFile const&) {
    }
    return 0;
}
