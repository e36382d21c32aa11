// The seams to the world, bundled for those who hand them on.
#pragma once

namespace nookwise {

class Clock;
class FileManager;
class Metadata;
class Tasks;
class TextReader;
class UserDefaults;
class UserFolders;
class Workspace;

/// References only; everything must outlive whoever holds this, background work included.
struct Platform {
    FileManager& files;
    const Metadata& metadata;
    const UserFolders& folders;
    Workspace& workspace;
    UserDefaults& defaults;
    const Clock& clock;
    Tasks& tasks;
    TextReader& reader;
};

}  // namespace nookwise
