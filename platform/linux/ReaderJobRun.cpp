#include "platform/linux/ReaderJobRun.h"

#include "platform/linux/ReaderTalk.h"

namespace nookwise {
namespace {

using Kind = ReaderJobResult::Kind;
using Outcome = ReaderTalk::Outcome;

bool isPossible(const ReaderRequest& request, const ReaderReply& reply) {
    const bool hasNoSize = reply.width == 0 && reply.height == 0;
    const bool hasSize = reply.width > 0 && reply.height > 0;
    switch (request.job) {
        case ReaderJob::pixelSize:
            return reply.length == 0 && (hasNoSize || hasSize);
        case ReaderJob::thumbnail: {
            if (hasNoSize) return reply.length == 0;
            constexpr std::uint64_t bytesOfPixel = 4;
            return hasSize && reply.width <= request.argument && reply.height <= request.argument &&
                   reply.length == bytesOfPixel * static_cast<std::uint64_t>(reply.width) *
                                       static_cast<std::uint64_t>(reply.height);
        }
        case ReaderJob::pdfText:
        case ReaderJob::recogniseFast:
        case ReaderJob::recogniseAccurate:
            return hasNoSize;
    }
    return false;
}

/// A process that closed its end may live on, and be the file's creature.
Kind afterHangUp(ReaderTalk& talk, const ReaderProcess& process) {
    const auto outcome = talk.waitForEnd();
    if (outcome == Outcome::stopped) return Kind::stopped;
    const bool wasEnded =
        outcome == Outcome::done && process.end() == ReaderProcess::End::fromOutside;
    return wasEnded ? Kind::lost : Kind::failed;
}

Kind afterFailure(Outcome outcome, ReaderTalk& talk, const ReaderProcess& process) {
    switch (outcome) {
        case Outcome::stopped:
            return Kind::stopped;
        case Outcome::hungUp:
            return afterHangUp(talk, process);
        case Outcome::notSent:
            return Kind::lost;
        case Outcome::done:
        case Outcome::overran:
            break;
    }
    return Kind::failed;
}

}  // namespace

ReaderJobResult runReaderJob(const ReaderProcess& process, const ReaderRequest& request, int file,
                             const ReaderJobLimits& limits, const CallStop& stop) {
    ReaderTalk talk(process, stop, limits.processorTime, limits.elapsedTime);
    ReaderReply reply;
    auto outcome = talk.send(&request, sizeof request, file);
    if (outcome == Outcome::done) outcome = talk.receive(&reply, sizeof reply);
    if (outcome != Outcome::done) return {.kind = afterFailure(outcome, talk, process)};
    if (reply.length > limits.reply || !isPossible(request, reply)) return {.kind = Kind::failed};
    std::string bytes;
    outcome = talk.receive(bytes, static_cast<std::size_t>(reply.length));
    if (outcome != Outcome::done) return {.kind = afterFailure(outcome, talk, process)};
    if (ReaderTalk::unasked(process) == ReaderTalk::Unasked::bytes) return {.kind = Kind::failed};
    return {.kind = Kind::answered, .reply = reply, .bytes = std::move(bytes)};
}

}  // namespace nookwise
