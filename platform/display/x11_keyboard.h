// Key events of the X server as the window room takes them: virtual key, text, modifiers.
#pragma once

#include "platform/display/display.h"
#include "platform/display/x11_input_method.h"

#include <bitset>

namespace platform {

class X11Keyboard {
public:
    explicit X11Keyboard(::Display* display);

    X11InputMethod& inputMethod() { return inputMethod_; }

    // Both return whether the event was one for the sink. A release is none when its press was none.
    bool onKeyPress(XKeyEvent& event, InputSink& sink);
    bool onKeyRelease(XKeyEvent& event, InputSink& sink);
    // The keys were given another meaning.
    void onMappingNotify(XMappingEvent& event);
    // Keys that go up elsewhere are not seen.
    void forgetPressedKeys() { pressed_.reset(); }

    // The bits of InputSink::modifiers of an event's state.
    unsigned modifiersOf(unsigned state) const;

private:
    void readModifierMasks();
    int virtualKeyOf(XKeyEvent& event, KeySym symbol) const;

    ::Display* display_;
    X11InputMethod inputMethod_;
    unsigned altMask_ = 0;
    unsigned numLockMask_ = 0;
    unsigned thirdLevelMask_ = 0;
    std::bitset<256> pressed_;  // By key code.
};

}  // namespace platform
