// What is inside files, said by the test.
#pragma once

#include "platform/TextReader.h"

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace nookwise {

/// Safe to use from several threads. A file that the test said nothing about says nothing. Every
/// call is noted, also one that fails. Set up what it says before it is used; only `failAll` may be
/// called at any time.
class FakeTextReader : public TextReader {
  public:
    enum class Operation { pdf, ocrFast, ocrAccurate, thumbnail, pixelSize };

    struct Call {
        Operation operation = Operation::pdf;
        FileUrl url;

        friend bool operator==(const Call&, const Call&) = default;
    };

    void setPdf(std::string_view path, std::string text) {
        pdfs_.insert_or_assign(FileUrl(path), std::move(text));
    }
    /// In both grades.
    void setOcr(std::string_view path, std::string text) {
        setOcr(path, RecognitionGrade::fast, text);
        setOcr(path, RecognitionGrade::accurate, std::move(text));
    }
    void setOcr(std::string_view path, RecognitionGrade grade, std::string text) {
        recognised_.insert_or_assign({FileUrl(path), grade}, std::move(text));
    }
    void setThumbnail(std::string_view path, Picture picture) {
        thumbnails_.insert_or_assign(FileUrl(path), std::move(picture));
    }
    void setPixelSize(std::string_view path, PixelSize size) {
        sizes_.insert_or_assign(FileUrl(path), size);
    }

    /// Every operation on the file fails so, and on no other, until it is allowed again.
    void fail(std::string_view path, std::errc reason) {
        failures_.insert_or_assign(FileUrl(path), reason);
    }
    void allow(std::string_view path) { failures_.erase(FileUrl(path)); }

    /// No file can be read, for that reason; nullopt ends that.
    void failAll(std::optional<std::errc> reason) {
        const std::lock_guard lock(mutex_);
        failureOfAll_ = reason;
    }

    /// Called as each operation begins, before a stop is looked for, on the thread that asks.
    void onCall(std::function<void(const Call&)> observer) { observer_ = std::move(observer); }

    /// In the order in which they began.
    std::vector<Call> calls() const {
        const std::lock_guard lock(mutex_);
        return calls_;
    }

    Result<std::string> pdf(const FileUrl& url, const std::stop_token& stop) override {
        return answer<std::string>({Operation::pdf, url}, stop, pdfs_, url);
    }
    Result<std::string> ocr(const FileUrl& url, RecognitionGrade grade,
                            const std::stop_token& stop) override {
        const bool isFast = grade == RecognitionGrade::fast;
        return answer<std::string>({isFast ? Operation::ocrFast : Operation::ocrAccurate, url},
                                   stop, recognised_, std::pair(url, grade));
    }
    /// Whatever size was asked for.
    Result<std::optional<Picture>> thumbnail(const FileUrl& url, std::int32_t /*longestSide*/,
                                             const std::stop_token& stop) override {
        return answer<std::optional<Picture>>({Operation::thumbnail, url}, stop, thumbnails_, url);
    }
    Result<std::optional<PixelSize>> pixelSize(const FileUrl& url,
                                               const std::stop_token& stop) override {
        return answer<std::optional<PixelSize>>({Operation::pixelSize, url}, stop, sizes_, url);
    }

  private:
    template <typename Value, typename Answers, typename Key>
    Result<Value> answer(const Call& call, const std::stop_token& stop, const Answers& answers,
                         const Key& key) {
        if (observer_) observer_(call);
        const std::lock_guard lock(mutex_);
        calls_.push_back(call);
        if (stop.stop_requested()) return error(call.url, std::errc::operation_canceled);
        if (failureOfAll_) return error(FileUrl("/usr/libexec/reader"), *failureOfAll_);
        if (const auto failure = failures_.find(call.url); failure != failures_.end())
            return error(call.url, failure->second);
        const auto found = answers.find(key);
        return found == answers.end() ? Value() : Value(found->second);
    }

    static FileError error(const FileUrl& url, std::errc reason) {
        return {.code = std::make_error_code(reason), .url = url, .operation = "read"};
    }

    std::map<FileUrl, std::string> pdfs_;
    std::map<std::pair<FileUrl, RecognitionGrade>, std::string> recognised_;
    std::map<FileUrl, Picture> thumbnails_;
    std::map<FileUrl, PixelSize> sizes_;
    std::map<FileUrl, std::errc> failures_;
    std::optional<std::errc> failureOfAll_;
    std::function<void(const Call&)> observer_;
    mutable std::mutex mutex_;
    std::vector<Call> calls_;
};

}  // namespace nookwise
