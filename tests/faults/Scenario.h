// What is done to what, and where.
#pragma once

#include <string>
#include <vector>

namespace nookwise {

enum class Operation {
    move,
    copy,
    rename,
    trash,
    putBack,
    save,
    recover,
    // Ended by the user when the last byte has been copied.
    cancelledMove,
    cancelledCopy,
};
enum class Item { file, folder };
enum class Volumes { one, two };

struct Scenario {
    Operation operation;
    Item item = Item::file;
    /// Whether source and destination share one; of trashing, whether the file and the home Trash
    /// do.
    Volumes volumes = Volumes::one;

    bool hasDestination() const {
        return operation != Operation::save && operation != Operation::recover;
    }
    /// A success of it leaves everything as it was.
    bool isCancelled() const {
        return operation == Operation::cancelledMove || operation == Operation::cancelledCopy;
    }
    /// Whether the item is no longer at its place after a success.
    bool takesAway() const { return hasDestination() && operation != Operation::copy; }
};

std::vector<Scenario> everyScenario();

/// Of letters only.
std::string nameOf(const Scenario& scenario);

}  // namespace nookwise
