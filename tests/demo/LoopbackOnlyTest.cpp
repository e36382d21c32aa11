#include <array>
#include <optional>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace nookwise {
namespace {

/// A socket of its own for each test.
class LoopbackOnly : public ::testing::Test {
  protected:
    ~LoopbackOnly() override {
        if (socket_ >= 0) close(socket_);
    }

    /// Where a socket is bound that asked for `address`; none when it cannot be bound at all.
    template <typename Address>
    std::optional<Address> boundTo(const Address& address) {
        const auto family = reinterpret_cast<const sockaddr*>(&address)->sa_family;
        socket_ = socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (socket_ < 0) return std::nullopt;
        if (bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            return std::nullopt;
        Address bound{};
        socklen_t length = sizeof bound;
        if (getsockname(socket_, reinterpret_cast<sockaddr*>(&bound), &length) != 0)
            return std::nullopt;
        return bound;
    }

    int socket_ = -1;
};

TEST_F(LoopbackOnly, anAddressForAllNetworksBecomesThisMachines) {
    const auto bound = boundTo(sockaddr_in{.sin_family = AF_INET});
    ASSERT_TRUE(bound);
    EXPECT_EQ(ntohl(bound->sin_addr.s_addr), INADDR_LOOPBACK);
}

TEST_F(LoopbackOnly, anAddressForAllNetworksOfBothFamiliesBecomesThisMachines) {
    const auto bound = boundTo(sockaddr_in6{.sin6_family = AF_INET6});
    if (socket_ < 0) GTEST_SKIP() << "there is no IPv6 on this machine";
    ASSERT_TRUE(bound);
    std::array<char, INET6_ADDRSTRLEN> text{};
    ASSERT_NE(inet_ntop(AF_INET6, &bound->sin6_addr, text.data(), text.size()), nullptr);
    EXPECT_STREQ(text.data(), "::ffff:127.0.0.1");
}

TEST_F(LoopbackOnly, aChosenAddressIsKept) {
    const auto bound = boundTo(sockaddr_in{.sin_family = AF_INET, .sin_addr = {htonl(0x7F000002)}});
    ASSERT_TRUE(bound);
    EXPECT_EQ(ntohl(bound->sin_addr.s_addr), 0x7F000002U);
}

TEST_F(LoopbackOnly, socketsWithoutANetworkAreLeftAlone) {
    EXPECT_TRUE(
        boundTo(sockaddr_un{.sun_family = AF_UNIX, .sun_path = "\0nookwise-loopback-test"}));
}

}  // namespace
}  // namespace nookwise
