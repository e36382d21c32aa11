// Metadata whose files were last opened when it was agreed.
#pragma once

#include "platform/Metadata.h"
#include "tools/demo/AgreedFiles.h"

namespace nookwise::demo {

/// Everything is the wrapped metadata's, but for the agreed files' last-used dates. Both arguments
/// must outlive it; `agreed` must not change meanwhile.
class DatedMetadata final : public Metadata {
  public:
    DatedMetadata(const Metadata& metadata, const AgreedFiles& agreed)
        : metadata_(metadata), agreed_(agreed) {}

    /// An agreed file without a date was never opened, whatever its access time says.
    std::optional<Date> lastUsed(const FileUrl& url) const override {
        const auto agreed = agreed_.find(url);
        return agreed == agreed_.end() ? metadata_.lastUsed(url) : agreed->second.lastUsed;
    }
    bool isScreenCapture(const FileUrl& url) const override {
        return metadata_.isScreenCapture(url);
    }
    std::vector<std::string> whereFrom(const FileUrl& url) const override {
        return metadata_.whereFrom(url);
    }

  private:
    const Metadata& metadata_;
    const AgreedFiles& agreed_;
};

}  // namespace nookwise::demo
