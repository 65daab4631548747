#include "mainwindow/menus/CommandSearch.h"

#include "mainwindow/menus/CommandMatch.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <utility>

namespace mainwindow {

namespace {

constexpr int kSpareCharacters = 8; // in the box, beside its own text
constexpr int kMostOffered = 12;    // without scrolling
constexpr int kIconSide = 16;       // pixels
constexpr int kGap = 24;            // pixels between a caption and its keys
constexpr int kEntryRole = Qt::UserRole, kKeysRole = Qt::UserRole + 1;

QString Shown(const SearchEntry &entry) {
    return entry.place.isEmpty() ? entry.caption : entry.place + QStringLiteral(" \u203a ") + entry.caption;
}

// In the place of an icon, so that captions stand below each other.
QIcon NoIcon() {
    QPixmap blank(kIconSide, kIconSide);
    blank.fill(Qt::transparent);
    return blank;
}

// A row with its keys at the right end.
class KeysDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int keys = option.fontMetrics.horizontalAdvance(index.data(kKeysRole).toString());
        return {size.width() + keys + 2 * kGap, size.height() + 4};
    }
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const bool selected = option.state & QStyle::State_Selected;
        const bool enabled = index.flags() & Qt::ItemIsEnabled;
        painter->save();
        painter->setPen(option.palette.color(enabled ? QPalette::Normal : QPalette::Disabled,
                                             selected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect.adjusted(0, 0, -kGap / 3, 0), Qt::AlignRight | Qt::AlignVCenter,
                          index.data(kKeysRole).toString());
        painter->restore();
    }
};

} // namespace

CommandSearch::CommandSearch(Source source, QWidget *parent)
    : QLineEdit(parent), source_(std::move(source)), offered_(new QStandardItemModel(this)) {
    setObjectName(QStringLiteral("CommandSearch"));
    setPlaceholderText(tr("Search commands (Ctrl+Shift+P)"));
    setAccessibleName(tr("Search commands"));
    setToolTip(tr("Finds a command by its words; Enter runs it"));
    setClearButtonEnabled(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QLineEdit::textEdited, this, &CommandSearch::Offer);
    connect(this, &QLineEdit::returnPressed, this, [this] { Run(0); });
}

QCompleter &CommandSearch::List() {
    if (list_) return *list_;
    list_ = new QCompleter(offered_, this);
    list_->setWidget(this);
    list_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    list_->setMaxVisibleItems(kMostOffered);
    list_->popup()->setIconSize(QSize(kIconSide, kIconSide));
    list_->popup()->setItemDelegate(new KeysDelegate(list_));
    list_->popup()->setAccessibleName(tr("Commands found"));
    connect(list_, qOverload<const QModelIndex &>(&QCompleter::activated), this, &CommandSearch::Choose);
    return *list_;
}

// Kept, as the menu bar asks often and measuring the text is slow.
QSize CommandSearch::sizeHint() const {
    if (hint_.isValid()) return hint_;
    const int text = fontMetrics().horizontalAdvance(placeholderText());
    hint_ = {text + fontMetrics().averageCharWidth() * kSpareCharacters, QLineEdit::sizeHint().height()};
    return hint_;
}

void CommandSearch::changeEvent(QEvent *event) {
    hint_ = QSize(); // font or style may differ
    QLineEdit::changeEvent(event);
}

QStringList CommandSearch::Offered() const {
    QStringList captions;
    for (int row = 0; row < offered_->rowCount(); ++row) captions << offered_->item(row)->text();
    return captions;
}

void CommandSearch::Begin() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll(); // also where it had the focus already
}

// Selects the words of the last search, so that the first letter typed replaces them.
void CommandSearch::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) return;
    selectAll();
    clickedInto_ = event->reason() == Qt::MouseFocusReason;
}

// The click that brings the focus places the cursor, which drops the selection: it is made again.
void CommandSearch::mouseReleaseEvent(QMouseEvent *event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(clickedInto_, false) && !hasSelectedText()) selectAll();
}

void CommandSearch::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return Leave();
    if (event->key() == Qt::Key_Down) return Offer();
    QLineEdit::keyPressEvent(event);
}

void CommandSearch::Offer() {
    entries_ = source_();
    std::vector<SearchTexts> texts;
    for (const SearchEntry &entry : entries_)
        texts.push_back({entry.caption, entry.place + u' ' + entry.words});
    offered_->clear();
    for (const int at : MatchingCommands(texts, text())) {
        const SearchEntry &entry = entries_[std::size_t(at)];
        auto *item = new QStandardItem(entry.icon.isNull() ? NoIcon() : entry.icon, Shown(entry));
        item->setEditable(false);
        item->setEnabled(entry.enabled);
        item->setToolTip(entry.words);
        item->setData(at, kEntryRole);
        item->setData(entry.keys, kKeysRole);
        item->setData(entry.keys.isEmpty() ? Shown(entry) : Shown(entry) + u' ' + entry.keys,
                      Qt::AccessibleTextRole);
        offered_->appendRow(item);
    }
    if (offered_->rowCount() == 0) return List().popup()->hide();
    const int width = qMax(this->width(), List().popup()->sizeHintForColumn(0) + kGap);
    List().complete(QRect(this->width() - width, 0, width, height()));
    List().popup()->setCurrentIndex(List().completionModel()->index(0, 0)); // which Enter runs
}

void CommandSearch::Choose(const QModelIndex &index) { Run(index.row()); }

void CommandSearch::Run(int row) {
    const QStandardItem *item = offered_->item(row);
    if (!item || !item->isEnabled() || text().trimmed().isEmpty()) return;
    const std::function<void()> run = entries_[std::size_t(item->data(kEntryRole).toInt())].run;
    Leave();
    run();
}

void CommandSearch::Leave() {
    if (list_) list_->popup()->hide();
    offered_->clear();
    clear();
    Q_EMIT Done();
}

} // namespace mainwindow
