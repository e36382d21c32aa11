#include "tools/demo/SampleHome.h"

#include "tools/demo/Stories.h"

namespace nookwise::demo {

Result<AgreedFiles> makeSampleHome(const FileUrl& home, Date now) {
    SampleWriter writer(home, now);
    for (const auto* folder :
         {"Desktop", "Documents", "Downloads", "Applications", "Pictures/Screenshots"}) {
        writer.folder(folder);
    }
    // The copies come after what they are copies of.
    for (const auto add : {addPictures, addPapers, addCopies, addScreenshots, addInstallers,
                           addDownloads, addProjects}) {
        if (!writer.hasFailed()) add(writer);
    }
    return writer.finish();
}

}  // namespace nookwise::demo
