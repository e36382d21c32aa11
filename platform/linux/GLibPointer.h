// Ownership of what GLib hands out.
#pragma once

#include <memory>

#include <gio/gio.h>

namespace nookwise {

template <auto release>
struct GLibRelease {
    template <typename T>
    void operator()(T* object) const {
        release(object);
    }
};

using GLibString = std::unique_ptr<char, GLibRelease<g_free>>;
using GLibStrings = std::unique_ptr<char*, GLibRelease<g_strfreev>>;

template <typename T>
using GLibObject = std::unique_ptr<T, GLibRelease<g_object_unref>>;

}  // namespace nookwise
