#include "ui/window/SidebarModel.h"

#include "ui/bridge/ShownText.h"

#include <array>

namespace nookwise {

namespace {

QString noCount(const PilesModel&) {
    return {};
}

QString sweepCount(const PilesModel& piles) {
    return piles.total() > 0 ? shownBytes(piles.total()) : QString();
}

QString duplicatesCount(const PilesModel& piles) {
    return piles.duplicateCopies() > 0 ? shownCount(piles.duplicateCopies()) : QString();
}

struct SectionEntry {
    const AppSection& section;
    const char* key;
    const char* label;
    const char* icon;
    const char* group;
    const char* shortcut;
    QString (*count)(const PilesModel&);
};

const std::array entries{
    SectionEntry{AppSection::home, "home", "Home", "home", "", "Ctrl+1", noCount},
    SectionEntry{AppSection::search, "ask", "Ask", "ask", "", "Ctrl+F", noCount},
    SectionEntry{AppSection::sweep, "sweep", "Sweep", "sweep", "Clean up", "Ctrl+3", sweepCount},
    SectionEntry{AppSection::duplicates, "duplicates", "Duplicates", "duplicates", "Clean up",
                 "Ctrl+4", duplicatesCount},
    SectionEntry{AppSection::activity, "activity", "Activity", "activity", "Clean up", "Ctrl+5",
                 noCount},
    SectionEntry{AppSection::split, "split", "Split view", "split", "Folders", "Ctrl+\\", noCount},
};

}  // namespace

SidebarModel::SidebarModel(AppStore& store, const PilesModel& piles)
    : store_(store),
      piles_(piles),
      rows_({{"key", [](const Entry& entry) { return entry.key; }},
             {"label", [](const Entry& entry) { return entry.label; }},
             {"glyph", [](const Entry& entry) { return entry.icon; }},
             {"heading", [](const Entry& entry) { return entry.heading; }},
             {"shortcut", [](const Entry& entry) { return entry.shortcut; }},
             {"count", [](const Entry& entry) { return entry.count; }},
             {"current", [](const Entry& entry) { return entry.current; }}}),
      section_(store.section.observe([this] {
          refresh();
          emit sectionChanged();
      })) {
    connect(&piles, &PilesModel::changed, this, &SidebarModel::refresh);
    refresh();
}

QString SidebarModel::section() const {
    for (const SectionEntry& entry : entries) {
        if (entry.section == store_.section.get()) return QString::fromLatin1(entry.key);
    }
    return {};
}

void SidebarModel::open(const QString& key) {
    for (const SectionEntry& entry : entries) {
        if (key == QLatin1StringView(entry.key)) store_.section.set(entry.section);
    }
    // They lie over the section, which may be the one that is shown already.
    store_.renameFiles.set(std::nullopt);
}

void SidebarModel::openRow(int row) {
    if (row >= 0 && row < rows_.rowCount()) open(rows_.rows()[static_cast<std::size_t>(row)].key);
}

void SidebarModel::refresh() {
    std::vector<Entry> rows;
    std::string_view group;
    for (const SectionEntry& entry : entries) {
        const bool groupBegins = group != entry.group;
        group = entry.group;
        rows.push_back({QString::fromLatin1(entry.key), QString::fromLatin1(entry.label),
                        QString::fromLatin1(entry.icon),
                        groupBegins ? QString::fromLatin1(entry.group) : QString(),
                        QString::fromLatin1(entry.shortcut), entry.count(piles_),
                        entry.section == store_.section.get()});
    }
    rows_.setRows(std::move(rows));
}

}  // namespace nookwise
