#include "platform/linux/ReaderSlots.h"

#include "platform/linux/ReaderTalk.h"

#include <algorithm>

namespace nookwise {

using State = ReaderSlot::State;

ReaderSlots::Ticket ReaderSlots::join(ReaderRole role) {
    line(role).insert(++lastTicket_);
    return lastTicket_;
}

void ReaderSlots::leave(ReaderRole role, Ticket ticket) {
    line(role).erase(ticket);
}

ReaderSlot* ReaderSlots::obtain(ReaderRole role, Ticket ticket, Time now) {
    if (*line(role).begin() != ticket) return nullptr;
    // A screen waits for its pictures; text is read in the background.
    const bool givesWay = role == ReaderRole::text && picturesComeFirst(now);
    if (!givesWay || !isFull() || isAny(State::ending))
        if (auto* slot = takeIdle(role)) return slot;
    if (givesWay || !mayStart(now) || count(role) >= limits_.processesOfARole) return nullptr;
    if (!isFull()) return &slots_.emplace_back(ReaderSlot{.role = role});
    makeRoom(role);
    return nullptr;
}

const FileError* ReaderSlots::refusal(ReaderRole role, Time now) const {
    if (mayStart(now)) return nullptr;
    const bool isAnyThere = std::any_of(slots_.begin(), slots_.end(), [&](const auto& slot) {
        return slot.role == role && slot.state != State::ending && slot.state != State::failed;
    });
    return isAnyThere ? nullptr : &*failedStart_;
}

void ReaderSlots::noteFailedStart(const FileError& error, Time now) {
    failedStart_ = error;
    startsFrom_ = now + limits_.afterFailedStart;
}

void ReaderSlots::end(ReaderSlot& slot) {
    slot.process->kill();
    slot.state = State::ending;
}

void ReaderSlots::endAll() {
    for (auto& slot : slots_) end(slot);
}

void ReaderSlots::tidy(Time now) {
    for (auto& slot : slots_) {
        if (slot.state != State::idle) continue;
        if (now - slot.idleSince >= limits_.idle || slot.process->end()) end(slot);
    }
    slots_.remove_if([](const ReaderSlot& slot) {
        return slot.state == State::ending && slot.process->isGone();
    });
}

std::optional<ReaderSlots::Time> ReaderSlots::nextIdleEnd() const {
    std::optional<Time> next;
    for (const auto& slot : slots_) {
        if (slot.state != State::idle) continue;
        const auto end = slot.idleSince + limits_.idle;
        next = std::min(next.value_or(end), end);
    }
    return next;
}

void ReaderSlots::remove(ReaderSlot& slot) {
    slots_.remove_if([&](const ReaderSlot& other) { return &other == &slot; });
}

std::size_t ReaderSlots::count(ReaderRole role) const {
    return static_cast<std::size_t>(std::count_if(
        slots_.begin(), slots_.end(), [&](const auto& slot) { return slot.role == role; }));
}

bool ReaderSlots::isAny(State state) const {
    return std::any_of(slots_.begin(), slots_.end(),
                       [&](const auto& slot) { return slot.state == state; });
}

ReaderSlot* ReaderSlots::idle(ReaderRole role) {
    const auto found = std::find_if(slots_.begin(), slots_.end(), [&](const auto& slot) {
        return slot.role == role && slot.state == State::idle;
    });
    return found == slots_.end() ? nullptr : &*found;
}

/// Passes by those that have died, or that speak unasked: they might answer for the next file.
ReaderSlot* ReaderSlots::takeIdle(ReaderRole role) {
    while (auto* slot = idle(role)) {
        if (ReaderTalk::unasked(*slot->process) == ReaderTalk::Unasked::nothing) {
            slot->state = State::lent;
            return slot;
        }
        end(*slot);
    }
    return nullptr;
}

bool ReaderSlots::mayStart(Time now) const {
    return !failedStart_ || now >= startsFrom_;
}

/// Whether somebody waits for a picture and nothing but room for a process is missing.
bool ReaderSlots::picturesComeFirst(Time now) {
    return mayStart(now) && !line(ReaderRole::pictures).empty() &&
           idle(ReaderRole::pictures) == nullptr &&
           count(ReaderRole::pictures) < limits_.processesOfARole;
}

void ReaderSlots::makeRoom(ReaderRole role) {
    const auto other = role == ReaderRole::text ? ReaderRole::pictures : ReaderRole::text;
    // What is ending leaves room already.
    if (isAny(State::ending)) return;
    if (auto* slot = idle(other)) end(*slot);
}

}  // namespace nookwise
