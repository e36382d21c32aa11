#include "reader/recognition/PlainAreas.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <vector>

namespace nookwise {

namespace {

/// Pixels a side. The gaps between lines and words must hold whole cells.
constexpr std::int32_t cellSide = 4;
/// Levels of grey that count as one colour.
constexpr int tolerance = 4;
/// Thick letters have plain parts too, which are no areas: those are bars, rows and buttons (wider
/// than high and this many cells high at least), bubbles and panels (rather full of plain cells,
/// and this many cells a side at least), and whatever runs through a third of the picture.
constexpr std::int32_t wideAspect = 3;
constexpr std::int32_t leastBarHeight = 4;
constexpr std::int32_t leastPanelSide = 10;
constexpr std::size_t leastPanelShare = 2;
constexpr std::int32_t largeShare = 3;
/// Of all cells.
constexpr double leastPlainShare = 0.3;
/// Of the contrast: light text on white, say, should not fall under the engine's threshold.
constexpr int gainNumerator = 3;
constexpr int gainDenominator = 2;

struct Cell {
    std::uint8_t level = 0;
    bool isPlain = false;
    /// In steps to the nearest area; 0 within one, whose level it then has.
    std::int32_t distance = std::numeric_limits<std::int32_t>::max() / 2;
};

/// The picture in cells; those at the right and bottom edges may be smaller.
class Grid {
  public:
    explicit Grid(PixelSize picture)
        : width_((picture.width + cellSide - 1) / cellSide),
          height_((picture.height + cellSide - 1) / cellSide),
          cells_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    std::size_t count() const { return cells_.size(); }
    bool contains(std::int32_t x, std::int32_t y) const {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    }
    Cell& at(std::int32_t x, std::int32_t y) { return cells_[index(x, y)]; }
    const Cell& at(std::int32_t x, std::int32_t y) const { return cells_[index(x, y)]; }
    std::size_t index(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

  private:
    std::int32_t width_;
    std::int32_t height_;
    std::vector<Cell> cells_;
};

struct Position {
    std::int32_t x;
    std::int32_t y;
};

constexpr std::array<Position, 4> sides{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};

std::uint8_t* pixelRow(GreyPicture& picture, std::int32_t y) {
    return reinterpret_cast<std::uint8_t*>(picture.pixels.data()) +
           static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width);
}

struct Range {
    int lowest = 255;
    int highest = 0;
};

/// Finds which cells are plain, and their levels, for one row of cells.
void measureCells(GreyPicture& picture, Grid& grid, std::int32_t cellY,
                  std::vector<Range>& ranges) {
    std::fill(ranges.begin(), ranges.end(), Range());
    const auto bottom = std::min(picture.size.height, (cellY + 1) * cellSide);
    for (std::int32_t y = cellY * cellSide; y < bottom; ++y) {
        const auto* pixels = pixelRow(picture, y);
        for (std::int32_t x = 0; x < picture.size.width; ++x) {
            auto& range = ranges[static_cast<std::size_t>(x / cellSide)];
            range.lowest = std::min<int>(range.lowest, pixels[x]);
            range.highest = std::max<int>(range.highest, pixels[x]);
        }
    }
    for (std::int32_t x = 0; x < grid.width(); ++x) {
        const auto& range = ranges[static_cast<std::size_t>(x)];
        grid.at(x, cellY).level = static_cast<std::uint8_t>((range.lowest + range.highest) / 2);
        grid.at(x, cellY).isPlain = range.highest - range.lowest <= tolerance;
    }
}

/// Finds areas of plain cells that lie side by side, and keeps those that text may stand on.
class AreaFinder {
  public:
    explicit AreaFinder(Grid& grid) : grid_(grid), isSeen_(grid.count()) {}

    /// Returns how many cells the areas have.
    std::size_t find() {
        std::size_t found = 0;
        for (std::int32_t y = 0; y < grid_.height(); ++y)
            for (std::int32_t x = 0; x < grid_.width(); ++x)
                if (grid_.at(x, y).isPlain && !isSeen_[grid_.index(x, y)] && fill({x, y}))
                    found += area_.size();
        return found;
    }

  private:
    bool fill(Position start) {
        area_.assign(1, start);
        isSeen_[grid_.index(start.x, start.y)] = true;
        Position least = start, most = start;
        for (std::size_t next = 0; next < area_.size(); ++next) {
            const auto cell = area_[next];
            least = {std::min(least.x, cell.x), std::min(least.y, cell.y)};
            most = {std::max(most.x, cell.x), std::max(most.y, cell.y)};
            for (const auto side : sides) reach(cell, {cell.x + side.x, cell.y + side.y});
        }
        if (!canHoldText(most.x - least.x + 1, most.y - least.y + 1)) return false;
        for (const auto cell : area_) grid_.at(cell.x, cell.y).distance = 0;
        return true;
    }

