#include "tests/reader/EncryptedPdf.h"

#include "tests/reader/PdfWriter.h"

#include <array>
#include <numeric>
#include <utility>

#include <openssl/evp.h>

namespace nookwise {
namespace {

using namespace std::string_view_literals;

/// What the format puts in place of a password that is not there.
constexpr std::string_view padding =
    "\x28\xBF\x4E\x5E\x4E\x75\x8A\x41\x64\x00\x4E\x56\xFF\xFA\x01\x08"
    "\x2E\x2E\x00\xB6\xD0\x68\x3E\x80\x2F\x0C\xA9\xFE\x64\x53\x69\x7A"sv;
constexpr std::string_view documentName = "0123456789abcdef";
constexpr std::string_view permissions = "\xfc\xff\xff\xff"sv;  // -4

std::string md5(std::string_view bytes) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned length = 0;
    ::EVP_Digest(bytes.data(), bytes.size(), digest.data(), &length, ::EVP_md5(), nullptr);
    return {reinterpret_cast<const char*>(digest.data()), length};
}

/// OpenSSL has put it away.
std::string rc4(std::string_view key, std::string_view bytes) {
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    unsigned j = 0;
    for (unsigned i = 0; i < 256; ++i) {
        j = (j + state[i] + static_cast<unsigned char>(key[i % key.size()])) % 256;
        std::swap(state[i], state[j]);
    }
    std::string result;
    unsigned i = 0;
    j = 0;
    for (const char byte : bytes) {
        i = (i + 1) % 256;
        j = (j + state[i]) % 256;
        std::swap(state[i], state[j]);
        result += static_cast<char>(static_cast<unsigned char>(byte) ^
                                    state[(state[i] + state[j]) % 256U]);
    }
    return result;
}

std::string hexadecimal(std::string_view bytes) {
    const std::string digits = "0123456789ABCDEF";
    std::string text = "<";
    for (const char byte : bytes) {
        text += digits[static_cast<unsigned char>(byte) / 16];
        text += digits[static_cast<unsigned char>(byte) % 16];
    }
    return text + ">";
}

}  // namespace

std::string encryptedPdf(std::string_view text, Password password) {
    const std::string owner(padding);
    const auto secret = password == Password::none
                            ? std::string(padding)
                            : ("secret" + std::string(padding)).substr(0, 32);
    std::string seed = secret + owner;
    seed += permissions;
    seed += documentName;
    const auto key = md5(seed).substr(0, 5);

    PdfWriter writer;
    const int font = writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier>>");
    const int content = font + 1;
    const auto contentKey = md5(key + std::string{static_cast<char>(content), 0, 0, 0, 0});
    writer.addStream(
        rc4(contentKey.substr(0, 10), "BT /F 10 Tf 50 700 Td(" + std::string(text) + ")Tj ET"));
    const int page = content + 1;
    const int pages = page + 1;
    writer.add("<</Type/Page/Parent " + reference(pages) + "/Contents " + reference(content) +
               "/MediaBox[0 0 600 800]/Resources<</Font<</F " + reference(font) + ">>>>>>");
    writer.add("<</Type/Pages/Kids[" + reference(page) + "]/Count 1>>");
    const auto name = hexadecimal(documentName);
    return writer.document(writer.add("<</Type/Catalog/Pages " + reference(pages) + ">>"),
                           "/ID[" + name + name + "]/Encrypt<</Filter/Standard/V 1/R 2/P -4/O" +
                               hexadecimal(owner) + "/U" + hexadecimal(rc4(key, padding)) + ">>");
}

}  // namespace nookwise
