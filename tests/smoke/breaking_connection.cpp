// The X server goes away while the sheet is being opened: between the library and the server stands a relay that lets
// so and so many bytes pass and then closes. The calling process must live on, and each of its calls return.
// Usage: breakingconnection SOCKET, the path of the server's socket. Exit status 0 when all went well.

#include <windows.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <tavrikdisplay.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/store.h"

namespace {

constexpr unsigned kLongestSeconds = 10;
constexpr int kQuietMs = 300;  // The sheet is up; nothing but the caret moves.

struct Address {
    explicit Address(const std::string& path) {
        name.sun_family = AF_UNIX;
        path.copy(name.sun_path, sizeof name.sun_path);
        size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&name); }
    sockaddr_un name{};
    socklen_t size;
};

// A display of our own, by the name without a file that clients look for first.
int listenAsDisplay(int number) {
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const Address address(std::string(1, '\0') + "/tmp/.X11-unix/X" + std::to_string(number));
    if (bind(listener, address.get(), address.size) != 0 || listen(listener, 4) != 0) {
        std::perror("relay");
        std::exit(2);
    }
    return listener;
}

bool pass(int from, int to, long most, long& passed) {
    std::array<char, 65536> block;
    const ssize_t count = read(from, block.data(), std::min<size_t>(block.size(), static_cast<size_t>(most)));
    passed += std::max<ssize_t>(count, 0);
    return count > 0 && write(to, block.data(), static_cast<size_t>(count)) == count;
}

// Passes at most `budget` bytes of requests; both ends are closed then, or when nothing was asked for a while.
void relay(int listener, const std::string& serverPath, long budget) {
    const int client = accept(listener, nullptr, nullptr);
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const Address address(serverPath);
    long asked = 0;
    long answered = 0;
    bool open = connect(server, address.get(), address.size) == 0;
    while (open && asked < budget) {
        std::array<pollfd, 2> ends = {pollfd{client, POLLIN, 0}, pollfd{server, POLLIN, 0}};
        open = poll(ends.data(), ends.size(), kQuietMs) > 0;
        if (open && ends[1].revents != 0) {
            open = pass(server, client, 65536, answered);
        }
        if (open && ends[0].revents != 0) {
            open = pass(client, server, budget - asked, asked);
        }
    }
    close(server);
    close(client);
}

// What a host does: two calls, and its own window and loop. Answers what went wrong, null for nothing.
const char* useTheLibrary() {
    if (TavrikDisplayInit(TAVRIK_DISPLAY_X11) == 0) {
        return nullptr;  // Lost as early as that, there simply is no display.
    }
    if (fcntl(STDOUT_FILENO, F_GETFD) >= 0) {
        return "the connection took the place of standard output";
    }
    CMdb store;
    host::ScenarioStore access(store);
    access.Append("X-COORD", "20");
    const std::string before = access.Snapshot();
    for (const char* caption : {"one", "two"}) {
        if (Tavrikconfig(nullptr, caption, &store, 1, 1, 0) != 0 || access.Snapshot() != before) {
            return "a call was not cancelled";
        }
        if (TavrikDisplayLost() == 0) {
            return "the loss is not told";
        }
    }
    const HWND window = CreateWindowExA(0, "Edit", "text", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 90, 90, nullptr,
                                        nullptr, nullptr, nullptr);
    SetFocus(window);
    SendMessageA(window, EM_SETSEL, 0, -1);
    SendMessageA(window, WM_COPY, 0, 0);
    SendMessageA(window, WM_PASTE, 0, 0);
    MessageBoxA(window, "text", "caption", MB_YESNO);
    MSG message{};
    if (GetMessageA(&message, nullptr, 0, 0) != FALSE || message.message != WM_QUIT) {
        return "the host's own loop does not end";
    }
    return DestroyWindow(window) ? nullptr : "the host's window is gone";
}

bool survives(int listener, const std::string& serverPath, long budget) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(kLongestSeconds);
        close(STDOUT_FILENO);
        const char* wrong = useTheLibrary();
        if (wrong != nullptr) {
            std::fprintf(stderr, "%s\n", wrong);
        }
        _exit(wrong != nullptr ? 1 : 0);
    }
    relay(listener, serverPath, budget);
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) {
        std::fprintf(stderr, "after %ld bytes: wait status %d\n", budget, status);
    }
    return status == 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    constexpr int kBeyondUsualNumbers = 10000;
    const int number = kBeyondUsualNumbers + getpid() % kBeyondUsualNumbers;
    const int listener = listenAsDisplay(number);
    setenv("DISPLAY", (":" + std::to_string(number)).c_str(), 1);
    bool good = true;
    // Small steps where each request is another one, large ones where pictures are sent; at last the whole sheet.
    constexpr long kWholeSheet = 100'000'000;
    for (long budget = 8; budget < 4'000'000; budget += std::max(40L, budget / 5)) {
        good = survives(listener, argv[1], budget) && good;
    }
    good = survives(listener, argv[1], kWholeSheet) && good;
    return good ? 0 : 1;
}