    void reach(Position from, Position to) {
        if (!grid_.contains(to.x, to.y) || isSeen_[grid_.index(to.x, to.y)]) return;
        const auto& cell = grid_.at(to.x, to.y);
        if (!cell.isPlain || std::abs(cell.level - grid_.at(from.x, from.y).level) > tolerance)
            return;
        isSeen_[grid_.index(to.x, to.y)] = true;
        area_.push_back(to);
    }

    bool canHoldText(std::int32_t width, std::int32_t height) const {
        const bool isBar = height >= leastBarHeight && width >= wideAspect * height;
        const auto room = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        const bool isPanel =
            std::min(width, height) >= leastPanelSide && area_.size() * leastPanelShare >= room;
        const bool isLarge =
            std::max(width, height) * largeShare >= std::max(grid_.width(), grid_.height());
        return isBar || isPanel || isLarge;
    }

    Grid& grid_;
    std::vector<bool> isSeen_;
    std::vector<Position> area_;
};

void takeLevelFrom(Grid& grid, Position cell, Position other, std::int32_t steps) {
    if (!grid.contains(other.x, other.y)) return;
    const auto& from = grid.at(other.x, other.y);
    auto& to = grid.at(cell.x, cell.y);
    if (from.distance + steps < to.distance) {
        to.distance = from.distance + steps;
        to.level = from.level;
    }
}

/// Gives the cells outside the areas the level of the nearest, by two sweeps over the grid.
void spreadLevels(Grid& grid) {
    constexpr std::int32_t straight = 2, oblique = 3;
    for (std::int32_t y = 0; y < grid.height(); ++y)
        for (std::int32_t x = 0; x < grid.width(); ++x) {
            takeLevelFrom(grid, {x, y}, {x - 1, y}, straight);
            takeLevelFrom(grid, {x, y}, {x - 1, y - 1}, oblique);
            takeLevelFrom(grid, {x, y}, {x, y - 1}, straight);
            takeLevelFrom(grid, {x, y}, {x + 1, y - 1}, oblique);
        }
    for (std::int32_t y = grid.height() - 1; y >= 0; --y)
        for (std::int32_t x = grid.width() - 1; x >= 0; --x) {
            takeLevelFrom(grid, {x, y}, {x + 1, y}, straight);
            takeLevelFrom(grid, {x, y}, {x + 1, y + 1}, oblique);
            takeLevelFrom(grid, {x, y}, {x, y + 1}, straight);
            takeLevelFrom(grid, {x, y}, {x - 1, y + 1}, oblique);
        }
}

/// What a pixel of a cell may stand on: the nearest area, and at an edge those beside it.
struct Grounds {
    std::array<int, 1 + sides.size()> levels{};
    std::size_t count = 0;

    void add(int level) {
        const auto end = levels.begin() + static_cast<std::ptrdiff_t>(count);
        const auto isSame = [&](int other) { return std::abs(other - level) <= tolerance; };
        if (std::none_of(levels.begin(), end, isSame)) levels[count++] = level;
    }

    int contrast(int level) const {
        int least = 255;
        for (std::size_t i = 0; i < count; ++i)
            least = std::min(least, std::abs(level - levels[i]));
        return least;
    }
};

Grounds groundsOf(const Grid& grid, Position cell) {
    Grounds grounds;
    grounds.add(grid.at(cell.x, cell.y).level);
    if (grid.at(cell.x, cell.y).distance > 0)
        for (const auto side : sides)
            if (const Position other{cell.x + side.x, cell.y + side.y};
                grid.contains(other.x, other.y) && grid.at(other.x, other.y).distance == 0)
                grounds.add(grid.at(other.x, other.y).level);
    return grounds;
}

void evenOutCell(GreyPicture& picture, Position cell, const Grounds& grounds) {
    const auto bottom = std::min(picture.size.height, (cell.y + 1) * cellSide);
    const auto right = std::min(picture.size.width, (cell.x + 1) * cellSide);
    for (std::int32_t y = cell.y * cellSide; y < bottom; ++y) {
        auto* pixels = pixelRow(picture, y);
        for (std::int32_t x = cell.x * cellSide; x < right; ++x) {
            const int dark = grounds.contrast(pixels[x]) * gainNumerator / gainDenominator;
            pixels[x] = static_cast<std::uint8_t>(255 - std::min(255, dark));
        }
    }
}

}  // namespace

bool evenOutPlainAreas(GreyPicture& picture) {
    Grid grid(picture.size);
    std::vector<Range> ranges(static_cast<std::size_t>(grid.width()));
    for (std::int32_t y = 0; y < grid.height(); ++y) measureCells(picture, grid, y, ranges);
    const auto plainCells = AreaFinder(grid).find();
    if (static_cast<double>(plainCells) < leastPlainShare * static_cast<double>(grid.count()))
        return false;
    spreadLevels(grid);
    for (std::int32_t y = 0; y < grid.height(); ++y)
        for (std::int32_t x = 0; x < grid.width(); ++x)
            evenOutCell(picture, {x, y}, groundsOf(grid, {x, y}));
    return true;
}

}  // namespace nookwise
