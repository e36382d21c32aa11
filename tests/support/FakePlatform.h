// Every seam to the world, as fakes.
#pragma once

#include "app/Platform.h"
#include "tests/support/FakeFileManager.h"
#include "tests/support/FakeMetadata.h"
#include "tests/support/FakeTextReader.h"
#include "tests/support/FakeUserDefaults.h"
#include "tests/support/FakeUserFolders.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ManualTasks.h"

namespace nookwise {

/// A home with empty Desktop, Documents and Downloads folders on a day in November 2023.
struct FakePlatform {
    FakePlatform() {
        for (const auto& folder : {folders.desktop(), folders.documents(), folders.downloads()}) {
            files.addFolder(folder.path());
        }
    }

    Platform platform() {
        return {files, metadata, folders, workspace, defaults, clock, tasks, reader};
    }

    FakeFileManager files;
    FakeMetadata metadata;
    FakeUserFolders folders;
    FakeWorkspace workspace;
    FakeUserDefaults defaults;
    ManualClock clock{Date{Seconds{1'700'000'000}}};
    ManualTasks tasks;
    FakeTextReader reader;
};

}  // namespace nookwise
