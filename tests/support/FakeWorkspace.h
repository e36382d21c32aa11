// A desktop whose applications the test names.
#pragma once

#include "platform/Workspace.h"

namespace nookwise {

class FakeWorkspace : public Workspace {
  public:
    std::vector<InstalledApplication> applications(std::stop_token) const override {
        return installed;
    }

    std::vector<InstalledApplication> installed;
};

}  // namespace nookwise
