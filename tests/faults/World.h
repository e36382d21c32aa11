// A home with files, a Trash and an item that something is done to.
#pragma once

#include "tests/faults/Scenario.h"
#include "tests/faults/Strace.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace nookwise {

/// What stands at every path, as snapshot() of tests/changes tells it.
using Everything = std::map<std::string, std::string>;

/// Made anew for every run, always at the same place: one at a time. All else than the item are
/// bystanders, many with names like those that the operation gives.
class World {
  public:
    explicit World(const Scenario& scenario);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    Command worker() const;
    Everything everything() const;
    /// What the next start of the application does first.
    void recover() const;

    const Scenario scenario;
    std::filesystem::path dataHome;
    /// The Trash that the operation concerns.
    std::filesystem::path trash;
    /// Of the item, before and after. `to` is empty where the operation leaves it alone.
    std::filesystem::path from;
    std::filesystem::path to;
    /// What a description of the item in the Trash is to tell.
    std::string recordedPath;
    /// What recovering is to remove.
    std::set<std::string> leftovers;

  private:
    void place();
    void placePutBack();
    void placeTrash();
    void writeItem() const;
    void writeBystanders() const;
    void writeTrashBystanders() const;
    void writeLeftovers();

    /// What putting back is told as the item's former place.
    std::filesystem::path original_;
};

/// The number of entries of the log before it is saved, and of those that are saved.
constexpr std::size_t entriesBefore = 3;
constexpr std::size_t entriesSaved = 600;

std::string infoOf(const std::filesystem::path& trash, std::string_view name);

}  // namespace nookwise
