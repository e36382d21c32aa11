// What the desktop knows about files, said by the test.
#pragma once

#include "platform/Metadata.h"

#include <functional>
#include <map>
#include <mutex>
#include <set>

namespace nookwise {

/// Safe to use from several threads. Notes which files were asked about.
class FakeMetadata : public Metadata {
  public:
    void setLastUsed(std::string_view path, Date date) {
        lastUsed_.insert_or_assign(FileUrl(path), date);
    }
    void setScreenCapture(std::string_view path) { captures_.insert(FileUrl(path)); }
    void setWhereFrom(std::string_view path, std::vector<std::string> addresses) {
        addresses_.insert_or_assign(FileUrl(path), std::move(addresses));
    }

    std::optional<Date> lastUsed(const FileUrl& url) const override {
        note(url);
        const auto entry = lastUsed_.find(url);
        return entry == lastUsed_.end() ? std::nullopt : std::optional(entry->second);
    }
    bool isScreenCapture(const FileUrl& url) const override {
        note(url);
        return captures_.contains(url);
    }
    std::vector<std::string> whereFrom(const FileUrl& url) const override {
        note(url);
        const auto entry = addresses_.find(url);
        return entry == addresses_.end() ? std::vector<std::string>() : entry->second;
    }

    /// Called before each question is answered, on the thread that asks.
    void onQuestion(std::function<void(const FileUrl&)> observer) {
        observer_ = std::move(observer);
    }

    /// Every file that anything was asked about.
    std::set<FileUrl> asked() const {
        const std::lock_guard lock(mutex_);
        return asked_;
    }

  private:
    void note(const FileUrl& url) const {
        if (observer_) observer_(url);
        const std::lock_guard lock(mutex_);
        asked_.insert(url);
    }

    std::function<void(const FileUrl&)> observer_;
    std::map<FileUrl, Date> lastUsed_;
    std::set<FileUrl> captures_;
    std::map<FileUrl, std::vector<std::string>> addresses_;
    mutable std::mutex mutex_;
    mutable std::set<FileUrl> asked_;
};

}  // namespace nookwise
