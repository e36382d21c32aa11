#include "app/TrashRequest.h"

#include "model/ByteSum.h"
#include "model/Counted.h"
#include "model/Fmt.h"

#include <utility>

namespace nookwise {
namespace {

template <typename Sized>
std::int64_t bytesOf(const std::vector<Sized>& all) {
    std::int64_t sum = 0;
    for (const auto& one : all) sum = byteSum(sum, one.size);
    return sum;
}

std::string_view nounOf(std::optional<PileKind> pile) {
    return pile ? noun(*pile) : "files";
}

}  // namespace

TrashRequest trashRequest(std::vector<FileItem> files, std::optional<PileKind> pile,
                          std::string_view source) {
    TrashRequest request{
        .id = Uuid::random(),
        .title = "Move " + counted(files.size(), "file", nounOf(pile)) + " to the Trash?",
        .detail = Fmt::bytes(bytesOf(files)) +
                  " goes back to your Mac. Nothing is erased — you can put them "
                  "back from the Trash, or press ⌘Z right after.",
        .files = {},
        .source = std::string(source),
        .pile = pile};
    request.files = std::move(files);
    return request;
}

std::string skipConfirmationKey(std::string_view source) {
    return std::string(skipConfirmationPrefix).append(source);
}

std::string trashedTitle(std::size_t moved, std::optional<PileKind> pile) {
    // The plural stands for one file, too: these are fixed phrases of the log.
    return (pile ? "Swept " : "Trashed ") + std::to_string(moved).append(" ").append(nounOf(pile));
}

std::string trashedMessage(const TrashService::Trashed& trashed) {
    auto message = countedFiles(trashed.moves.size()) + " moved to Trash · " +
                   Fmt::bytes(bytesOf(trashed.moves)) + " freed";
    if (!trashed.failed.empty())
        message += " · " + std::to_string(trashed.failed.size()) + " skipped";
    return message;
}

std::string nothingTrashedMessage(std::size_t failed) {
    return "Couldn’t move " + countedFiles(failed) + " to the Trash";
}

}  // namespace nookwise
