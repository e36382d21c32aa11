#include "tests/faults/Invariants.h"

#include "fileops/ActivityJson.h"
#include "platform/linux/PercentEscapes.h"
#include "platform/linux/RandomName.h"
#include "tests/changes/Snapshot.h"
#include "tests/faults/SavedLog.h"

#include <algorithm>
#include <regex>

#include <sys/stat.h>

namespace nookwise {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostEntries = 500;

bool isWithin(const fs::path& path, const fs::path& folder) {
    return !folder.empty() &&
           std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
               folder.end();
}

/// Of a folder, only what does not change when names come and go in it.
std::string lasting(const std::string& line) {
    // Written in octal: the type of a folder is 4.
    const bool isFolder = line.starts_with("4");
    return isFolder ? line.substr(0, line.find(' ', line.find(' ') + 1)) : line;
}

Everything treeAt(const Everything& everything, const fs::path& root) {
    Everything tree;
    if (root.empty()) return tree;
    for (const auto& [path, line] : everything)
        if (isWithin(path, root)) tree[fs::path(path).lexically_relative(root)] = line;
    return tree;
}

class Judgement {
  public:
    Judgement(const World& world, const Everything& before, const TracedRun& run, Moment moment)
        : world_(world),
          before_(before),
          after_(world.everything()),
          outcome_(run.outcome),
          isFaultLasting_(run.isFaultLasting),
          moment_(moment),
          item_(treeAt(before, world.from)),
          atFrom_(treeAt(after_, world.from)),
          atTo_(treeAt(after_, world.to)) {}

    std::vector<std::string> violations() {
        judgeItem();
        judgeReport();
        judgeBystanders();
        judgeAdditions();
        judgeDescription();
        judgeLog();
        judgeSizes();
        return std::move(violations_);
    }

  private:
    void require(bool holds, const std::string& violation) {
        if (!holds) violations_.push_back(violation);
    }

    bool isScenario(Operation operation) const { return world_.scenario.operation == operation; }

    void judgeItem() {
        require(atFrom_ == item_ || atTo_ == item_, "the item is whole neither here nor there");
        require(atTo_.empty() || atTo_ == item_, "the destination is not the whole item");
        require(atFrom_.empty() || atFrom_ == item_, "the source is only a part of the item");
    }

    void judgeReport() {
        require(outcome_ != Outcome::crashed, "the process crashed");
        const bool isReported =
            outcome_ == Outcome::reportedSuccess || outcome_ == Outcome::reportedFailure;
        if (isReported && world_.scenario.isCancelled())
            return require(atFrom_ == item_ && atTo_.empty(), "cancelling changed something");
        if (outcome_ == Outcome::reportedFailure) {
            require(atFrom_ == item_, "failure was reported, and the source is not intact");
            // Where every call that could take it away again fails, the whole copy has to stay.
            require(atTo_.empty() || (isFaultLasting_ && atTo_ == item_),
                    "failure was reported, and something is at the destination");
        }
        if (outcome_ != Outcome::reportedSuccess || !world_.scenario.hasDestination()) return;
        require(atTo_ == item_, "success was reported, and the destination is not the item");
        require(atFrom_ == (world_.scenario.takesAway() ? Everything{} : item_),
                "success was reported, and the source is not as it should be");
    }

    bool mayChange(const std::string& path) const {
        return isWithin(path, world_.from) || world_.leftovers.contains(path) ||
               path == world_.trash / "directorysizes" || path == descriptionAtSource() ||
               (isScenario(Operation::save) && path == log());
    }

    void judgeBystanders() {
        for (const auto& [path, line] : before_) {
            if (mayChange(path)) continue;
            const auto now = after_.find(path);
            require(now != after_.end() && lasting(now->second) == lasting(line),
                    "a bystander changed: " + path);
        }
    }

    void judgeAdditions() {
        for (const auto& [path, line] : after_) {
            const bool isOld = before_.contains(path) && !world_.leftovers.contains(path);
            const bool isPassing = isTemporary(path) || world_.leftovers.contains(path);
            require(isOld || isExpected(path) || (moment_ == Moment::atOnce && isPassing),
                    "there is something new: " + path);
        }
    }

    bool isExpected(const fs::path& path) const {
        if (isWithin(path, world_.to) || isWithin(world_.to, path)) return true;
        const auto& trash = world_.trash;
        if (isScenario(Operation::trash) && path == infoOf(trash, world_.to.filename().native()))
            return moment_ == Moment::atOnce || !atTo_.empty();
        const std::set<fs::path> ours{world_.dataHome / "Nookwise" / "unfinished", trash,
                                      trash / "files", trash / "info", trash / "directorysizes"};
        return ours.contains(path);
    }

    bool isTemporary(const fs::path& path) const {
        if (path.parent_path() == world_.dataHome / "Nookwise" / "unfinished")
            return isRandomName(path.filename().native());
        if (path.parent_path() == world_.trash)
            return path.filename().native().starts_with(".directorysizes-nookwise-");
        return std::any_of(path.begin(), path.end(), [](const fs::path& part) {
            static const std::regex made("\\.nookwise-[0-9a-f]{32}\\.(part|new)");
            return std::regex_match(part.native(), made);
        });
    }

    std::string descriptionAtSource() const {
        return isScenario(Operation::putBack)
                   ? infoOf(world_.trash, world_.from.filename().native())
                   : std::string();
    }

    void judgeDescription() {
        if (!isScenario(Operation::trash) && !isScenario(Operation::putBack)) return;
        const bool isTrashing = isScenario(Operation::trash);
        const auto& place = isTrashing ? world_.to : world_.from;
        const auto info = infoOf(world_.trash, place.filename().native());
        const bool isInTrash = !(isTrashing ? atTo_ : atFrom_).empty();
        const auto expected = "\nPath=" + percentEscaped(world_.recordedPath) + "\n";
        if (isInTrash)
            require(contents(info).find(expected) != std::string::npos,
                    "in the Trash without the right description");
        if (moment_ == Moment::afterRecovery)
            require(isInTrash || !after_.contains(info), "a description of nothing is left");
    }

    fs::path log() const { return world_.dataHome / "Nookwise" / "activity.json"; }

    void judgeLog() {
        struct stat status {};
        const bool isThere = ::stat(log().c_str(), &status) == 0;
        require(isThere && (status.st_mode & ALLPERMS) == 0600, "the log is open to others");
        const auto entries = activityFromJson(contents(log()));
        require(entries && (*entries == logOf(entriesBefore) || *entries == logOf(mostEntries)),
                "the log is neither the old one nor the new one");
    }

    void judgeSizes() {
        static const std::regex lines("([0-9]+ [0-9]+ \\S+\n)*");
        require(std::regex_match(contents(world_.trash / "directorysizes"), lines),
                "the list of folder sizes is broken");
    }

    const World& world_;
    const Everything& before_;
    const Everything after_;
    const Outcome outcome_;
    const bool isFaultLasting_;
    const Moment moment_;
    const Everything item_;
    const Everything atFrom_;
    const Everything atTo_;
    std::vector<std::string> violations_;
};

}  // namespace

std::vector<std::string> violations(const World& world, const Everything& before,
                                    const TracedRun& run, Moment moment) {
    return Judgement(world, before, run, moment).violations();
}

}  // namespace nookwise
