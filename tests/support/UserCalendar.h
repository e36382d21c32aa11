// Another region and another time zone than the machine's.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#include <unicode/timezone.h>

namespace nookwise {

/// Another region's calendar while it lives.
class Region {
  public:
    explicit Region(const char* locale) {
        if (const char* const former = std::getenv("LC_ALL")) former_ = former;
        setenv("LC_ALL", locale, 1);
    }
    ~Region() {
        if (former_)
            setenv("LC_ALL", former_->c_str(), 1);
        else
            unsetenv("LC_ALL");
    }
    Region(const Region&) = delete;
    Region& operator=(const Region&) = delete;

  private:
    std::optional<std::string> former_;
};

/// Another time zone while it lives.
class Zone {
  public:
    explicit Zone(const char* name) : former_(icu::TimeZone::createDefault()) {
        icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone(name));
    }
    ~Zone() { icu::TimeZone::adoptDefault(former_); }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

  private:
    icu::TimeZone* former_;
};

}  // namespace nookwise
