#include "search/DownloadSource.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace nookwise {
namespace {

using Addresses = std::vector<std::string>;

std::string sourceOf(const Addresses& addresses) {
    return downloadSource(addresses).value_or("(none)");
}

struct Origin {
    std::string address;
    std::string source;
};

class DownloadSourceOf : public testing::TestWithParam<Origin> {};

TEST_P(DownloadSourceOf, isTheService) {
    EXPECT_EQ(sourceOf({GetParam().address}), GetParam().source) << GetParam().address;
}

INSTANTIATE_TEST_SUITE_P(
    KnownHosts, DownloadSourceOf,
    testing::Values(Origin{"https://mail.google.com/mail/u/0/?ui=2&view=att", "Gmail"},
                    Origin{"https://drive.google.com/uc?id=1", "Google Drive"},
                    Origin{"https://docs.google.com/document/d/1/edit", "Google Drive"},
                    Origin{"https://doc-0k-58-docs.googleusercontent.com/docs/x", "Google Drive"},
                    Origin{"https://drive.usercontent.google.com/download?id=1", "Google Drive"},
                    Origin{"https://files.slack.com/files-pri/T-F/download/a.pdf", "Slack"},
                    Origin{"https://app.slack.com/client", "Slack"},
                    Origin{"https://chatgpt.com/c/1", "ChatGPT"},
                    Origin{"https://files.oaiusercontent.com/file-1", "ChatGPT"},
                    Origin{"https://www.figma.com/design/1", "Figma"},
                    Origin{"https://figma-alpha-api.s3.us-west-2.amazonaws.com/images/1", "Figma"},
                    Origin{"https://web.whatsapp.com/", "WhatsApp"},
                    Origin{"https://mmg.whatsapp.net/v/t62", "WhatsApp"},
                    Origin{"https://web.telegram.org/k/", "Telegram"},
                    Origin{"https://cdn4.cdn-telegram.org/file/1", "Telegram"},
                    Origin{"https://t.me/channel/7", "Telegram"},
                    Origin{"https://codeload.github.com/a/b/zip/main", "GitHub"},
                    Origin{"https://objects.githubusercontent.com/x", "GitHub"},
                    Origin{"https://raw.githubusercontent.com/a/b/main/c", "GitHub"},
                    Origin{"https://uc1.dl.dropboxusercontent.com/cd/0/get/x", "Dropbox"},
                    Origin{"https://dl.dropboxusercontent.com/s/1/a.pdf", "Dropbox"},
                    Origin{"https://www.dropbox.com/s/1/a.pdf?dl=1", "Dropbox"},
                    Origin{"https://file.notion.so/f/s/1/a.pdf", "Notion"},
                    Origin{"https://www.notion.so/page", "Notion"},
                    Origin{"https://acme.notion.site/page", "Notion"},
                    Origin{"https://cvws.icloud-content.com/B/1", "iCloud"},
                    Origin{"https://www.icloud.com/iclouddrive/", "iCloud"},
                    Origin{"https://outlook.office.com/mail/", "Outlook"},
                    Origin{"https://outlook.live.com/owa/", "Outlook"},
                    Origin{"https://wetransfer.com/downloads/1", "WeTransfer"},
                    Origin{"https://download.wetransfer.com/eu2/1/a.zip", "WeTransfer"},
                    Origin{"https://cdn.discordapp.com/attachments/1/2/a.png", "Discord"},
                    Origin{"https://discord.com/channels/1", "Discord"}));

INSTANTIATE_TEST_SUITE_P(
    OtherHosts, DownloadSourceOf,
    testing::Values(Origin{"https://www.example.com/a.pdf", "example.com"},
                    Origin{"https://example.com/a.pdf", "example.com"},
                    Origin{"https://www2.example.com/", "www2.example.com"},
                    // Only at the beginning, and once.
                    Origin{"https://files.www.example.com/", "files.www.example.com"},
                    Origin{"https://www.www.example.com/", "www.example.com"},
                    // A service's name elsewhere in the address says nothing.
                    Origin{"https://example.com/mail.google.com/?github", "example.com"},
                    Origin{"https://github@example.com/", "example.com"},
                    // Nor do letters that happen to stand side by side.
                    Origin{"https://chat.messenger.com/", "chat.messenger.com"},
                    Origin{"https://slackware.com/", "slackware.com"},
                    Origin{"https://emotion.org/", "emotion.org"}));

INSTANTIATE_TEST_SUITE_P(Forms, DownloadSourceOf,
                         testing::Values(Origin{"HTTPS://WWW.GitHub.COM/a", "GitHub"},
                                         Origin{"ftp://user:pa:ss@Files.Example.ORG:2121/a",
                                                "files.example.org"},
                                         Origin{"https://a@b@example.com/", "example.com"},
                                         Origin{"http://[2001:DB8::1]:8080/a", "2001:db8::1"},
                                         Origin{"http://127.0.0.1:9/", "127.0.0.1"},
                                         Origin{"https://example.com", "example.com"},
                                         Origin{"https://example.com?x=1", "example.com"},
                                         Origin{"https://example.com#top", "example.com"},
                                         Origin{"https://MÜNCHEN.example/", "münchen.example"}));

INSTANTIATE_TEST_SUITE_P(
    WithoutHost, DownloadSourceOf,
    testing::Values(Origin{"", "(none)"}, Origin{"example.com/a", "(none)"},
                    Origin{"data:text/plain,https://example.com/", "(none)"},
                    Origin{"blob:https://web.whatsapp.com/1", "(none)"},
                    Origin{"file:///home/user/a", "(none)"}, Origin{"about:blank", "(none)"},
                    Origin{"mailto:a@example.com", "(none)"}, Origin{"https://", "(none)"},
                    Origin{"https:///path", "(none)"}, Origin{"https://:80/", "(none)"},
                    Origin{"https://user@/", "(none)"}, Origin{"https://[::1/", "(none)"},
                    Origin{"://example.com", "(none)"}, Origin{"1http://example.com", "(none)"},
                    Origin{"ht tp://example.com", "(none)"},
                    Origin{"https://exam ple.com/", "(none)"},
                    Origin{std::string("https://exa\0mple.com/", 21), "(none)"},
                    Origin{"//example.com/a", "(none)"}));

TEST(DownloadSource, needsAnAddress) {
    EXPECT_EQ(sourceOf({}), "(none)");
    EXPECT_EQ(sourceOf({"", "nonsense"}), "(none)");
}

TEST(DownloadSource, isTheMostRecentKnownService) {
    EXPECT_EQ(sourceOf({"https://github.com/a", "https://slack.com/b"}), "Slack");
    EXPECT_EQ(sourceOf({"https://github.com/a", "https://example.com/b"}), "GitHub");
    EXPECT_EQ(
        sourceOf({"https://mail-attachment.googleusercontent.com/a", "https://mail.google.com/"}),
        "Gmail");
}

TEST(DownloadSource, isTheFirstOfUnknownHosts) {
    EXPECT_EQ(sourceOf({"nonsense", "https://www.first.example/", "https://second.example/"}),
              "first.example");
}

TEST(DownloadSource, isTheServiceThatComesFirstInTheTable) {
    EXPECT_EQ(sourceOf({"https://discord.github.example/"}), "GitHub");
}

TEST(DownloadSource, isUtf8WhateverTheAddressHolds) {
    EXPECT_EQ(sourceOf({"https://a\xff.example/"}), "a\uFFFD.example");
}

}  // namespace
}  // namespace nookwise
