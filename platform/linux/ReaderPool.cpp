#include "platform/linux/ReaderPool.h"

#include "platform/linux/Failure.h"
#include "platform/linux/ReaderTalk.h"

#include <algorithm>
#include <cstdio>
#include <system_error>

#include <poll.h>
#include <sys/eventfd.h>

namespace nookwise {
namespace {

using Clock = std::chrono::steady_clock;
using State = ReaderSlot::State;
using Outcome = ReaderTalk::Outcome;

const char* const starting = "start";

std::string_view nameOf(ReaderRole role) {
    return role == ReaderRole::text ? readerRole::text : readerRole::pictures;
}

FileError error(const FileUrl& program, std::errc reason) {
    return failure(program, starting, static_cast<int>(reason));
}

int millisecondsUntil(Clock::time_point time) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(time - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 60'000));
}

void warn(const ReaderConfinement& confinement) {
    const auto state = [](int error) {
        return error == 0 ? "closed" : "open: " + std::generic_category().message(error);
    };
    const auto line = "nookwise: to the processes that read files, the file system is " +
                      state(confinement.fileSystemError) + "; other system calls are " +
                      state(confinement.systemCallsError) + ".\n";
    std::fputs(line.c_str(), stderr);
}

}  // namespace

ReaderPool::ReaderPool(FileUrl program, std::vector<std::string> environment,
                       const ReaderLimits& limits)
    : program_(std::move(program)),
      environment_(std::move(environment)),
      limits_(limits),
      wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      slots_(limits) {
    if (wake_)
        keeper_ = std::jthread([this] { keep(); });
    else
        unusable_ = failure(program_, starting);
}

ReaderPool::~ReaderPool() {
    {
        const Lock lock(mutex_);
        isClosing_ = true;
    }
    wakeKeeper();
}

Result<ReaderPool::Loan> ReaderPool::borrow(ReaderRole role, const CallStop& stop) {
    if (unusable_) return *unusable_;
    // One that somebody else ended before it could greet has told nothing.
    constexpr int mostAttempts = 10;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto slot = obtain(role, stop);
        if (!slot) return slot.error();
        Loan loan(*this, *slot.value());
        if (slot.value()->hasGreeted) return loan;
        const auto greeting = greet(*slot.value(), stop);
        if (!greeting) return greeting.error();
        if (greeting.value() == Greeting::given) return loan;
    }
    return error(program_, std::errc::resource_unavailable_try_again);
}

std::optional<ReaderConfinement> ReaderPool::confinement() const {
    const Lock lock(mutex_);
    return confinement_;
}

Result<ReaderSlot*> ReaderPool::obtain(ReaderRole role, const CallStop& stop) {
    Lock lock(mutex_);
    const auto ticket = slots_.join(role);
    ReaderSlot* slot = nullptr;
    std::optional<FileError> refusal;
    const bool isOver = changed_.wait(lock, stop.token(), [&] {
        const auto now = Clock::now();
        slot = slots_.obtain(role, ticket, now);
        if (const auto* error = slots_.refusal(role, now); slot == nullptr && error != nullptr)
            refusal = *error;
        return slot != nullptr || refusal;
    });
    slots_.leave(role, ticket);
    changed_.notify_all();
    if (!isOver) return error(program_, std::errc::operation_canceled);
    if (refusal) return std::move(*refusal);
    return slot->state == State::wanted ? started(*slot, lock) : slot;
}

Result<ReaderSlot*> ReaderPool::started(ReaderSlot& slot, Lock& lock) {
    wakeKeeper();
    changed_.wait(lock, [&] { return slot.state != State::wanted; });
    if (slot.state != State::failed) return &slot;
    auto error = std::move(*slot.error);
    slots_.noteFailedStart(error, Clock::now());
    slots_.remove(slot);
    changed_.notify_all();
    return error;
}

