// The owner of a selection keeps its text and answers requests for it, so writing sends nothing and reading asks.

#include "platform/display/x11_clipboard.h"

#include "platform/resources/code_page.h"

#include <X11/Xatom.h>
#include <poll.h>

#include <algorithm>

namespace platform {
namespace {

constexpr std::chrono::seconds kLongestWait(1);

std::string withoutCarriageReturns(std::string text) {
    std::size_t at = 0;
    while ((at = text.find("\r\n", at)) != std::string::npos) {
        text.erase(at, 1);
    }
    return text;
}

std::string withCarriageReturns(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) {
            result += '\r';
        }
        result += text[i];
    }
    return result;
}

// The part of the code page that Latin-1 has too.
std::string utf8ToLatin1(const std::string& text) {
    std::string result = utf8ToCodePage(text, Unmapped::QuestionMark);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return characterOfByte(static_cast<unsigned char>(c)) > 0xFF; },
        '?');
    return result;
}

}  // namespace

void X11Clipboard::write(const std::string& text) {
    text_ = withoutCarriageReturns(codePageToUtf8(text));
    ownedSince_ = connection_.lastTime();
    XSetSelectionOwner(connection_.display(), selection(), connection_.utilityWindow(), ownedSince_);
    // The server refuses when another program took the selection later than our last event.
    owned_ = XGetSelectionOwner(connection_.display(), selection()) == connection_.utilityWindow();
}

bool X11Clipboard::read(std::string& text) {
    if (owned_) {
        text = withCarriageReturns(utf8ToCodePage(text_, Unmapped::QuestionMark));
        return !text.empty();
    }
    const Atom utf8 = connection_.atom(X11Atom::Utf8String);
    const auto deadline = Clock::now() + kLongestWait;
    for (const Atom target : {utf8, Atom{XA_STRING}}) {
        const auto transfer = convert(target, deadline);
        if (!transfer || (transfer->type != utf8 && transfer->type != XA_STRING)) {
            continue;
        }
        // A zero byte would end the text in the clipboard's own format.
        const std::string bytes = transfer->bytes.substr(0, transfer->bytes.find('\0'));
        text = withCarriageReturns(transfer->type == utf8 ? utf8ToCodePage(bytes, Unmapped::QuestionMark) : bytes);
        return true;
    }
    return false;
}

bool X11Clipboard::hasText() {
    if (owned_) {
        return !text_.empty();
    }
    if (XGetSelectionOwner(connection_.display(), selection()) == 0) {
        return false;
    }
    const auto targets = convert(connection_.atom(X11Atom::Targets), Clock::now() + kLongestWait);
    if (!targets || targets->type != XA_ATOM) {
        return false;
    }
    // Xlib hands out 32-bit items as longs.
    const auto* first = reinterpret_cast<const Atom*>(targets->bytes.data());
    const auto* last = first + targets->bytes.size() / sizeof(Atom);
    return std::any_of(first, last, [this](Atom target) {
        return target == connection_.atom(X11Atom::Utf8String) || target == XA_STRING;
    });
}

std::optional<X11Clipboard::Transfer> X11Clipboard::convert(Atom target, Clock::time_point deadline) {
    ::Display* display = connection_.display();
    const ::Window window = connection_.utilityWindow();
    const Atom property = connection_.atom(X11Atom::TransferProperty);
    XEvent event;
    // What is left of an earlier transfer that took too long.
    while (XCheckTypedWindowEvent(display, window, SelectionNotify, &event) != False) {
    }
    XDeleteProperty(display, window, property);
    XConvertSelection(display, selection(), target, property, window, connection_.lastTime());
    do {
        if (!waitFor(SelectionNotify, event, deadline)) {
            return std::nullopt;
        }
    } while (event.xselection.target != target);
    if (event.xselection.property == 0) {
        return std::nullopt;
    }
    // Notices about the property from here on announce pieces.
    while (XCheckTypedWindowEvent(display, window, PropertyNotify, &event) != False) {
    }
    auto transfer = takeProperty();
    if (transfer && transfer->type == connection_.atom(X11Atom::Incr)) {
        return receivePieces(deadline);
    }
    return transfer;
}

std::optional<X11Clipboard::Transfer> X11Clipboard::takeProperty() {
    constexpr long kWholeProperty = 0x1FFFFFFF;
    Transfer transfer;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    const int result = XGetWindowProperty(connection_.display(), connection_.utilityWindow(),
                                          connection_.atom(X11Atom::TransferProperty), 0, kWholeProperty, True,
                                          AnyPropertyType, &transfer.type, &format, &count, &left, &data);
    if (result != Success || data == nullptr) {
        return std::nullopt;
    }
    const std::size_t itemSize = format == 32 ? sizeof(long) : static_cast<std::size_t>(format) / 8;
    transfer.bytes.assign(reinterpret_cast<const char*>(data), count * itemSize);
    XFree(data);
    if (transfer.type == 0) {
        return std::nullopt;
    }
    return transfer;
}

std::optional<X11Clipboard::Transfer> X11Clipboard::receivePieces(Clock::time_point deadline) {
    Transfer whole;
    XEvent event;
    while (waitFor(PropertyNotify, event, deadline)) {
        if (event.xproperty.atom != connection_.atom(X11Atom::TransferProperty) ||
            event.xproperty.state != PropertyNewValue) {
            continue;
        }
        const auto piece = takeProperty();
        if (!piece) {
            return std::nullopt;
        }
        // An empty piece is the end.
        if (piece->bytes.empty()) {
            return whole;
        }
        whole.type = piece->type;
        whole.bytes += piece->bytes;
    }
    return std::nullopt;
}

