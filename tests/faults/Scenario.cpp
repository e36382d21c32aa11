#include "tests/faults/Scenario.h"

#include <array>

namespace nookwise {

std::vector<Scenario> everyScenario() {
    std::vector<Scenario> scenarios;
    for (const auto item : {Item::file, Item::folder}) {
        for (const auto volumes : {Volumes::one, Volumes::two}) {
            for (const auto operation :
                 {Operation::move, Operation::copy, Operation::trash, Operation::putBack})
                scenarios.push_back({operation, item, volumes});
        }
        scenarios.push_back({Operation::rename, item, Volumes::one});
        scenarios.push_back({Operation::cancelledMove, item, Volumes::two});
        scenarios.push_back({Operation::cancelledCopy, item, Volumes::one});
    }
    scenarios.push_back({.operation = Operation::save});
    scenarios.push_back({.operation = Operation::recover});
    return scenarios;
}

std::string nameOf(const Scenario& scenario) {
    constexpr std::array operations{"moving",     "copying",         "renaming",
                                    "trashing",   "puttingBack",     "saving",
                                    "recovering", "cancelledMoving", "cancelledCopying"};
    std::string name = operations[static_cast<std::size_t>(scenario.operation)];
    if (!scenario.hasDestination()) return name;
    name += scenario.item == Item::file ? "AFile" : "AFolder";
    return name + (scenario.volumes == Volumes::one ? "OnOneVolume" : "OnTwoVolumes");
}

}  // namespace nookwise
