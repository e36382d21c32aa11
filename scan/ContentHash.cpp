#include "scan/ContentHash.h"

#include <algorithm>
#include <array>
#include <vector>

#include <openssl/evp.h>

namespace nookwise {
namespace {

constexpr std::size_t digestSize = 32;
constexpr std::size_t readChunk = 1'048'576;

}  // namespace

struct Sha256::State {
    State() : context(EVP_MD_CTX_new()) {}
    ~State() { EVP_MD_CTX_free(context); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    EVP_MD_CTX* context;
};

Sha256::Sha256() : state_(std::make_unique<State>()) {
    // Fetched once: looking the digest up costs more than hashing a small file.
    static const EVP_MD* const digest = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    if (digest == nullptr || EVP_DigestInit_ex(state_->context, digest, nullptr) != 1)
        state_.reset();
}

Sha256::Sha256(const Sha256& other) : state_(other.state_ ? std::make_unique<State>() : nullptr) {
    if (state_ && EVP_MD_CTX_copy_ex(state_->context, other.state_->context) != 1) state_.reset();
}

Sha256& Sha256::operator=(const Sha256& other) {
    if (this != &other) *this = Sha256(other);
    return *this;
}

Sha256::Sha256(Sha256&&) noexcept = default;
Sha256& Sha256::operator=(Sha256&&) noexcept = default;
Sha256::~Sha256() = default;

void Sha256::update(std::span<const std::byte> bytes) {
    if (state_ && EVP_DigestUpdate(state_->context, bytes.data(), bytes.size()) != 1)
        state_.reset();
}

std::optional<std::string> Sha256::finish() {
    static constexpr char digits[] = "0123456789abcdef";
    std::array<unsigned char, digestSize> digest{};
    if (!state_ || EVP_DigestFinal_ex(state_->context, digest.data(), nullptr) != 1)
        return std::nullopt;
    std::string text;
    text.reserve(2 * digest.size());
    for (const unsigned char byte : digest) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::optional<std::string> hash(const FileManager& files, const FileUrl& url,
                                std::optional<std::uint64_t> limit, const std::stop_token& stop) {
    const auto opened = files.open(url);
    if (!opened) return std::nullopt;
    Sha256 digest;
    std::vector<std::byte> buffer(readChunk);
    auto remaining = limit.value_or(UINT64_MAX);
    while (remaining > 0 && !stop.stop_requested()) {
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(remaining, buffer.size()));
        const auto read = opened.value()->read(std::span(buffer).first(wanted));
        if (!read) return std::nullopt;
        if (read.value() == 0) break;
        digest.update(std::span(buffer).first(read.value()));
        remaining -= read.value();
    }
    return stop.stop_requested() ? std::nullopt : digest.finish();
}

}  // namespace nookwise
