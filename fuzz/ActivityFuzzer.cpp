// An activity file may hold any bytes; what is read from it survives being written.
#include "fileops/ActivityJson.h"
#include "fuzz/Check.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace nookwise {
namespace {

void checkFile(std::string_view bytes) {
    const auto entries = activityFromJson(bytes);
    if (!entries) return;
    const auto written = activityJson(*entries);
    const auto again = activityFromJson(written);
    check(again && *again == *entries, "entries come back from their text");
    check(activityJson(*again) == written, "equal entries have the same text");
}

}  // namespace
}  // namespace nookwise

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    nookwise::checkFile({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
