// zrui-render: builds a widget definition into a window of the toolkit, draws it once and writes
// the window's pixels to a PNG file; a definition that can't be built is reported by file and
// widget and ends the program with a non-zero status. --list-types prints the widget types a
// definition may use.
#include "evEvent.h"
#include "exBase.h"
#include "inInitGuard.h"
#include "msgBase.h"
#include "msgProtocol.h"
#include "osEnv.h"
#include "osFilePath.h"
#include "uiApplication.h"
#include "uiContainer.h"
#include "uiFrame.h"
#include "uiIconRegistry.h"
#include "uiResTable.h"
#include "uiTopLevel.h"
#include "uiWidget.h"
#include "uiWidgetFactory.h"
#include "uiWidgetGroupFactory.h"
#include "wsManagedImage.h"
#include "wsSdl.h"
#include "wsWindowStyle.h"
#include "xmlDocument.h"
#include "xmlElement.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

using namespace Zr;

namespace {

char const* const Usage =
    "usage: zrui-render DEFINITION.xml -o OUT.png [--size WxH] [--table TABLE.xml]\n"
    "       zrui-render --list-types\n"
    "\n"
    "Builds the widget definition DEFINITION.xml into the root of a window of WxH pixels\n"
    "(400x300 unless --size says otherwise), draws it and writes the window as OUT.png.\n"
    "--table reads a resource table first, for its font and colour definitions and widget\n"
    "resources. With no display (no DISPLAY, WAYLAND_DISPLAY or SDL_VIDEODRIVER), the window\n"
    "is drawn offscreen, through SDL's offscreen driver, and the program says so.\n"
    "--list-types prints the widget types a definition may use, one per line.\n"
    "\n"
    "A definition that can't be built (malformed XML, an unknown widget or group type, no\n"
    "<Widget> record, an unknown frame, a missing icon file, a bad resource) is reported on\n"
    "standard error with its file and widget, and the program ends with status 1.\n"
    "Status 2: bad arguments; 3: no window can be opened, not even offscreen.\n";

struct Options {
    std::string definition;
    std::string output;
    std::string table;
    int width = 400;
    int height = 300;
    bool listTypes = false;
};

bool parseSize(std::string const& text, int& width, int& height) {
    char x = 0;
    char extra = 0;
    return std::sscanf(text.c_str(), "%d%c%d%c", &width, &x, &height, &extra) == 3 &&
           (x == 'x' || x == 'X') && width > 0 && height > 0 && width <= 16384 && height <= 16384;
}

// 0 to go on, otherwise the status to end with.
int parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        std::string const arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            std::cout << Usage;
            return -1;
        } else if (arg == "-o" && i + 1 < argc) {
            options.output = argv[++i];
        } else if (arg == "--size" && i + 1 < argc) {
            if (!parseSize(argv[++i], options.width, options.height)) {
                std::cerr << "zrui-render: bad size \"" << argv[i] << "\" (WxH, e.g. 400x300)\n";
                return 2;
            }
        } else if (arg == "--list-types") {
            options.listTypes = true;
        } else if (arg == "--table" && i + 1 < argc) {
            options.table = argv[++i];
        } else if (!arg.empty() && arg[0] != '-' && options.definition.empty()) {
            options.definition = arg;
        } else {
            std::cerr << "zrui-render: unexpected argument \"" << arg << "\"\n" << Usage;
            return 2;
        }
    }
    if (!options.listTypes && (options.definition.empty() || options.output.empty())) {
        std::cerr << Usage;
        return 2;
    }
    // The image never goes over an input: "-o panel.xml" would destroy the definition. The
    // same file under another name (a link, "./x") counts too.
    for (std::string const* input : {&options.definition, &options.table}) {
        std::error_code error;
        if (!input->empty() && (std::filesystem::equivalent(*input, options.output, error) ||
                                std::filesystem::weakly_canonical(*input, error) ==
                                    std::filesystem::weakly_canonical(options.output, error))) {
            std::cerr << "zrui-render: the output \"" << options.output
                      << "\" would overwrite the input \"" << *input << "\"\n";
            return 2;
        }
    }
    return 0;
}

