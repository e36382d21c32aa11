#include "tools/demo/SampleWriter.h"

#include <QFile>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace nookwise::demo {
namespace {

/// The application warns below this much free space; the sample must not be what brings it there.
constexpr std::int64_t leftFree = 10'000'000'000;

/// Nothing happened this very second.
Date daysBefore(Date now, int days) {
    return now - std::chrono::days(days) - std::chrono::minutes(137);
}

timespec asTime(Date date) {
    const double seconds = std::floor(date.time_since_epoch().count());
    return {static_cast<time_t>(seconds), 0};
}

/// Sets the room aside for good. Not posix_fallocate: where the file system knows no allocation,
/// that writes to every block instead.
bool setRoomAside(int file, std::int64_t bytes) {
    struct statfs volume {};
    if (fstatfs(file, &volume) != 0) return false;
    const bool isMemory = volume.f_type == TMPFS_MAGIC || volume.f_type == RAMFS_MAGIC;
    const auto available = static_cast<std::int64_t>(volume.f_bavail) * volume.f_bsize;
    if (isMemory || available - bytes < leftFree) return false;
    return fallocate(file, 0, 0, bytes) == 0;
}

}  // namespace

void SampleWriter::folder(std::string_view path) {
    if (failure_) return;
    const auto url = urlOf(path);
    std::error_code failure;
    std::filesystem::create_directories(url.path(), failure);
    if (!failure) return;
    errno = failure.value();
    fail(url, "make");
}

void SampleWriter::write(std::string_view path, const QByteArray& bytes, Age age) {
    const auto url = urlOf(path);
    const int descriptor = create(url);
    if (descriptor < 0) return;
    QFile file;
    file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered);
    if (file.write(bytes) != bytes.size()) fail(url, "write");
    setModified(descriptor, age);
    close(descriptor);
    agree(url, age);
}

void SampleWriter::copy(std::string_view from, std::string_view to, Age age) {
    QFile source(QFile::decodeName(std::string(urlOf(from).path()).c_str()));
    if (!source.open(QIODevice::ReadOnly)) return fail(urlOf(from), "read");
    write(to, source.readAll(), age);
}

void SampleWriter::allocate(std::string_view path, std::int64_t bytes, Age age) {
    const auto url = urlOf(path);
    const int file = create(url);
    if (file < 0) return;
    auto& agreed = agree(url, age);
    if (!setRoomAside(file, bytes)) {
        agreed.allocatedSize = bytes;
        // A failed attempt may have set a part aside.
        if (ftruncate(file, 0) != 0) fail(url, "shorten");
    }
    setModified(file, age);
    close(file);
}

void SampleWriter::datePackage(std::string_view path, Age age) {
    agree(urlOf(path), age);
}

Result<AgreedFiles> SampleWriter::finish() {
    if (failure_) return *failure_;
    return std::move(agreed_);
}

FileUrl SampleWriter::urlOf(std::string_view path) const {
    return FileUrl(std::string(home_.path()) + "/" + std::string(path));
}

int SampleWriter::create(const FileUrl& url) {
    if (failure_) return -1;
    std::error_code ignored;
    std::filesystem::create_directories(url.parentPath(), ignored);
    const int file =
        open(std::string(url.path()).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) fail(url, "create");
    return file;
}

void SampleWriter::setModified(int file, Age age) const {
    const auto time = asTime(daysBefore(now_, age.daysSinceAdded));
    const timespec times[2] = {time, time};
    futimens(file, times);
}

AgreedAttributes& SampleWriter::agree(const FileUrl& url, Age age) {
    auto& agreed = agreed_[url];
    agreed.added = daysBefore(now_, age.daysSinceAdded);
    if (age.daysSinceOpened) agreed.lastUsed = daysBefore(now_, *age.daysSinceOpened);
    return agreed;
}

void SampleWriter::fail(const FileUrl& url, std::string_view operation) {
    if (failure_) return;
    failure_ = FileError{{errno, std::generic_category()}, url, std::string(operation)};
}

}  // namespace nookwise::demo
