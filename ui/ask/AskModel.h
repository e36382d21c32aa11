// The question, how it is understood, and what answers it.
#pragma once

#include "ui/ask/AnswerModel.h"
#include "ui/ask/AskRows.h"
#include "ui/bridge/FileMenu.h"
#include "ui/bridge/ValueListModel.h"

#include <memory>

namespace nookwise {

class AskModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created by the application")
    /// As typed.
    Q_PROPERTY(QString question READ question WRITE setQuestion NOTIFY questionChanged)
    /// Nothing is asked.
    Q_PROPERTY(bool blank READ blank NOTIFY changed)
    Q_PROPERTY(bool found READ found NOTIFY changed)
    /// The filters that were understood: glyph, heading, label. At most a dozen.
    Q_PROPERTY(QAbstractListModel* filters READ filters CONSTANT)
    Q_PROPERTY(bool filtered READ filtered NOTIFY changed)
    /// "and 3 more" where there are more filters than are listed; else empty.
    Q_PROPERTY(QString moreFilters READ moreFilters NOTIFY changed)
    /// "Kind PDF, From Gmail".
    Q_PROPERTY(QString spokenFilters READ spokenFilters NOTIFY changed)
    /// What is looked for in names and texts, in lower case.
    Q_PROPERTY(QStringList words READ words NOTIFY changed)
    /// "“invoice” in name or text"; empty without words.
    Q_PROPERTY(QString wordsText READ wordsText NOTIFY changed)
    /// "6 results · names and text inside files and images".
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    /// -1 without results.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selected)
    Q_PROPERTY(nookwise::AnswerModel* selectedFile READ selectedFile CONSTANT)
    /// What can be done with the selected file.
    Q_PROPERTY(nookwise::FileMenu* menu READ menu CONSTANT)

  public:
    /// So many answers, the newest, are shown at first, and so many times more each time that their
    /// end is looked at.
    static constexpr std::size_t firstShown = 500;
    static constexpr std::size_t growth = 4;

    AskModel(AppStore& store, const Platform& platform);

    QString question() const;
    void setQuestion(const QString& question);
    bool blank() const { return question().trimmed().isEmpty(); }
    bool found() const { return rows_.rowCount() > 0; }
    QAbstractListModel* filters() { return &filters_; }
    bool filtered() const { return !query_.filters.empty(); }
    QString moreFilters() const;
    QString spokenFilters() const;
    QStringList words() const;
    QString wordsText() const;
    QString countText() const;
    QAbstractListModel* rows() { return &rows_; }
    int selectedRow() const { return selectedRow_; }
    AnswerModel* selectedFile() { return &file_; }
    FileMenu* menu() { return &menu_; }

    /// Takes the words that made the filter out of the question.
    Q_INVOKABLE void removeFilter(int row);
    /// Selects the row, or the nearest one there is.
    Q_INVOKABLE void select(int row);
    /// Shows more answers in a moment, if there are more. May be called from inside a layout of the
    /// list.
    Q_INVOKABLE void showMore();
    /// Where a row of the answers before is now, or the nearest one that stayed; -1 if none did.
    Q_INVOKABLE int rowAfterReplacement(int row) const { return rows_.rowAfterReplacement(row); }
    /// A name, or a part of one, with the words marked, as markup.
    Q_INVOKABLE static QString marked(const QString& name, const QStringList& words);
    /// Asks from anywhere in the window.
    Q_INVOKABLE void askFor(const QString& question);

  signals:
    void questionChanged();
    void changed();
    /// Another row, or another file in it.
    void selected();
    /// The rows are about to become others.
    void aboutToAnswer();
    /// The question was answered, or answered anew.
    void answered();

  private:
    /// Who selected the row: without the user it is the first, whichever that becomes.
    enum class Selection { automatic, chosen };
    struct Filter {
        QString icon;
        QString heading;
        QString label;

        friend bool operator==(const Filter&, const Filter&) = default;
    };

    bool isShown() const { return store_.section.get() == AppSection::search; }
    void ask();
    void answer();
    /// What is asked of has changed.
    void answerSoon();
    void answerWithTexts();
    void answerAfter(std::chrono::milliseconds delay);
    void answerWhenShown();
    /// The answers are no longer those to the question.
    void becomeStale();
    void showFilters();
    /// Looks at the row, or at nothing where there is no such row.
    void lookAt(int row);
    /// Ages and days go on by themselves.
    void keepTrue();

    AppStore& store_;
    Platform platform_;
    ParsedQuery query_;
    std::size_t limit_ = firstShown;
    /// Asked while nobody saw the answers.
    bool stale_ = false;
    AskRows rows_;
    ValueListModel<Filter> filters_;
    AnswerModel file_;
    FileMenu menu_;
    int selectedRow_ = -1;
    Selection selection_ = Selection::automatic;
    /// When the question was answered.
    Date now_{};
    std::unique_ptr<Tasks::Delay> soon_;
    std::unique_ptr<Tasks::Delay> nextMinute_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace nookwise