// The registered widget types, sorted. The factory registry names them only in its HTML dump,
// one <font size=+1>NAME</font> cell per type.
// Checks the type of every definition and of every group in it before anything is built, so
// that a name no factory knows is reported in the file's words. The walk keeps its own stack:
// how deep a definition nests is the file's choice, not a limit of ours.
void checkTypes(XmlElement const& root, std::string const& file, std::vector<std::string>& errors) {
    std::vector<XmlElement> pending{root};
    while (!pending.empty()) {
        XmlElement const definition = pending.back();
        pending.pop_back();
        XmlElement const record = definition.getElementByTagName("Widget");
        std::string const widget =
            ": widget '" + (record ? record.getAttribute("Name") : std::string()) + "': ";
        auto at = [&](XmlElement const& element) {
            return file + ":" + std::to_string(element.getLine()) + widget;
        };
        std::string const type = definition.getNodeName();
        if (!UiWidgetFactory::isRegistered(LiString(type))) {
            errors.push_back(at(definition) + "unknown widget type \"" + type +
                             "\" (zrui-render --list-types lists the known ones)");
            continue;
        }
        std::vector<XmlElement> children;
        for (XmlElement const& group : definition.getElementsByTagName("Group")) {
            std::string const groupType = group.getAttribute("Type");
            if (groupType.empty()) {
                errors.push_back(at(group) + "a group without a Type");
            } else if (!UiWidgetGroupFactory::isRegistered(LiString(groupType))) {
                errors.push_back(at(group) + "unknown group type \"" + groupType + "\"");
            } else if (groupType == "Children") {
                for (XmlElement const& child : group.getChildren())
                    children.push_back(child);
            }
        }
        // Reversed onto the stack, so that reports follow the document.
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
}

// Checks what the toolkit takes in quietly or reports without a widget's name: frames that no
// widget can show and icon files that can't be read. Each fault is one line in `errors`.
void checkResources(XmlElement const& root, std::string const& file,
                    std::vector<std::string>& errors) {
    for (XmlElement const& record : root.getAllElementsByTagName("Widget")) {
        std::string const widget = record.getAttribute("Name");
        std::string const where = file + ":" + std::to_string(record.getLine());
        for (XmlElement const& resource : record.getChildren()) {
            for (XmlElement const& frame : resource.getElementsByTagName("Frame")) {
                std::string const name = frame.getDataMB();
                if (!UiFrameRegistry::getInstance().isRegisteredType(LiString(name)))
                    errors.push_back(where + ": widget '" + widget + "': resource '" +
                                     resource.getNodeName() + "': unknown frame \"" + name + "\"");
            }
            for (XmlElement const& icon : resource.getElementsByTagName("IconFile")) {
                try {
                    UiIconRegistry::getInstance().loadImage(OsFilePath(icon.getDataMB()));
                } catch (ExBase const& ex) {
                    errors.push_back(where + ": widget '" + widget + "': resource '" +
                                     resource.getNodeName() + "': " + ex.getReason());
                }
            }
        }
    }
}

// Runs the loop until one turn has repainted something.
void runUntilRedrawn() {
    UiApplication& app = UiApplication::getInstance();
    CbFunction<DtTimeIndex const> done([&app](DtTimeIndex const&) { app.exitLoop(); });
    app.addCallback(&done);
    app.messageLoop();
    app.removeCallback(&done);
}

int render(Options const& options) {
    std::string const file = options.definition;
    if (!std::filesystem::is_regular_file(file)) {
        std::cerr << "zrui-render: " << file << ": no such file\n";
        return 1;
    }
    // Reports of the resource readers are collected: any of them fails the run.
    std::vector<std::string> errors;
    MsgProtocol::DisplayHandler previous =
        MsgProtocol::setDisplayHandler([&errors](MsgBase const& message) {
            errors.push_back(message.getText());
            MsgProtocol::displayOnStandardError(message);
        });
    struct Restore {
        MsgProtocol::DisplayHandler& handler;
        ~Restore() { MsgProtocol::setDisplayHandler(handler); }
    } restore{previous};

    std::unique_ptr<UiResTable> table;
    if (!options.table.empty()) {
        if (!std::filesystem::is_regular_file(options.table)) {
            std::cerr << "zrui-render: " << options.table << ": no such file\n";
            return 1;
        }
        table =
            std::make_unique<UiResTable>(OsFilePath(options.table), UiResource::LevelApplication);
    }
    try {
        XmlDocument document{OsFilePath(file)};
        checkTypes(document.getRoot(), file, errors);
        checkResources(document.getRoot(), file, errors);
    } catch (ExBase const& ex) {
        // The parser's reason starts with the file already.
        std::string const& reason = ex.getReason();
        std::cerr << "zrui-render: " << (reason.rfind(file, 0) == 0 ? "" : file + ": ") << reason
                  << "\n";
        return 1;
    }
    if (!errors.empty()) {
        for (std::string const& error : errors)
            std::cerr << "zrui-render: " << error << "\n";
        return 1;
    }

    RCShdPtr<UiTopLevel> window = UiTopLevel::create(
        "zrui-render", table.get(),
        WsWindowStyleUtils::getNormalWindowStyle({0, options.width, 0, options.height}));
    int status = 0;
    try {
        UiWidgetFactory::createWidgetFromFile(window->getRootContainer(), OsFilePath(file));
    } catch (UiWidgetDefinitionEx const& ex) {
        std::cerr << "zrui-render: " << (ex.getWhere().empty() ? file : ex.getWhere())
                  << ": widget '" << ex.getWidgetName() << "': " << ex.getReason() << "\n";
        status = 1;
    } catch (ExBase const& ex) {
        std::cerr << "zrui-render: " << file << ": " << ex.getReason() << "\n";
        status = 1;
    }
    if (status == 0 && !errors.empty()) {
        std::cerr << "zrui-render: " << file << ": the definition has bad resources\n";
        status = 1;
    }
    if (status == 0) {
        window->show();
        runUntilRedrawn();
        try {
            window->writeScreenshot(OsFilePath(options.output));
            std::cout << "wrote " << std::filesystem::absolute(options.output).string() << "\n";
        } catch (ExBase const& ex) {
            std::cerr << "zrui-render: " << ex.getReason() << "\n";
            status = 1;
        }
    }
    window->getRootContainer()->removeChildren();
    UiApplication::getInstance().clearCurrentWindow();
    return status;
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (int const status = parse(argc, argv, options))
        return status < 0 ? 0 : status;
    if (options.listTypes) {
        // The factories are registered at start-up with or without graphics: no window needed.
        OsEnv::set("ZR_NO_GRAPHICS", "1");
        InInitGuard packages(argc, argv);
        for (std::string const& type : UiWidgetFactory::getRegisteredNames())
            std::cout << type << "\n";
        return 0;
    }
    // The toolkit opens SDL at start-up, so the driver is chosen before.
    bool const offscreen = WsSdl::chooseOffscreenWithoutDisplay();
    // The start-up's messages wait: when no window can be opened, its warning about headless
    // windows would only repeat the line below.
    std::vector<std::string> startMessages;
    MsgProtocol::DisplayHandler previous =
        MsgProtocol::setDisplayHandler([&startMessages](MsgBase const& message) {
            startMessages.push_back(std::string(message.getSeverityName()) + ": " +
                                    message.getText());
        });
    InInitGuard packages(argc, argv);
    MsgProtocol::setDisplayHandler(previous);
    if (!WsSdl::initialize()) {
        std::cerr << "zrui-render: no window can be opened (" << WsSdl::getLastError() << ")\n";
        return 3;
    }
    for (std::string const& line : startMessages)
        std::cerr << line << "\n";
    if (offscreen)
        std::cout << "no display: drawing offscreen\n";
    try {
        return render(options);
    } catch (ExBase const& ex) {
        std::cerr << "zrui-render: " << ex.getReason() << "\n";
        return 1;
    }
}
