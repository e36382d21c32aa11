// A desktop whose applications the test names.
#pragma once

#include "platform/Workspace.h"

namespace nookwise {

class FakeWorkspace : public Workspace {
  public:
    std::vector<InstalledApplication> applications(std::stop_token) const override {
        return installed;
    }

    void reveal(const std::vector<FileUrl>& urls) override { revealed.push_back(urls); }
    void open(const FileUrl& url) override { opened.push_back(url); }

    std::vector<InstalledApplication> installed;
    /// What was to be shown, call by call.
    std::vector<std::vector<FileUrl>> revealed;
    std::vector<FileUrl> opened;
};

}  // namespace nookwise
