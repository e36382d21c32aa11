#include "tools/demo/Drawings.h"
#include "tools/demo/Stories.h"

#include <QDateTime>
#include <array>
#include <string>

namespace nookwise::demo {
namespace {

/// The name that a capture tool gives a picture taken so many days ago.
std::string captureName(Date now, int daysAgo) {
    const auto seconds = static_cast<qint64>(now.time_since_epoch().count());
    const auto taken =
        QDateTime::fromSecsSinceEpoch(seconds).addDays(-daysAgo).addSecs(-67LL * daysAgo);
    return ("Screenshot " + taken.toString("yyyy-MM-dd 'at' HH.mm.ss") + ".png").toStdString();
}

QList<QImage> plates(std::uint32_t firstSeed, std::uint32_t count) {
    QList<QImage> pictures;
    for (std::uint32_t i = 0; i < count; ++i) pictures << landscape(firstSeed + i);
    return pictures;
}

}  // namespace

void addPictures(SampleWriter& writer) {
    struct Photograph {
        const char* path = nullptr;
        std::uint32_t seed = 0;
        Age age{};
    };
    static constexpr std::array photographs{
        Photograph{"Downloads/Fernhill at dusk.jpg", 3, {0, 0}},
        Photograph{"Desktop/Glaze test row 4.jpg", 8, {1, 1}},
        Photograph{"Documents/Fernhill/North slope.jpg", 5, {64, 12}},
        Photograph{"Documents/Fernhill/Old orchard.jpg", 6, {64, {}}},
        Photograph{"Documents/Fernhill/Footbridge.jpg", 7, {63, 20}},
        Photograph{"Documents/Kiln/Arch, day 3.jpg", 12, {150, {}}},
        Photograph{"Documents/Kiln/Chimney.jpg", 13, {141, {}}},
        Photograph{"Downloads/Market stall.jpg", 21, {117, 110}},
        Photograph{"Downloads/Harbour in fog.jpg", 22, {203, {}}},
    };
    for (const auto& [path, seed, age] : photographs)
        writer.write(path, jpeg(landscape(seed)), age);

    writer.write("Documents/Receipts/Clay order.jpg",
                 jpeg(receipt("Low Mill Clay Works",
                              {"Stoneware, 12 bags\t96.00", "Grogged raku, 4 bags\t41.20",
                               "Delivery\t18.50"},
                              "155.70")),
                 {37, 30});
    writer.write("Documents/Receipts/Lunch at the quay.jpg",
                 jpeg(receipt("The Quay Kitchen",
                              {"Fish soup\t8.40", "Rye bread\t2.10", "Ginger tea\t3.00"}, "13.50")),
                 {16, {}});
    writer.write("Desktop/wifi studio.png",
                 png(note("Studio wifi", {"network: fernhill-guest", "password: seven-blue-kilns",
                                          "(the router is behind the kiln door)"})),
                 {45, 3});
    writer.write("Documents/Evening class/Lecture 5, glazes.png",
                 png(slide("What makes a glaze run",
                           {"Flux lowers the melting point", "Silica makes the glass",
                            "Alumina keeps it on the pot"},
                           5)),
                 {29, 28});
    writer.write("Documents/Evening class/Lecture 6, firing.png",
                 png(slide("Cones, not clocks",
                           {"Cone 6 bends near 1222 °C", "Soak for twenty minutes",
                            "Cool slowly past 573 °C"},
                           6)),
                 {22, 21});
    writer.write("Desktop/Open day poster.png", png(landscape(33)), {19, 4});
}

void addPapers(SampleWriter& writer) {
    writer.write(
        "Downloads/Invoice 2207 – Fernhill.pdf",
        letter("Invoice 2207", {"To: Fernhill Trust", "Topographic survey, 3 days\t1,350.00",
                                "Drawings, 2 sheets\t280.00", "Total due in 30 days\t1,630.00"}),
        {0, {}});
    writer.write("Documents/Invoices/Invoice 2198 – Harbour office.pdf",
                 letter("Invoice 2198", {"To: Harbour office", "Map tiles, second series\t640.00",
                                         "Total due in 30 days\t640.00"}),
                 {48, 40});
    writer.write(
        "Documents/Fernhill/Letter to the neighbours.pdf",
        letter("Dear neighbours", {"We will measure the north slope from Monday to Wednesday.",
                                   "You will see tripods; please leave the pegs in the ground.",
                                   "Thank you, the survey team"}),
        {70, {}});
    writer.write("Documents/Fernhill/Site plan.pdf", catalogue("Fernhill site plan", plates(41, 2)),
                 {66, 9});
    writer.write("Downloads/Reading/Tile catalogue.pdf", catalogue("Tile catalogue", plates(51, 4)),
                 {128, {}});
    writer.write("Downloads/Reading/Glaze reference library.pdf",
                 catalogue("Glaze library", plates(61, 6)), {380, 372});
    writer.write("Documents/Kiln/Glaze recipes.md",
                 "# Glazes that worked\n\n- Shino 3: feldspar 70, clay 20, soda ash 10\n"
                 "- Tenmoku: cone 9, two dips\n",
                 {90, 2});
    writer.write("Documents/Kiln/Firing log.csv", "date,cone,hours\n2,6,11\n9,6,12\n16,9,14\n",
                 {30, 5});
    writer.write("Documents/Workshop report.pages/Index.txt", "The winter workshop in numbers.\n",
                 {25, 8});
    writer.write("Documents/Workshop report.pages/Data/cover.jpg", jpeg(landscape(71)), {25, {}});
    writer.datePackage("Documents/Workshop report.pages", {25, 8});
}

void addScreenshots(SampleWriter& writer) {
    const auto now = writer.now();
    const auto map =
        windowShot("Tide tables", {"High water 06:12\t4.3 m", "Low water 12:31\t0.9 m"});
    const auto chat =
        windowShot("Studio chat", {"Who has the key to the glaze room?", "It hangs by the door."});
    const auto settings =
        windowShot("Kiln controller", {"Ramp 120 °C per hour", "Hold 20 minutes"});
    const auto order = windowShot("Order 8812", {"Cobalt oxide, 250 g", "On its way, Thursday"});
    writer.write("Desktop/" + captureName(now, 2), png(order), {2, {}});
    writer.write("Desktop/" + captureName(now, 41), png(map), {41, {}});
    writer.write("Desktop/" + captureName(now, 76), png(chat), {76, 70});
    writer.write("Desktop/" + captureName(now, 133), png(settings), {133, {}});
    writer.write("Downloads/" + captureName(now, 58), png(order), {58, {}});
    writer.write("Desktop/Kiln curve, cone 6.png", png(settings, "gnome-screenshot"), {62, 50});
    writer.write("Pictures/Screenshots/Tides for the weekend.png", png(map, "gnome-screenshot"),
                 {97, {}});
    writer.write("Pictures/Screenshots/" + captureName(now, 5), png(chat, "gnome-screenshot"),
                 {5, {}});
}

}  // namespace nookwise::demo
