#include "scan/IdenticalContents.h"

#include "scan/ContentHash.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace nookwise {
namespace {

// Two buffers of this size fit into a core's own cache, so that what was compared is hashed at full
// speed.
constexpr std::size_t chunkSize = 262'144;
// Bounds the open files and, with the chunk size, the memory of a thread.
constexpr std::size_t mostComparedAtOnce = 64;

/// One file on disk, with every path that led to it.
struct Member {
    std::unique_ptr<FileReader> reader;
    FileReader::State state;
    std::vector<std::size_t> positions;
};

using Members = std::vector<Member>;
using Chunk = std::vector<std::byte>;

/// Files that were equal up to where their readers stand.
struct EqualSoFar {
    Members members;
    Sha256 digest;
    std::int64_t offset = 0;
};

std::size_t pathCount(const Members& members) {
    std::size_t count = 0;
    for (const auto& member : members) count += member.positions.size();
    return count;
}

/// Opens the files, each one once. Those that are gone, unreadable or of another length are left
/// out. None when the process may open no more files.
std::optional<Members> openMembers(const FileManager& files, std::span<const FileUrl> urls,
                                   std::int64_t length, const std::stop_token& stop) {
    Members members;
    for (std::size_t position = 0; position < urls.size() && !stop.stop_requested(); ++position) {
        auto opened = files.open(urls[position]);
        if (!opened) {
            if (opened.error().code == std::errc::too_many_files_open) return std::nullopt;
            continue;
        }
        auto state = opened.value()->state();
        if (!state || state.value().size != length) continue;
        const auto known = std::find_if(members.begin(), members.end(), [&](const Member& member) {
            return member.state.identity == state.value().identity;
        });
        if (known == members.end()) {
            members.push_back({std::move(opened.value()), state.value(), {position}});
        } else if (known->positions.size() < known->state.linkCount) {
            known->positions.push_back(position);
        }
    }
    return members;
}

bool readChunk(Member& member, std::size_t wanted, Chunk& chunk) {
    chunk.resize(wanted);
    const auto read = member.reader->read(chunk);
    return read && read.value() == wanted;
}

bool sameBytes(const Chunk& a, const Chunk& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
}

/// Takes the next chunk of every member. Members are parted by what they read: the first part holds
/// the first member that could be read and its equals. Parts that are down to one path are dropped.
std::vector<EqualSoFar> advance(EqualSoFar set, std::size_t wanted, std::vector<Chunk>& buffers,
                                const std::stop_token& stop) {
    std::vector<EqualSoFar> parts;
    std::size_t used = 0;
    for (auto& member : set.members) {
        if (stop.stop_requested()) return {};
        if (buffers.size() == used) buffers.emplace_back();
        if (!readChunk(member, wanted, buffers[used])) continue;
        const auto end = buffers.begin() + static_cast<std::ptrdiff_t>(used);
        const auto equal = std::find_if(buffers.begin(), end, [&](const Chunk& chunk) {
            return sameBytes(chunk, buffers[used]);
        });
        if (equal == end) {
            parts.push_back({.members = {},
                             .digest = set.digest,
                             .offset = set.offset + static_cast<std::int64_t>(wanted)});
            parts.back().members.push_back(std::move(member));
            ++used;
        } else {
            parts[static_cast<std::size_t>(equal - buffers.begin())].members.push_back(
                std::move(member));
        }
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (pathCount(parts[i].members) >= 2) parts[i].digest.update(buffers[i]);
    }
    std::erase_if(parts, [](const EqualSoFar& part) { return pathCount(part.members) < 2; });
    return parts;
}

std::optional<IdenticalFiles> finished(EqualSoFar set) {
    std::erase_if(set.members, [](const Member& member) {
        const auto state = member.reader->state();
        return !state || state.value() != member.state;
    });
    if (pathCount(set.members) < 2) return std::nullopt;
    auto digest = set.digest.finish();
    if (!digest) return std::nullopt;
    IdenticalFiles identical{.digest = std::move(*digest), .positions = {}};
    for (const auto& member : set.members) {
        identical.positions.insert(identical.positions.end(), member.positions.begin(),
                                   member.positions.end());
    }
    std::sort(identical.positions.begin(), identical.positions.end());
    return identical;
}

/// None when the process may not open that many files.
std::optional<std::vector<IdenticalFiles>> compareSideBySide(const FileManager& files,
                                                             std::span<const FileUrl> urls,
                                                             std::int64_t length,
                                                             const std::stop_token& stop) {
    auto members = openMembers(files, urls, length, stop);
    if (!members) return std::nullopt;
    std::vector<IdenticalFiles> found;
    std::vector<Chunk> buffers;
    std::vector<EqualSoFar> pending;
    pending.push_back({.members = std::move(*members), .digest = {}, .offset = 0});
    while (!pending.empty() && !stop.stop_requested()) {
        auto set = std::move(pending.back());
        pending.pop_back();
        if (pathCount(set.members) < 2) continue;
        if (set.offset == length) {
            if (auto identical = finished(std::move(set))) found.push_back(std::move(*identical));
            continue;
        }
        const auto wanted = static_cast<std::size_t>(
            std::min<std::int64_t>(static_cast<std::int64_t>(chunkSize), length - set.offset));
        auto parts = advance(std::move(set), wanted, buffers, stop);
        std::move(parts.begin(), parts.end(), std::back_inserter(pending));
    }
    return found;
}

/// For more files than can be compared at once: parts them by the digests of their whole contents,
/// and opens them once more only to leave out paths that lead to a file already counted.
std::vector<IdenticalFiles> compareDigests(const FileManager& files, std::span<const FileUrl> urls,
                                           std::int64_t length, const std::stop_token& stop) {
    std::map<std::string, IdenticalFiles> byDigest;
    std::map<std::pair<std::uint64_t, std::uint64_t>, std::uint64_t> pathsOfFile;
    for (std::size_t position = 0; position < urls.size() && !stop.stop_requested(); ++position) {
        const auto opened = files.open(urls[position]);
        if (!opened) continue;
        const auto before = opened.value()->state();
        if (!before || before.value().size != length) continue;
        const auto& identity = before.value().identity;
        if (++pathsOfFile[{identity.device, identity.inode}] > before.value().linkCount) continue;
        auto digest = hash(files, urls[position], static_cast<std::uint64_t>(length), stop);
        const auto after = opened.value()->state();
        if (!digest || !after || after.value() != before.value()) continue;
        auto& set = byDigest[*digest];
        set.digest = std::move(*digest);
        set.positions.push_back(position);
    }
    std::vector<IdenticalFiles> found;
    for (auto& [digest, set] : byDigest) {
        if (set.positions.size() >= 2) found.push_back(std::move(set));
    }
    return found;
}

}  // namespace

std::vector<IdenticalFiles> findIdentical(const FileManager& files, std::span<const FileUrl> urls,
                                          std::int64_t length, const std::stop_token& stop) {
    std::optional<std::vector<IdenticalFiles>> compared;
    if (urls.size() <= mostComparedAtOnce) compared = compareSideBySide(files, urls, length, stop);
    auto found = compared ? std::move(*compared) : compareDigests(files, urls, length, stop);
    if (stop.stop_requested()) return {};
    std::sort(found.begin(), found.end(), [](const IdenticalFiles& a, const IdenticalFiles& b) {
        return a.positions.front() < b.positions.front();
    });
    return found;
}

}  // namespace nookwise
