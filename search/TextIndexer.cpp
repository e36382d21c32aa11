#include "search/TextIndexer.h"

#include "search/EntryReader.h"
#include "search/IndexCandidates.h"

#include <algorithm>
#include <utility>

namespace nookwise {
namespace {

constexpr std::size_t chunkSize = 4;
constexpr std::size_t batchSize = 24;
constexpr std::size_t filesBetweenSaves = 120;
constexpr std::size_t entriesAtOnce = 256;

/// The end when the file was changed since, or never read.
template <typename Entries>
auto findValid(Entries& entries, const FileItem& file) {
    const auto found = entries.find(file.url);
    return found == entries.end() || found->second.mtime == modificationTime(file) ? found
                                                                                   : entries.end();
}

/// Has the entry hold the path's bytes that the list of files holds too. The entry stays in its
/// place in memory.
void sharePath(IndexEntries& entries, IndexEntries::iterator entry, const FileUrl& url) {
    if (entry->first.path().data() == url.path().data()) return;
    auto node = entries.extract(entry);
    node.key() = url;
    entries.insert(std::move(node));
}

/// How many there were.
std::size_t relocateEntries(IndexEntries& entries,
                            const std::unordered_map<FileUrl, FileUrl>& moved) {
    // All old places first: one file's old place may be another's new one.
    std::vector<IndexEntries::node_type> nodes;
    for (const auto& [from, to] : moved) {
        auto node = from == to ? IndexEntries::node_type() : entries.extract(from);
        if (node.empty()) continue;
        node.key() = to;
        nodes.push_back(std::move(node));
    }
    for (auto& node : nodes) {
        entries.erase(node.key());
        entries.insert(std::move(node));
    }
    return nodes.size();
}

bool wasStopped(std::span<const Result<IndexEntry>> read) {
    return std::any_of(read.begin(), read.end(), [](const auto& entry) {
        return !entry && entry.error().code == std::errc::operation_canceled;
    });
}

/// Learns from what became of the chunks whether anything can be read at present. What keeps a
/// single file from being read says nothing about that.
class Refusals {
  public:
    void note(std::span<const FileItem> files, std::span<const Result<IndexEntry>> read) {
        bool isAnyRefused = false;
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (textCarrier(files[i].url) == TextCarrier::none) continue;
            if (read[i]) {
                chunks_ = 0;
                return;
            }
            if (read[i].error().url != files[i].url) isAnyRefused = true;
        }
        if (isAnyRefused) ++chunks_;
    }

    /// While no reader can be had, every file is refused at once and all that are left would be
    /// rushed through. Three, because a chunk may hold a single picture.
    bool areFinal() const { return chunks_ >= 3; }

  private:
    /// In a row, and without a file that was read.
    std::size_t chunks_ = 0;
};

}  // namespace

TextIndexer::TextIndexer(FileManager& files, const Metadata& metadata, const UserFolders& folders,
                         TextReader& reader)
    : metadata_(metadata),
      folders_(folders),
      reader_(reader),
      file_(files, folders.applicationSupport()) {}

template <typename Use>
decltype(auto) TextIndexer::withIndex(Use use) {
    return index_.with([&](Index& index) {
        if (!std::exchange(index.isLoaded, true)) index.entries = file_.load();
        return use(index);
    });
}

IndexEntries TextIndexer::cached(std::span<const FileItem> files) {
    return withIndex([&](Index& index) {
        IndexEntries valid;
        for (const auto& file : files) {
            const auto entry = findValid(index.entries, file);
            if (entry == index.entries.end()) continue;
            valid.emplace(file.url, entry->second);
            sharePath(index.entries, entry, file.url);
        }
        return valid;
    });
}

void TextIndexer::run(std::span<const FileItem> files, const Progress& progress, const Stop& stop) {
    const std::lock_guard lock(running_);
    const auto downloads = folders_.downloads();
    const auto work = withIndex([&](const Index& index) {
        return filesToRead(files, downloads, [&](const FileItem& file) {
            return findValid(index.entries, file) != index.entries.end();
        });
    });
    if (!work.empty()) readAll(work, downloads, progress, stop);
}

void TextIndexer::readAll(std::span<const FileItem> work, const FileUrl& downloads,
                          const Progress& progress, const Stop& stop) {
    const EntryReader reader(metadata_, reader_, downloads);
    const auto total = work.size();
    Refusals refusals;
    IndexEntries pending;
    std::size_t done = 0;
    std::size_t doneAtSave = 0;
    while (!refusals.areFinal() && done < total && !stop.soon.stop_requested() &&
           !stop.atOnce.stop_requested()) {
        const auto chunk = work.subspan(done, std::min(chunkSize, total - done));
        auto read = reader.read(chunk, stop.atOnce);
        refusals.note(chunk, read);
        const bool isStopped = wasStopped(read);
        keep(chunk, std::move(read), pending);
        if (isStopped) break;
        done += chunk.size();
        if (pending.size() < batchSize && done < total) continue;
        progress(std::exchange(pending, {}), done, total);
        if (done - doneAtSave < filesBetweenSaves) continue;
        save();
        doneAtSave = done;
    }
    // The next run takes these for known, and would not hand them on.
    if (!pending.empty()) progress(std::move(pending), done, total);
    save();
}

void TextIndexer::keep(std::span<const FileItem> files, std::vector<Result<IndexEntry>>&& read,
                       IndexEntries& pending) {
    index_.with([&](Index& index) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (!read[i]) continue;
            auto& entry = read[i].value();
            if (entry.source) entry.source = index.sources.shared(*entry.source);
            ++index.additions;
            index.entries.insert_or_assign(files[i].url, entry);
            pending.insert_or_assign(files[i].url, std::move(entry));
        }
    });
}

void TextIndexer::relocate(const std::unordered_map<FileUrl, FileUrl>& moved) {
    // Not while the index file is written: an entry that changed its bucket could be left out.
    written_.with([&](std::uint64_t) {
        withIndex([&](Index& index) { index.additions += relocateEntries(index.entries, moved); });
    });
    save();
}

void TextIndexer::save() {
    written_.with([&](std::uint64_t& written) {
        const auto [buckets, additions] = index_.with([](const Index& index) {
            return std::pair(index.entries.bucket_count(), index.additions);
        });
        if (additions == written) return;
        const auto addAll = [&](IndexJsonWriter& writer) { return write(buckets, writer); };
        if (file_.save(addAll)) written = additions;
    });
}

bool TextIndexer::write(std::size_t buckets, IndexJsonWriter& writer) {
    std::vector<std::pair<FileUrl, IndexEntry>> copies;
    for (std::size_t bucket = 0; bucket < buckets;) {
        copies.clear();
        // A few at a time, so that neither a copy nor a list of all is needed. An entry may be
        // added or replaced meanwhile, but as long as the buckets stay, none leaves its own.
        const bool isInPlace = index_.with([&](const Index& index) {
            if (index.entries.bucket_count() != buckets) return false;
            for (; bucket < buckets && copies.size() < entriesAtOnce; ++bucket)
                copies.insert(copies.end(), index.entries.begin(bucket), index.entries.end(bucket));
            return true;
        });
        if (!isInPlace) return false;
        for (const auto& [url, entry] : copies)
            if (!writer.add(url, entry)) return false;
    }
    return true;
}

}  // namespace nookwise
