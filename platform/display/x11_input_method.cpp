// An input method is bound to the character type locale that holds while it is opened. The host's locale may be "C",
// so a UTF-8 one is set for that moment only.

#include "platform/display/x11_input_method.h"

#include "platform/display/x11_connection.h"
#include "platform/resources/code_page.h"

#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <clocale>

namespace platform {
namespace {

constexpr XIMStyle kAtCaret = XIMPreeditPosition | XIMStatusNothing;
constexpr XIMStyle kOwnWindow = XIMPreeditNothing | XIMStatusNothing;
constexpr XIMStyle kInvisible = XIMPreeditNone | XIMStatusNone;

class CharacterLocale {
public:
    CharacterLocale() : saved_(std::setlocale(LC_CTYPE, nullptr)) {
        const char* user = std::setlocale(LC_CTYPE, "");
        const bool plain = user == nullptr || std::string(user) == "C" || std::string(user) == "POSIX";
        if (plain || XSupportsLocale() == False) {
            std::setlocale(LC_CTYPE, "C.UTF-8");
        }
    }
    ~CharacterLocale() { std::setlocale(LC_CTYPE, saved_.c_str()); }
    CharacterLocale(const CharacterLocale&) = delete;
    CharacterLocale& operator=(const CharacterLocale&) = delete;

private:
    std::string saved_;
};

}  // namespace

X11InputMethod::X11InputMethod(::Display* display) : display_(display) {
    open();
}

X11InputMethod::~X11InputMethod() {
    if (X11Connection::isLost(display_)) {
        return;
    }
    try {
        close();
    } catch (const X11ConnectionLost&) {
        return;
    }
}

void X11InputMethod::close() {
    if (method_ != nullptr) {
        for (const Context& context : contexts_) {
            if (context.handle != nullptr) {
                XDestroyIC(context.handle);
            }
        }
        XCloseIM(method_);
    }
    if (fontSet_ != nullptr) {
        XFreeFontSet(display_, fontSet_);
    }
}

void X11InputMethod::open() {
    const CharacterLocale locale;
    // First the method that the user's environment names, then the library's own, which knows the dead keys.
    for (const char* modifiers : {"", "@im=none"}) {
        if (XSetLocaleModifiers(modifiers) == nullptr) {
            continue;
        }
        method_ = XOpenIM(display_, nullptr, nullptr, nullptr);
        if (method_ == nullptr) {
            continue;
        }
        XIMCallback destroyed{reinterpret_cast<XPointer>(this), onDestroyed};
        XSetIMValues(method_, XNDestroyCallback, &destroyed, nullptr);
        chooseStyle();
        return;
    }
}

void X11InputMethod::chooseStyle() {
    XIMStyles* offered = nullptr;
    style_ = kOwnWindow;
    if (XGetIMValues(method_, XNQueryInputStyle, &offered, nullptr) != nullptr || offered == nullptr) {
        return;
    }
    const auto offers = [offered](XIMStyle style) {
        XIMStyle* end = offered->supported_styles + offered->count_styles;
        return std::find(offered->supported_styles, end, style) != end;
    };
    if (offers(kAtCaret) && fontSet_ == nullptr) {
        char** missing = nullptr;
        int missingCount = 0;
        fontSet_ = XCreateFontSet(display_, "-*-*-medium-r-normal--13-*,*", &missing, &missingCount, nullptr);
        XFreeStringList(missing);
    }
    if (offers(kAtCaret) && fontSet_ != nullptr) {
        style_ = kAtCaret;
    } else if (!offers(kOwnWindow) && offers(kInvisible)) {
        style_ = kInvisible;
    }
    XFree(offered);
}

// The method's program ended and took its contexts along; the library's own method takes over.
void X11InputMethod::onDestroyed(XIM, XPointer self, XPointer) {
    auto& input = *reinterpret_cast<X11InputMethod*>(self);
    input.method_ = nullptr;
    for (Context& context : input.contexts_) {
        context.handle = nullptr;
    }
    input.open();
    for (Context& context : input.contexts_) {
        context.handle = input.createContext(context.window);
    }
}

void X11InputMethod::attach(::Window window) {
    contexts_.push_back({window, createContext(window)});
}

void X11InputMethod::detach(::Window window) {
    if (const XIC context = contextOf(window)) {
        XDestroyIC(context);
    }
    std::erase_if(contexts_, [window](const Context& context) { return context.window == window; });
}

XIC X11InputMethod::createContext(::Window window) {
    if (method_ == nullptr) {
        return nullptr;
    }
    if (style_ != kAtCaret) {
        return XCreateIC(method_, XNInputStyle, style_, XNClientWindow, window, XNFocusWindow, window, nullptr);
    }
    XPoint spot{};
    XVaNestedList preedit = XVaCreateNestedList(0, XNSpotLocation, &spot, XNFontSet, fontSet_, nullptr);
    const XIC context = XCreateIC(method_, XNInputStyle, style_, XNClientWindow, window, XNFocusWindow, window,
                                  XNPreeditAttributes, preedit, nullptr);
    XFree(preedit);
    return context;
}

XIC X11InputMethod::contextOf(::Window window) const {
    for (const Context& context : contexts_) {
        if (context.window == window) {
            return context.handle;
        }
    }
    return nullptr;
}

void X11InputMethod::focusIn(::Window window) {
    if (const XIC context = contextOf(window)) {
        XSetICFocus(context);
    }
}

void X11InputMethod::focusOut(::Window window) {
    if (const XIC context = contextOf(window)) {
        XUnsetICFocus(context);
    }
}

void X11InputMethod::setCaretRect(::Window window, const RECT& rect) {
    const XIC context = contextOf(window);
    if (context == nullptr || style_ != kAtCaret) {
        return;
    }
    XPoint spot{static_cast<short>(rect.left), static_cast<short>(rect.bottom)};
    XVaNestedList preedit = XVaCreateNestedList(0, XNSpotLocation, &spot, nullptr);
    XSetICValues(context, XNPreeditAttributes, preedit, nullptr);
    XFree(preedit);
}

std::string X11InputMethod::lookup(XKeyEvent& event, KeySym& symbol) {
    std::array<char, 64> buffer{};
    symbol = NoSymbol;
    const XIC context = contextOf(event.window);
    if (context == nullptr) {
        // This call gives Latin-1, which agrees with the code page in all that a keyboard sends.
        const int length = XLookupString(&event, buffer.data(), static_cast<int>(buffer.size()), &symbol, nullptr);
        return {buffer.data(), static_cast<std::size_t>(length)};
    }
    Status status = 0;
    std::string text(buffer.size(), '\0');
    int length = Xutf8LookupString(context, &event, text.data(), static_cast<int>(text.size()), &symbol, &status);
    if (status == XBufferOverflow) {
        text.resize(static_cast<std::size_t>(length));
        length = Xutf8LookupString(context, &event, text.data(), length, &symbol, &status);
    }
    if (status != XLookupKeySym && status != XLookupBoth) {
        symbol = NoSymbol;
    }
    if (status != XLookupChars && status != XLookupBoth) {
        return {};
    }
    return utf8ToCodePage({text.data(), static_cast<std::size_t>(length)}, Unmapped::Drop);
}

}  // namespace platform
