#include "bench/SampleTrees.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

namespace nookwise::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 3> roots{"Desktop", "Documents", "Downloads"};
constexpr std::int64_t smallestCopy = 65'536;

using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t bound) {
    return static_cast<std::size_t>(random() % bound);
}

double share(Random& random) {
    return static_cast<double>(random() >> 11) * 0x1.0p-53;
}

/// Folders below the roots, none deeper than ten levels, each in a folder chosen at random.
std::vector<fs::path> makeFolders(const fs::path& home, int count, Random& random) {
    struct Made {
        fs::path path;
        int depth;
    };
    std::vector<Made> made;
    for (const auto root : roots) made.push_back({home / root, 1});
    while (static_cast<int>(made.size()) < count) {
        const auto& parent = made[below(random, made.size())];
        if (parent.depth < 10)
            made.push_back(
                {parent.path / ("folder " + std::to_string(made.size())), parent.depth + 1});
    }
    std::vector<fs::path> paths;
    for (const auto& folder : made) {
        fs::create_directories(folder.path);
        paths.push_back(folder.path);
    }
    return paths;
}

void writeFile(const fs::path& path, std::string_view contents) {
    const int fd = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0644);
    const bool done = fd >= 0 && ::write(fd, contents.data(), contents.size()) ==
                                     static_cast<ssize_t>(contents.size());
    if (fd >= 0) ::close(fd);
    if (!done) throw std::runtime_error("cannot write " + path.string());
}

/// Bytes that depend on `seed` alone.
class Contents {
  public:
    explicit Contents(std::uint64_t seed) : random_(seed) {}

    void fill(std::string& buffer) {
        for (std::size_t i = 0; i + 8 <= buffer.size(); i += 8) {
            const auto bits = random_();
            std::memcpy(buffer.data() + i, &bits, 8);
        }
    }

  private:
    Random random_;
};

/// The bytes of content `seed`; from `changeAt` on those of another one, when that is not negative.
void writeContents(const fs::path& path, std::int64_t size, std::uint64_t seed,
                   std::int64_t changeAt) {
    std::string buffer(1 << 20, '\0');
    Contents contents(seed);
    Contents changed(seed + 0x5eed);
    const int fd = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0644);
    if (fd < 0) throw std::runtime_error("cannot write " + path.string());
    for (std::int64_t offset = 0; offset < size;
         offset += static_cast<std::int64_t>(buffer.size())) {
        const auto wanted =
            static_cast<std::size_t>(std::min<std::int64_t>(size - offset, 1 << 20));
        const bool isChanged =
            changeAt >= 0 && offset + static_cast<std::int64_t>(wanted) > changeAt;
        contents.fill(buffer);
        if (isChanged) {
            std::string other(buffer.size(), '\0');
            changed.fill(other);
            const auto from =
                static_cast<std::size_t>(std::max<std::int64_t>(0, changeAt - offset));
            buffer.replace(from, other.size() - from, other, from);
        }
        if (::write(fd, buffer.data(), wanted) != static_cast<ssize_t>(wanted))
            throw std::runtime_error("disk full");
    }
    ::close(fd);
}

std::int64_t sizeBetween(Random& random, double low, double high) {
    return static_cast<std::int64_t>(
        std::exp(std::log(low) + share(random) * (std::log(high) - std::log(low))));
}

/// Sizes that add up to about `bytes`: a fifth in a few very large files, half in large ones, the
/// rest spread over the many.
std::vector<std::int64_t> drawSizes(int files, std::int64_t bytes, Random& random) {
    std::vector<std::int64_t> sizes;
    const auto draw = [&](double part, double low, double high, int most) {
        double left = part * static_cast<double>(bytes);
        for (int i = 0; i < most && left > 0; ++i) {
            sizes.push_back(sizeBetween(random, low, high));
            left -= static_cast<double>(sizes.back());
        }
    };
    draw(0.20, 150e6, 450e6, 50);
    draw(0.45, 1e6, 50e6, files / 10);
    draw(0.30, 65'536, 1e6, files / 3);
    while (static_cast<int>(sizes.size()) < files)
        sizes.push_back(sizeBetween(random, 200, 60'000));
    std::sort(sizes.begin(), sizes.end());
    return sizes;
}

std::string extensionFor(std::int64_t size, Random& random) {
    static constexpr std::array<std::string_view, 4> large{"mp4", "dmg", "zip", "iso"};
    static constexpr std::array<std::string_view, 6> medium{"jpg",  "png", "pdf",
                                                            "docx", "mp3", "zip"};
    static constexpr std::array<std::string_view, 5> small{"txt", "md", "jpg", "pdf", "json"};
    if (size >= 100'000'000) return std::string(large[below(random, large.size())]);
    if (size >= smallestCopy) return std::string(medium[below(random, medium.size())]);
    return std::string(small[below(random, small.size())]);
}

fs::path chosenParent() {
    const char* const chosen = std::getenv("NOOKWISE_BENCH_DIR");
    return chosen == nullptr ? "/var/tmp" : chosen;
}

}  // namespace

WorkFolder::WorkFolder() : WorkFolder(chosenParent()) {}

WorkFolder::WorkFolder(const fs::path& parent) {
    auto pattern = (parent / "nookwise-bench-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make " + pattern);
    path_ = pattern;
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void makeDeepHome(const fs::path& home, int files, int folders) {
    Random random(1);
    const auto made = makeFolders(home, folders, random);
    const std::string some(200, 'x');
    for (int i = 0; i < files; ++i) {
        const auto contents =
            i % 10 == 0 ? std::string_view(some).substr(0, below(random, 200)) : std::string_view{};
        writeFile(made[below(random, made.size())] /
                      ("file " + std::to_string(i) + "." + extensionFor(1, random)),
                  contents);
    }
}

CopiesHome makeCopiesHome(const fs::path& home, int files, std::int64_t bytes) {
    Random random(2);
    const auto folders = makeFolders(home, files / 14, random);
    CopiesHome made;
    std::map<std::uint64_t, std::vector<std::string>> byContents;
    const auto write = [&](std::int64_t size, const std::string& extension, std::uint64_t contents,
                           std::int64_t changeAt) {
        const auto path = folders[below(random, folders.size())] /
                          ("file " + std::to_string(made.files++) + "." + extension);
        writeContents(path, size, contents, changeAt);
        made.bytes += size;
        if (size >= smallestCopy && changeAt < 0) byContents[contents].push_back(path.string());
    };
    const auto sizes = drawSizes(files, bytes, random);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const auto size = sizes[i];
        const auto extension = extensionFor(size, random);
        write(size, extension, i, -1);
        const auto luck = share(random);
        // A third of the rest are copies of the one before; of 25 copies one differs in its later
        // part.
        if (luck < 0.04 && size > 80'000 && i + 1 < sizes.size()) {
            write(size, extension, i,
                  smallestCopy + static_cast<std::int64_t>(
                                     below(random, static_cast<std::size_t>(size - 70'000))));
            ++i;
        } else if (luck < 0.30) {
            const int copies = luck < 0.04 ? 3 : 1;
            for (int copy = 0; copy < copies && i + 1 < sizes.size(); ++copy, ++i)
                write(size, extension, i - static_cast<std::size_t>(copy), -1);
        }
    }
    for (auto& [contents, paths] : byContents) {
        std::sort(paths.begin(), paths.end());
        if (paths.size() > 1) made.groups.push_back(std::move(paths));
    }
    std::sort(made.groups.begin(), made.groups.end());
    return made;
}

}  // namespace nookwise::bench
