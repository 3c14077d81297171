#include "platform/window/message_trace.h"

#include "platform/trace/message_text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace platform {
namespace {

// An empty list holds everything.
class NameList {
public:
    explicit NameList(const char* variable) {
        const char* const text = std::getenv(variable);
        std::string rest = text != nullptr ? text : "";
        while (!rest.empty()) {
            const std::size_t comma = rest.find(',');
            names_.push_back(rest.substr(0, comma));
            rest.erase(0, comma == std::string::npos ? comma : comma + 1);
        }
    }
    bool holds(const std::string& name) const {
        return names_.empty() || std::find(names_.begin(), names_.end(), name) != names_.end();
    }

private:
    std::vector<std::string> names_;
};

std::FILE* openTrace() {
    const char* const file = std::getenv("TAVRIK_TRACE");
    if (file == nullptr || *file == '\0') {
        return nullptr;
    }
    return std::string(file) == "-" ? stderr : std::fopen(file, "ae");
}

struct Trace {
    // Kept open until the process ends: a host's last destructors send messages too.
    std::FILE* file = openTrace();
    NameList classes{"TAVRIK_TRACE_CLASSES"};
    NameList messages{"TAVRIK_TRACE_MESSAGES"};
    int depth = 0;
};

Trace& trace() {
    static auto* const only = new Trace;
    return *only;
}

std::string messageText(UINT message, const std::string& windowClass, WPARAM wParam, LPARAM lParam) {
    if (const MessageTraits* const traits = findMessage(message, windowClass)) {
        return std::string(traits->name) + messageArguments(traits->shows, wParam, lParam, describeWindow);
    }
    return messageName(message) + messageArguments(Shows::Both, wParam, lParam, describeWindow);
}

// One level deeper, also when memory runs out inside.
class Nesting {
public:
    explicit Nesting(int& depth) : depth_(depth) { ++depth_; }
    ~Nesting() { --depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    int& depth_;
};

}  // namespace

bool isTracing() {
    static const bool tracing = trace().file != nullptr;
    return tracing;
}

LRESULT callTraced(const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND handle = window.handle;
    const WNDPROC proc = window.proc;
    const std::string name = describeWindow(handle);
    const std::string windowClass = name.substr(0, name.rfind(' '));
    const std::string text = messageText(message, windowClass, wParam, lParam);
    Trace& out = trace();
    if (!out.classes.holds(windowClass) || !out.messages.holds(text.substr(0, text.find(' ')))) {
        return proc(handle, message, wParam, lParam);
    }
    std::fprintf(out.file, "%*s%s %s\n", out.depth * 2, "", name.c_str(), text.c_str());
    const LRESULT result = [&] {
        const Nesting nesting(out.depth);
        return proc(handle, message, wParam, lParam);
    }();
    if (result != 0) {
        std::fprintf(out.file, "%*s-> %lld\n", out.depth * 2, "", static_cast<long long>(result));
    }
    std::fflush(out.file);
    return result;
}

}  // namespace platform
