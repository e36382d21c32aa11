#include "platform/linux/LinuxTextReader.h"

#include "platform/Text.h"
#include "platform/linux/Failure.h"
#include "platform/linux/ReaderProgram.h"

#include <utility>

#include <fcntl.h>

namespace nookwise {
namespace {

using Kind = ReaderJobResult::Kind;

const char* const reading = "read";
const char* const recognising = "recognise";

FileError stopped(const FileUrl& url) {
    return failure(url, reading, ECANCELED);
}

/// Whether a file that could not be opened for that reason is as it will stay. All else may be
/// different next time: a file that was trashed comes back, a server answers again.
bool isOfTheFile(int reason) {
    switch (reason) {
        case EACCES:
        case EPERM:
        case ELOOP:
        // Sockets and devices.
        case ENXIO:
        case ENODEV:
            return true;
        default:
            return false;
    }
}

/// None when there is nothing to read.
Result<FileDescriptor> openRegularFile(const FileUrl& url) {
    auto file = openPath(url.path(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file && isOfTheFile(errno)) return FileDescriptor();
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0) return failure(url, "open");
    if (!S_ISREG(status.st_mode)) return FileDescriptor();
    return file;
}

bool isLost(const Result<ReaderJobResult>& result) {
    return result && result.value().kind == Kind::lost;
}

bool recognises(ReaderJob job) {
    return job == ReaderJob::recogniseFast || job == ReaderJob::recogniseAccurate;
}

ReaderRole roleFor(ReaderJob job) {
    const bool isPicture = job == ReaderJob::thumbnail || job == ReaderJob::pixelSize;
    return isPicture ? ReaderRole::pictures : ReaderRole::text;
}

}  // namespace

/// While it lives, the reader does.
class LinuxTextReader::Call {
  public:
    explicit Call(LinuxTextReader& reader) : reader_(reader) {
        const std::lock_guard lock(reader_.mutex_);
        ++reader_.calls_;
    }
    ~Call() {
        const std::lock_guard lock(reader_.mutex_);
        --reader_.calls_;
        // Not after the lock is gone: the reader may be as well.
        reader_.callEnded_.notify_all();
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

  private:
    LinuxTextReader& reader_;
};

LinuxTextReader::LinuxTextReader(const FileUrl& program, const ReaderLimits& limits,
                                 const Environment& environment)
    : limits_(limits), pool_(program, readerEnvironment(environment), limits) {}

LinuxTextReader::~LinuxTextReader() {
    end_.request_stop();
    std::unique_lock lock(mutex_);
    callEnded_.wait(lock, [this] { return calls_ == 0; });
}

Result<std::string> LinuxTextReader::pdf(const FileUrl& url, const std::stop_token& stop) {
    return text(url, ReaderJob::pdfText, stop);
}

Result<std::string> LinuxTextReader::ocr(const FileUrl& url, RecognitionGrade grade,
                                         const std::stop_token& stop) {
    const bool isFast = grade == RecognitionGrade::fast;
    return text(url, isFast ? ReaderJob::recogniseFast : ReaderJob::recogniseAccurate, stop);
}

Result<std::optional<Picture>> LinuxTextReader::thumbnail(const FileUrl& url,
                                                          std::int32_t longestSide,
                                                          const std::stop_token& stop) {
    auto result = read(url, {ReaderJob::thumbnail, longestSide}, stop);
    if (!result) return result.error();
    const auto& reply = result.value().reply;
    if (reply.width == 0) return std::optional<Picture>();
    return std::optional(Picture{{reply.width, reply.height}, std::move(result.value().bytes)});
}

Result<std::optional<PixelSize>> LinuxTextReader::pixelSize(const FileUrl& url,
                                                            const std::stop_token& stop) {
    const auto result = read(url, {ReaderJob::pixelSize, 0}, stop);
    if (!result) return result.error();
    const auto& reply = result.value().reply;
    if (reply.width == 0) return std::optional<PixelSize>();
    return std::optional(PixelSize{reply.width, reply.height});
}

Result<std::string> LinuxTextReader::text(const FileUrl& url, ReaderJob job,
                                          const std::stop_token& stop) {
    const auto result = read(url, {job, 0}, stop);
    if (!result) return result.error();
    return wellFormed(result.value().bytes);
}

Result<ReaderJobResult> LinuxTextReader::read(const FileUrl& url, const ReaderRequest& request,
                                              const std::stop_token& callerStop) {
    const Call call(*this);
    const CallStop stop(callerStop, end_.get_token());
    if (!stop) return failure(url, reading);
    if (stop.token().stop_requested()) return stopped(url);
    const auto file = openRegularFile(url);
    if (!file) return file.error();
    if (!file.value()) return ReaderJobResult();
    auto result = readOnce(url, file.value().get(), request, stop);
    // Whoever ended that process did not mean the file.
    if (isLost(result)) result = readOnce(url, file.value().get(), request, stop);
    if (isLost(result)) return failure(url, reading, EAGAIN);
    return result;
}

Result<ReaderJobResult> LinuxTextReader::readOnce(const FileUrl& url, int file,
                                                  const ReaderRequest& request,
                                                  const CallStop& stop) {
    const auto role = roleFor(request.job);
    auto loan = pool_.borrow(role, stop);
    if (!loan) return stop.token().stop_requested() ? stopped(url) : loan.error();
    if (const auto error = loan.value().recognitionError(); recognises(request.job) && error != 0) {
        loan.value().giveBack();
        return failure(url, recognising, error);
    }
    // An earlier process may have moved it: they share it.
    ::lseek(file, 0, SEEK_SET);
    const auto& limits = role == ReaderRole::text ? limits_.text : limits_.pictures;
    auto result = runReaderJob(loan.value().process(), request, file, limits, stop);
    if (result.kind == Kind::stopped) return stopped(url);
    if (result.kind == Kind::answered && result.reply.then == ReaderThen::waits)
        loan.value().giveBack();
    return result;
}

}  // namespace nookwise
