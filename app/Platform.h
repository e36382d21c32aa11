// The seams to the world, bundled for those who hand them on.
#pragma once

namespace nookwise {

class Clock;
class FileManager;
class Metadata;
class Tasks;
class UserFolders;
class Workspace;

/// References only; everything must outlive whoever holds this, background work included.
struct Platform {
    const FileManager& files;
    const Metadata& metadata;
    const UserFolders& folders;
    const Workspace& workspace;
    const Clock& clock;
    Tasks& tasks;
};

}  // namespace nookwise
