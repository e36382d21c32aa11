#include "tools/demo/Stories.h"

#include <array>

namespace nookwise::demo {
namespace {

struct Placed {
    const char* path = nullptr;
    std::int64_t bytes = 0;
    Age age{};
};

template <std::size_t count>
void allocateAll(SampleWriter& writer, const std::array<Placed, count>& files) {
    for (const auto& [path, bytes, age] : files) writer.allocate(path, bytes, age);
}

void addApplication(SampleWriter& writer, const std::string& name, Age age) {
    const auto bundle = "Applications/" + name + ".app";
    writer.write(bundle + "/Contents/Info.plist", QByteArray::fromStdString(name), age);
    writer.datePackage(bundle, age);
}

}  // namespace

void addCopies(SampleWriter& writer) {
    writer.copy("Desktop/Open day poster.png", "Desktop/Open day poster copy.png", {18, {}});
    writer.copy("Desktop/Open day poster.png", "Downloads/Open day poster.png", {17, {}});
    writer.copy("Documents/Fernhill/Site plan.pdf", "Downloads/Site plan (2).pdf", {60, 55});
    writer.copy("Documents/Fernhill/Site plan.pdf", "Downloads/Site plan.pdf", {61, {}});
    writer.copy("Documents/Fernhill/North slope.jpg", "Documents/To print/North slope.jpg",
                {33, {}});
    writer.copy("Documents/Fernhill/Old orchard.jpg", "Downloads/Old orchard (2).jpg", {34, {}});
    writer.copy("Documents/Kiln/Chimney.jpg", "Desktop/Chimney copy.jpg", {40, {}});
    writer.copy("Downloads/Reading/Tile catalogue.pdf", "Documents/Suppliers/Tile catalogue.pdf",
                {90, 11});
}

void addInstallers(SampleWriter& writer) {
    addApplication(writer, "Blue Kite", {310, 1});
    addApplication(writer, "Marble Notes", {200, 6});
    addApplication(writer, "Tidewater Maps", {150, 35});

    static constexpr std::array installers{
        Placed{"Downloads/Blue Kite Setup 1.2.dmg", 184'320'000, {84, 83}},
        Placed{"Downloads/Blue Kite Setup 1.3.dmg", 187'904'000, {6, 6}},
        Placed{"Downloads/Marble Notes 4.1.pkg", 96'468'992, {72, 71}},
        Placed{"Desktop/tidewater-maps-2.8.xip", 311'951'360, {40, 40}},
        // Nothing of this name is installed.
        Placed{"Downloads/Copper Lantern 3.0.dmg", 142'606'336, {51, 50}},
    };
    allocateAll(writer, installers);
}

void addDownloads(SampleWriter& writer) {
    static constexpr std::array files{
        // Forgotten.
        Placed{
            "Downloads/Fernhill/Fernhill site survey – raw scans.zip", 1'920'000'000, {214, 213}},
        Placed{"Downloads/Kiln build timelapse.mov", 1'310'000'000, {155, 152}},
        Placed{"Downloads/Winter workshop recordings.zip", 1'040'000'000, {340, {}}},
        Placed{"Downloads/harbor-map-tiles.tar.gz", 402'700'000, {250, 244}},
        Placed{"Downloads/studio-fonts-bundle.7z", 214'900'000, {280, 275}},
        Placed{"Downloads/Guest list.xlsx", 48'000, {99, 95}},
        // Large, and in use.
        Placed{"Documents/Films/Open day interviews.mov", 1'480'000'000, {120, 71}},
        Placed{"Documents/Films/Glaze workshop, uncut.mp4", 861'000'000, {88, 14}},
        Placed{"Documents/Archive/Studio backup.tar.gz", 2'130'000'000, {190, {}}},
        Placed{"Downloads/Coastline elevation.iso", 640'000'000, {33, 20}},
        Placed{"Desktop/Choir rehearsal, both mics.wav", 506'000'000, {12, 12}},
        // Neither.
        Placed{"Downloads/workshop-notes.zip", 3'276'800, {1, 1}},
        Placed{"Documents/Field recordings/Rain on the kiln roof.flac", 38'000'000, {77, 70}},
        Placed{"Documents/Field recordings/Gulls at the quay.m4a", 9'400'000, {52, 50}},
        Placed{"Documents/Films/Wheel, first turn.mp4", 91'000'000, {27, 26}},
    };
    allocateAll(writer, files);
}

void addProjects(SampleWriter& writer) {
    writer.write("Documents/kiln-controller/package.json", "{\"name\": \"kiln-controller\"}\n",
                 {130, 20});
    writer.write("Documents/kiln-controller/ramp.js", "export const degreesPerHour = 120;\n",
                 {130, 20});
    writer.write("Documents/Shop site/index.html", "<h1>Fernhill Pottery</h1>\n", {260, 250});
    writer.write("Documents/Shop site/node_modules/left-margin/index.js", "module.exports = 40;\n",
                 {260, {}});
}

}  // namespace nookwise::demo
