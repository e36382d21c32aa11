#include "ui/ask/AskModel.h"

#include "platform/Clock.h"
#include "platform/Text.h"
#include "platform/UserFolders.h"
#include "search/QueryParser.h"
#include "search/QuestionText.h"
#include "ui/bridge/ShownText.h"

#include <algorithm>

namespace nookwise {

namespace {

constexpr std::size_t mostFilters = 12;
constexpr std::size_t longestWords = 80;
constexpr std::chrono::milliseconds pause{50};
/// Texts come in by the batch for many minutes, a few milliseconds apart.
constexpr std::chrono::milliseconds pauseOfTexts{250};
/// Many answers take longer, and hardly change by the few texts of a batch.
constexpr std::chrono::milliseconds pauseOfMany{1'000};
constexpr std::size_t many = 10'000;

struct FilterGlyph {
    QString operator()(const QueryFilter::Exts&) const { return QStringLiteral("kind"); }
    QString operator()(const QueryFilter::Screenshots&) const { return QStringLiteral("kind"); }
    QString operator()(const QueryFilter::Dates&) const { return QStringLiteral("sort-date"); }
    QString operator()(const QueryFilter::Larger&) const { return QStringLiteral("large"); }
    QString operator()(const QueryFilter::Smaller&) const { return QStringLiteral("large"); }
    QString operator()(const QueryFilter::Source&) const { return QStringLiteral("from"); }
};

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) {
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

}  // namespace

AskModel::AskModel(AppStore& store, const Platform& platform)
    : store_(store),
      platform_(platform),
      rows_(platform.folders.home(),
            [&store](const FileUrl& url, const std::vector<std::string>& words) {
                return store.snippet(url, words);
            }),
      filters_({{"glyph", [](const Filter& filter) { return filter.icon; }},
                {"heading", [](const Filter& filter) { return filter.heading; }},
                {"label", [](const Filter& filter) { return filter.label; }}}),
      file_(store, platform),
      menu_(store, platform, "Ask") {
    const auto watch = [this](auto& field, auto whenChanged) {
        subscriptions_.push_back(field.observe([this, whenChanged] { (this->*whenChanged)(); }));
    };
    watch(store.searchText, &AskModel::ask);
    watch(store.files, &AskModel::answerSoon);
    watch(store.texts, &AskModel::answerWithTexts);
    watch(store.lowerTexts, &AskModel::answerWithTexts);
    watch(store.sources, &AskModel::answerWithTexts);
    watch(store.section, &AskModel::answerWhenShown);
    watch(store.phase, &AskModel::becomeStale);
    ask();
    keepTrue();
}

QString AskModel::question() const {
    return shown(store_.searchText.get());
}

void AskModel::setQuestion(const QString& question) {
    store_.searchText.set(question.toStdString());
}

QString AskModel::moreFilters() const {
    if (query_.filters.size() <= mostFilters) return {};
    const auto more = static_cast<std::int64_t>(query_.filters.size() - mostFilters);
    return QStringLiteral("and ") + shownCount(more) + QStringLiteral(" more");
}

QString AskModel::spokenFilters() const {
    QStringList spoken;
    for (const Filter& filter : filters_.rows()) spoken += filter.heading + u' ' + filter.label;
    return spoken.join(QStringLiteral(", "));
}

QStringList AskModel::words() const {
    QStringList words;
    for (const std::string& word : query_.words) words += shown(word);
    return words;
}

QString AskModel::wordsText() const {
    if (query_.words.empty()) return {};
    const std::string words = joined(query_.words);
    const std::string_view begin = firstCharacters(words, longestWords);
    const QString rest = begin.size() < words.size() ? QStringLiteral("…") : QString();
    return u'“' + shownName(begin) + rest + QStringLiteral("” in name or text");
}

QString AskModel::countText() const {
    const auto count = static_cast<std::int64_t>(rows_.rowCount());
    QString text;
    if (rows_.areCut()) {
        text = QStringLiteral("The newest %1 results").arg(shownCount(count));
    } else {
        text = count == 1 ? QStringLiteral("1 result")
                          : shownCount(count) + QStringLiteral(" results");
    }
    return text + QStringLiteral(" · names and text inside files and images");
}

void AskModel::removeFilter(int row) {
    const auto position = static_cast<std::size_t>(row);
    if (row < 0 || position >= query_.filters.size()) return;
    store_.searchText.set(removePhrase(store_.searchText.get(), query_.filters[position]));
}

void AskModel::select(int row) {
    selection_ = Selection::chosen;
    lookAt(std::clamp(row, 0, std::max(rows_.rowCount() - 1, 0)));
}

void AskModel::showMore() {
    const bool coming = limit_ > static_cast<std::size_t>(rows_.rowCount());
    if (!rows_.areCut() || coming) return;
    limit_ *= growth;
    answerAfter({});
}

QString AskModel::marked(const QString& name, const QStringList& words) {
    std::vector<std::string> bytes;
    for (const QString& word : words) bytes.push_back(word.toStdString());
    return markedText(name.toStdString(), bytes).markup;
}

void AskModel::askFor(const QString& question) {
    setQuestion(question);
    store_.section.set(AppSection::search);
}

void AskModel::ask() {
    selection_ = Selection::automatic;
    limit_ = firstShown;
    becomeStale();
    emit questionChanged();
}

void AskModel::answer() {
    soon_.reset();
    stale_ = false;
    now_ = platform_.clock.now();
    query_ = QueryParser::parse(store_.searchText.get(), now_);
    emit aboutToAnswer();
    rows_.setFiles(store_.answers(query_, limit_ + 1), limit_, query_.words, now_);
    showFilters();
    const bool chosen = selection_ == Selection::chosen;
    lookAt(chosen ? std::max(rowAfterReplacement(selectedRow_), 0) : 0);
    emit changed();
    emit answered();
}

void AskModel::answerSoon() {
    answerAfter(pause);
}

void AskModel::answerWithTexts() {
    if (!soon_ || !isShown()) answerAfter(limit_ > many ? pauseOfMany : pauseOfTexts);
}

void AskModel::answerAfter(std::chrono::milliseconds delay) {
    if (!isShown()) return becomeStale();
    soon_ = platform_.tasks.after(delay, [this] { answer(); });
}

void AskModel::answerWhenShown() {
    if (isShown() && stale_) answer();
}

void AskModel::becomeStale() {
    stale_ = true;
    answerWhenShown();
}

void AskModel::showFilters() {
    std::vector<Filter> rows;
    for (const QueryFilter& filter : query_.filters) {
        if (rows.size() == mostFilters) break;
        rows.push_back(
            {std::visit(FilterGlyph(), filter.rule), shown(filter.title), shown(filter.label)});
    }
    filters_.setRows(std::move(rows));
}

void AskModel::lookAt(int row) {
    const auto& files = rows_.files();
    const auto position = static_cast<std::size_t>(row);
    const bool there = position < files.size();
    selectedRow_ = there ? row : -1;
    if (!there) selection_ = Selection::automatic;
    // As of the answers, so that it tells the same age as the row.
    file_.look(there ? std::optional(files[position]) : std::nullopt, query_.words, now_);
    menu_.setFiles(there ? std::vector{files[position]} : std::vector<FileItem>());
    emit selected();
}

void AskModel::keepTrue() {
    nextMinute_ = platform_.tasks.after(std::chrono::minutes(1), [this] {
        becomeStale();
        keepTrue();
    });
}

}  // namespace nookwise