bool X11Clipboard::waitFor(int type, XEvent& event, Clock::time_point deadline) {
    while (XCheckTypedWindowEvent(connection_.display(), connection_.utilityWindow(), type, &event) == False) {
        if (!waitForServer(deadline)) {
            return false;
        }
    }
    return true;
}

bool X11Clipboard::waitForServer(Clock::time_point deadline) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) {
        return false;
    }
    XFlush(connection_.display());
    pollfd descriptor{ConnectionNumber(connection_.display()), POLLIN, 0};
    poll(&descriptor, 1, static_cast<int>(left.count()));
    return true;
}

void X11Clipboard::handOver() {
    ::Display* display = connection_.display();
    const ::Window window = connection_.utilityWindow();
    const Atom manager = connection_.atom(X11Atom::ClipboardManager);
    if (!owned_ || text_.empty() || XGetSelectionOwner(display, manager) == 0) {
        return;
    }
    const std::array<Atom, 1> saved = {connection_.atom(X11Atom::Utf8String)};
    connection_.setAtomProperty(window, X11Atom::TransferProperty, saved);
    XConvertSelection(display, manager, connection_.atom(X11Atom::SaveTargets),
                      connection_.atom(X11Atom::TransferProperty), window, ownedSince_);
    // It asks for the text before it says that it has it.
    const auto deadline = Clock::now() + kLongestWait;
    XEvent event;
    while (!XCheckTypedWindowEvent(display, window, SelectionNotify, &event)) {
        if (XCheckTypedWindowEvent(display, window, SelectionRequest, &event)) {
            onSelectionRequest(event.xselectionrequest);
        } else if (!waitForServer(deadline)) {
            return;
        }
    }
}

void X11Clipboard::onSelectionRequest(const XSelectionRequestEvent& request) {
    // Old clients leave the property to the owner, which takes the target's name.
    const Atom property = request.property != 0 ? request.property : request.target;
    XEvent reply{};
    reply.xselection.type = SelectionNotify;
    reply.xselection.requestor = request.requestor;
    reply.xselection.selection = request.selection;
    reply.xselection.target = request.target;
    reply.xselection.time = request.time;
    const bool ours = owned_ && request.selection == selection();
    reply.xselection.property = ours && answer(request, property) ? property : 0;
    XSendEvent(connection_.display(), request.requestor, False, NoEventMask, &reply);
}

bool X11Clipboard::answer(const XSelectionRequestEvent& request, Atom property) {
    ::Display* display = connection_.display();
    const auto is = [&](X11Atom atom) { return request.target == connection_.atom(atom); };
    if (is(X11Atom::Targets)) {
        const std::array<Atom, 7> targets = {connection_.atom(X11Atom::Targets),
                                             connection_.atom(X11Atom::Timestamp),
                                             connection_.atom(X11Atom::Multiple),
                                             connection_.atom(X11Atom::Utf8String),
                                             connection_.atom(X11Atom::Utf8MimeText),
                                             connection_.atom(X11Atom::Text),
                                             XA_STRING};
        XChangeProperty(display, request.requestor, property, XA_ATOM, 32, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(targets.data()), static_cast<int>(targets.size()));
        return true;
    }
    if (is(X11Atom::Timestamp)) {
        const auto time = static_cast<long>(ownedSince_);
        XChangeProperty(display, request.requestor, property, XA_INTEGER, 32, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(&time), 1);
        return true;
    }
    return is(X11Atom::Multiple) ? answerMultiple(request, property) : answerText(request, property);
}

// The property holds pairs of a target and a property for it; a target that is not offered loses its property.
bool X11Clipboard::answerMultiple(const XSelectionRequestEvent& request, Atom property) {
    const Atom pairType = connection_.atom(X11Atom::AtomPair);
    std::vector<long> pairs = connection_.readNumbers(request.requestor, property, pairType);
    if (pairs.empty() || pairs.size() % 2 != 0) {
        return false;
    }
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        XSelectionRequestEvent single = request;
        single.target = static_cast<Atom>(pairs[i]);
        const bool nested = single.target == connection_.atom(X11Atom::Multiple);
        if (nested || pairs[i + 1] == 0 || !answer(single, static_cast<Atom>(pairs[i + 1]))) {
            pairs[i + 1] = 0;
        }
    }
    connection_.setNumbers(request.requestor, property, pairType, pairs);
    return true;
}

bool X11Clipboard::answerText(const XSelectionRequestEvent& request, Atom property) {
    ::Display* display = connection_.display();
    const auto is = [&](X11Atom atom) { return request.target == connection_.atom(atom); };
    // A request holds four bytes a unit, and a little of it is not text.
    if (text_.size() > static_cast<std::size_t>(XMaxRequestSize(display)) * 4 - 256) {
        return false;
    }
    if (request.target == XA_STRING) {
        connection_.setTextProperty(request.requestor, property, XA_STRING, utf8ToLatin1(text_));
        return true;
    }
    if (!is(X11Atom::Utf8String) && !is(X11Atom::Utf8MimeText) && !is(X11Atom::Text)) {
        return false;
    }
    const Atom type = is(X11Atom::Text) ? connection_.atom(X11Atom::Utf8String) : request.target;
    connection_.setTextProperty(request.requestor, property, type, text_);
    return true;
}

void X11Clipboard::onSelectionClear(const XSelectionClearEvent& event) {
    if (event.selection == selection()) {
        owned_ = false;
    }
}

}  // namespace platform