Result<ReaderPool::Greeting> ReaderPool::greet(ReaderSlot& slot, const CallStop& stop) {
    const auto& process = *slot.process;
    ReaderTalk talk(process, stop, limits_.start, limits_.start);
    ReaderGreeting greeting{.mark = 0};
    auto outcome = talk.receive(&greeting, sizeof greeting);
    const bool hasEnded = outcome == Outcome::hungUp;
    if (hasEnded) outcome = talk.waitForEnd();
    if (outcome == Outcome::stopped) return error(program_, std::errc::operation_canceled);
    if (outcome == Outcome::overran) return failedStart(std::errc::timed_out);
    if (hasEnded) {
        if (process.end() == ReaderProcess::End::fromOutside) return Greeting::lost;
        return failedStart(std::errc::no_child_process);
    }
    if (greeting.mark != ReaderGreeting::expectedMark)
        return failedStart(std::errc::protocol_error);
    note({greeting.fileSystemError, greeting.systemCallsError});
    slot.hasGreeted = true;
    slot.recognitionError = greeting.recognitionError;
    return Greeting::given;
}

FileError ReaderPool::failedStart(std::errc reason) {
    auto failed = error(program_, reason);
    const Lock lock(mutex_);
    slots_.noteFailedStart(failed, Clock::now());
    return failed;
}

void ReaderPool::note(const ReaderConfinement& confinement) {
    const Lock lock(mutex_);
    if (!confinement_ && confinement != ReaderConfinement()) warn(confinement);
    confinement_ = confinement;
}

void ReaderPool::end(ReaderSlot& slot) {
    const Lock lock(mutex_);
    ReaderSlots::end(slot);
    changed_.notify_all();
    wakeKeeper();
}

void ReaderPool::takeBack(ReaderSlot& slot) {
    const Lock lock(mutex_);
    slot.state = State::idle;
    slot.idleSince = Clock::now();
    changed_.notify_all();
    wakeKeeper();
}

void ReaderPool::keep() {
    Lock lock(mutex_);
    while (!isClosing_) {
        startWanted(lock);
        slots_.tidy(Clock::now());
        changed_.notify_all();
        waitForNews(lock, slots_.nextIdleEnd());
    }
    endAll(lock);
}

void ReaderPool::startWanted(Lock& lock) {
    // Slots may come and go while none is locked, but not one that is wanted.
    const auto isWanted = [](const ReaderSlot& slot) { return slot.state == State::wanted; };
    auto& all = slots_.all();
    for (;;) {
        const auto slot = std::find_if(all.begin(), all.end(), isWanted);
        if (slot == all.end()) return;
        lock.unlock();
        auto process = ReaderProcess::start(program_, nameOf(slot->role), environment_);
        lock.lock();
        if (process) {
            slot->process = std::move(process.value());
            slot->state = State::lent;
        } else {
            slot->error = process.error();
            slot->state = State::failed;
        }
        changed_.notify_all();
    }
}

/// Of idle and ending processes, of who wants one, or until it is time.
void ReaderPool::waitForNews(Lock& lock, std::optional<Clock::time_point> until) {
    std::vector<pollfd> watched{{.fd = wake_.get(), .events = POLLIN, .revents = 0}};
    for (const auto& slot : slots_.all())
        if (slot.state == State::idle || slot.state == State::ending)
            watched.push_back({.fd = slot.process->handle(), .events = POLLIN, .revents = 0});
    lock.unlock();
    ::poll(watched.data(), watched.size(), until ? millisecondsUntil(*until) : -1);
    eventfd_t news = 0;
    ::eventfd_read(wake_.get(), &news);
    lock.lock();
}

void ReaderPool::endAll(Lock& lock) {
    // What the system cannot end at once, as a process that waits for a broken disk, is left
    // behind.
    const auto deadline = Clock::now() + std::chrono::seconds(2);
    slots_.endAll();
    slots_.tidy(Clock::now());
    while (!slots_.all().empty() && Clock::now() < deadline) {
        waitForNews(lock, deadline);
        slots_.tidy(Clock::now());
    }
}

void ReaderPool::wakeKeeper() const {
    ::eventfd_write(wake_.get(), 1);
}

}  // namespace nookwise
