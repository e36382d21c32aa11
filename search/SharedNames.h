// Strings of which there are few different ones.
#pragma once

#include "platform/SharedBytes.h"

#include <unordered_set>

namespace nookwise {

/// Gives the same bytes for equal names.
class SharedNames {
  public:
    SharedBytes shared(const SharedBytes& name) { return *names_.insert(name).first; }

  private:
    std::unordered_set<SharedBytes> names_;
};

}  // namespace nookwise
