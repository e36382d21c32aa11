// The user's folders of a sample home.
#pragma once

#include "platform/UserFolders.h"

namespace nookwise::demo {

class SampleFolders final : public UserFolders {
  public:
    explicit SampleFolders(FileUrl home) : home_(std::move(home)) {}

    FileUrl home() const override { return home_; }
    FileUrl desktop() const override { return home_.append("Desktop"); }
    FileUrl documents() const override { return home_.append("Documents"); }
    FileUrl downloads() const override { return home_.append("Downloads"); }
    std::optional<FileUrl> screenshots() const override {
        return home_.append("Pictures").append("Screenshots");
    }
    std::vector<FileUrl> applications() const override { return {home_.append("Applications")}; }
    FileUrl applicationSupport() const override {
        return home_.append(".local").append("share").append("Nookwise");
    }

  private:
    FileUrl home_;
};

}  // namespace nookwise::demo
