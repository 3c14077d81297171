// A selection in both directions, as text: the clipboard, or the primary selection, which is what was marked last.
// Deliberately missing: other formats, and sending in pieces (our own text is short).
#pragma once

#include "platform/display/x11_connection.h"

#include <chrono>
#include <optional>
#include <string>

namespace platform {

class X11Clipboard {
public:
    X11Clipboard(X11Connection& connection, X11Atom selection) : connection_(connection), selection_(selection) {}

    // Code page 1252 with the line ends of the window API (CR LF) on our side.
    void write(const std::string& text);
    // Asks the owning program and waits for it at most a second; false when it has no text or does not answer.
    bool read(std::string& text);
    bool hasText();
    // Gives an owned text to the clipboard manager, which keeps it when this program ends or listens no more. Waits a
    // second at most.
    void handOver();

    Atom selection() const { return connection_.atom(selection_); }
    void onSelectionRequest(const XSelectionRequestEvent& request);
    void onSelectionClear(const XSelectionClearEvent& event);

private:
    using Clock = std::chrono::steady_clock;
    struct Transfer {
        Atom type = 0;
        std::string bytes;
    };

    // Has the owner convert the selection to `target`, and fetches the result.
    std::optional<Transfer> convert(Atom target, Clock::time_point deadline);
    // Reads and deletes the transfer property; this is also the sign to go on for a sender in pieces.
    std::optional<Transfer> takeProperty();
    std::optional<Transfer> receivePieces(Clock::time_point deadline);
    // Waits for an event of that type on the utility window; others stay in the queue.
    bool waitFor(int type, XEvent& event, Clock::time_point deadline);
    // Waits until something arrives; false when the time is up.
    bool waitForServer(Clock::time_point deadline);
    // Puts the answer to a request into the requestor's property; false when the target is not offered.
    bool answer(const XSelectionRequestEvent& request, Atom property);
    bool answerMultiple(const XSelectionRequestEvent& request, Atom property);
    bool answerText(const XSelectionRequestEvent& request, Atom property);

    X11Connection& connection_;
    X11Atom selection_;
    bool owned_ = false;
    Time ownedSince_ = CurrentTime;
    std::string text_;  // UTF-8 with LF, while the selection is owned.
};

}  // namespace platform
