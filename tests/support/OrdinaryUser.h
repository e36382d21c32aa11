// Rights that root does not feel the lack of.
#pragma once

#include <stdexcept>

#include <unistd.h>

namespace nookwise {

/// While it lives, a process of root acts as an ordinary user; any other process stays as it is.
class OrdinaryUser {
  public:
    OrdinaryUser() : isRoot_(::geteuid() == 0) {
        if (isRoot_ && ::seteuid(nobody) != 0)
            throw std::runtime_error("cannot become another user");
    }
    ~OrdinaryUser() {
        if (isRoot_ && ::seteuid(0) != 0) ::_exit(70);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  private:
    static constexpr uid_t nobody = 65534;
    bool isRoot_;
};

}  // namespace nookwise
