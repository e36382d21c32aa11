// Preloaded into a program that would serve every network: it then serves this machine only. Qt's
// VNC plugin listens on all interfaces, has no setting against it, and asks for no password.
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace {

// What the program starts itself is none of our business.
__attribute__((constructor)) void leaveChildrenAlone() {
    unsetenv("LD_PRELOAD");
}

/// The same address, or the loopback one where it stands for all of this machine's addresses.
sockaddr_storage onLoopback(const sockaddr* address, socklen_t length) {
    sockaddr_storage storage{};
    std::memcpy(&storage, address, length);
    if (address->sa_family == AF_INET) {
        sockaddr_in internet{};
        std::memcpy(&internet, address, sizeof internet);
        if (internet.sin_addr.s_addr == htonl(INADDR_ANY)) {
            internet.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            std::memcpy(&storage, &internet, sizeof internet);
        }
    }
    if (address->sa_family == AF_INET6) {
        sockaddr_in6 internet{};
        std::memcpy(&internet, address, sizeof internet);
        if (IN6_IS_ADDR_UNSPECIFIED(&internet.sin6_addr)) {
            // The IPv4 address in IPv6 notation: a socket for both families then answers to
            // 127.0.0.1.
            static constexpr unsigned char mapped[16] = {0, 0, 0,    0,    0,   0, 0, 0,
                                                         0, 0, 0xff, 0xff, 127, 0, 0, 1};
            std::memcpy(&internet.sin6_addr, mapped, sizeof mapped);
            std::memcpy(&storage, &internet, sizeof internet);
        }
    }
    return storage;
}

}  // namespace

/// Takes the place of the library's bind.
extern "C" __attribute__((visibility("default"))) int bindToLoopback(int socket,
                                                                     const sockaddr* address,
                                                                     socklen_t length) noexcept
    __asm__("bind");

int bindToLoopback(int socket, const sockaddr* address, socklen_t length) noexcept {
    using Bind = int (*)(int, const sockaddr*, socklen_t);
    static const auto next = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));
    const bool isInternet = address != nullptr && length <= sizeof(sockaddr_storage) &&
                            ((address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) ||
                             (address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)));
    if (!isInternet) return next(socket, address, length);
    const auto storage = onLoopback(address, length);
    return next(socket, reinterpret_cast<const sockaddr*>(&storage), length);
}
