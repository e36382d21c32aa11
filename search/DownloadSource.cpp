#include "search/DownloadSource.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace nookwise {
namespace {

struct Service {
    /// Part of a host that has a dot at both ends, so that whole labels can be asked for.
    std::string_view fragment;
    std::string_view name;
};

constexpr std::array<Service, 18> services{{
    {"mail.google", "Gmail"},
    {"drive.google", "Google Drive"},
    // Exported documents come from hosts such as doc-0k-58-docs.googleusercontent.com.
    {"docs.google", "Google Drive"},
    {"drive.usercontent.google", "Google Drive"},
    {"slack.com", "Slack"},
    {"chatgpt.com", "ChatGPT"},
    {"oaiusercontent.com", "ChatGPT"},
    // Exports come from buckets whose names begin so.
    {"figma", "Figma"},
    {"whatsapp", "WhatsApp"},
    {"telegram.org", "Telegram"},
    // Without the dots, chat.messenger.com would be one.
    {".t.me.", "Telegram"},
    {"github", "GitHub"},
    {"dropbox", "Dropbox"},
    {".notion.", "Notion"},
    {"icloud", "iCloud"},
    {"outlook", "Outlook"},
    {"wetransfer", "WeTransfer"},
    {"discord", "Discord"},
}};

constexpr auto none = std::string_view::npos;

bool isScheme(std::string_view text) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(), [&](char c) {
               return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
           });
}

/// Whether no URL has it in its host.
bool endsHosts(char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7f' ||
           std::string_view("\"<>\\^`{|}").find(c) != none;
}

/// What stands between "//" and the path; empty when there is no such thing.
std::string_view authorityOf(std::string_view address) {
    const auto colon = address.find(':');
    if (colon == none || !isScheme(address.substr(0, colon))) return {};
    address.remove_prefix(colon + 1);
    if (!address.starts_with("//")) return {};
    address.remove_prefix(2);
    return address.substr(0, address.find_first_of("/?#"));
}

/// In lower case; empty when the address has none.
std::string hostOf(std::string_view address) {
    auto host = authorityOf(address);
    if (const auto at = host.rfind('@'); at != none) host.remove_prefix(at + 1);
    if (host.starts_with('[')) {
        const auto bracket = host.find(']');
        if (bracket == none) return {};
        host = host.substr(1, bracket - 1);
    } else {
        host = host.substr(0, host.find(':'));
    }
    if (std::any_of(host.begin(), host.end(), endsHosts)) return {};
    return lowercased(wellFormed(host));
}

const Service* serviceOf(std::string_view host) {
    const auto framed = "." + std::string(host) + ".";
    const auto* const service =
        std::find_if(services.begin(), services.end(), [&](const Service& candidate) {
            return framed.find(candidate.fragment) != std::string::npos;
        });
    return service == services.end() ? nullptr : service;
}

}  // namespace

std::optional<std::string> downloadSource(std::span<const std::string> addresses) {
    std::vector<std::string> hosts;
    for (const auto& address : addresses) {
        if (auto host = hostOf(address); !host.empty()) hosts.push_back(std::move(host));
    }
    if (hosts.empty()) return std::nullopt;
    for (auto host = hosts.rbegin(); host != hosts.rend(); ++host) {
        if (const auto* const service = serviceOf(*host)) return std::string(service->name);
    }
    constexpr std::string_view www = "www.";
    auto& first = hosts.front();
    return first.starts_with(www) ? first.substr(www.size()) : first;
}

}  // namespace nookwise
