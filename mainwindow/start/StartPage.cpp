#include "mainwindow/start/StartPage.h"

#include "mainwindow/icons/Icons.h"
#include "mainwindow/start/StartCard.h"
#include "mainwindow/start/StartTemplates.h"
#include "mainwindow/start/TileLayout.h"
#include "settings/Settings.h"

#include <algorithm>
#include <QBoxLayout>
#include <QCheckBox>
#include <QCoreApplication>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

namespace mainwindow {

namespace {

constexpr int kMargin = 28; // pixels, as all below
constexpr int kNarrowMargin = 16;
constexpr int kSpacing = 12;
constexpr int kBetweenColumns = 32;
constexpr int kWidest = 1240; // of what the page shows
constexpr int kNarrow = 620;  // below it the columns stand below each other
constexpr int kTemplateRows = 2;
constexpr double kTitleSize = 1.8, kHeadingSize = 1.15; // times the font's

constexpr char kFile[] = "file"; // property of a card

QString FileOf(const StartCard &card) { return card.property(kFile).toString(); }

// The distance in the direction of the arrow key, sideways counting double; negative for a card that doesn't
// lie in that direction.
int DistanceTo(const QRect &from, const QRect &to, int key) {
    const QPoint way = to.center() - from.center();
    const bool across = key == Qt::Key_Left || key == Qt::Key_Right;
    const int along = key == Qt::Key_Left || key == Qt::Key_Up ? (across ? -way.x() : -way.y())
                      : across                                 ? way.x()
                                                               : way.y();
    const bool inRow = across && from.top() < to.bottom() && to.top() < from.bottom();
    if (along <= 0 || (!across && std::abs(way.y()) < from.height() / 2)) return -1;
    return along + (inRow ? 0 : 2 * std::abs(across ? way.y() : way.x()));
}

QString NoteOf(const RecentMap &map) {
    switch (map.state) {
    case RecentMap::State::Gone:
        return StartPage::tr("Not there any more");
    case RecentMap::State::OnNetwork:
        return StartPage::tr("On another computer");
    default:
        return map.when;
    }
}

} // namespace

StartPage::StartPage(std::function<QWidget *()> below, QWidget *parent)
    : QScrollArea(parent), below_(std::move(below)), content_(new QWidget) {
    setObjectName(QStringLiteral("StartPage"));
    setAccessibleName(tr("Start page"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    Build();
    setWidget(content_);
    content_->setAutoFillBackground(true);
    content_->setBackgroundRole(QPalette::Window);
    content_->installEventFilter(this);
}

void StartPage::Build() {
    auto *page = new QVBoxLayout(content_);
    page->setSpacing(kSpacing);
    AddHeading(*page, settings::Terms().TITLE, kTitleSize);
    columns_ = new QBoxLayout(QBoxLayout::LeftToRight);
    columns_->setSpacing(kBetweenColumns);
    page->addLayout(columns_);
    auto *start = new QVBoxLayout, *recent = new QVBoxLayout;
    for (QBoxLayout *column : {start, recent}) column->setSpacing(kSpacing); // else that of columns_
    columns_->addLayout(start);
    columns_->addLayout(recent, 1);
    AddHeading(*start, tr("Start"), kHeadingSize);
    new_ = AddAction(*start, QStringLiteral("startNew"), settings::ReplaceTerms(QStringLiteral("New @MAP")),
                     tr("On an empty page"), QStringLiteral("new"));
    open_ =
        AddAction(*start, QStringLiteral("startOpen"), settings::ReplaceTerms(QStringLiteral("Open @MAP...")),
                  tr("From a file"), QStringLiteral("open"));
    connect(new_, &StartCard::clicked, this, &StartPage::NewAsked);
    connect(open_, &StartCard::clicked, this, &StartPage::OpenAsked);
    start->addStretch(1);
    AddHeading(*recent, settings::ReplaceTerms(QStringLiteral("Recent @MAPs")), kHeadingSize);
    noMaps_ = AddHeading(*recent, tr("What you open or save is listed here."), 1);
    recent->addLayout(maps_ = new TileLayout(kSpacing));
    recent->addStretch(1);
    templatesHeading_ = AddHeading(*page, tr("Templates"), kHeadingSize);
    templatesHeading_->hide();
    page->addLayout(templates_ = new TileLayout(kSpacing));
    page->addStretch(1);
    showsAtStart_ = new QCheckBox(tr("&Show this page in new windows"), content_);
    showsAtStart_->setObjectName(QStringLiteral("chkStartPage"));
    connect(showsAtStart_, &QCheckBox::clicked, this, &StartPage::ShowsAtStartAsked);
    page->addWidget(showsAtStart_, 0, Qt::AlignLeft);
}

QLabel *StartPage::AddHeading(QBoxLayout &layout, const QString &text, double size) {
    auto *label = new QLabel(text, content_);
    label->setTextFormat(Qt::PlainText);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont font = label->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * size);
    font.setBold(size == kHeadingSize);
    label->setFont(font);
    label->setWordWrap(size == 1);
    layout.addWidget(label);
    return label;
}

StartCard *StartPage::AddAction(QBoxLayout &layout, const QString &name, const QString &title,
                                const QString &note, const QString &icon) {
    auto *card = new StartCard({title, note, {}}, Icon(icon), {}, content_);
    card->setObjectName(name);
    connect(card, &StartCard::DraggedFrom, this,
            [this, card](const QPoint &press) { HandOver(*card, press, Qt::LeftButton); });
    layout.addWidget(card);
    return card;
}

void StartPage::AddTile(StartCard &card, TileLayout &layout, const QString &name, const QString &file) {
    card.setObjectName(name);
    card.setProperty(kFile, file);
    connect(&card, &StartCard::DraggedFrom, this,
            [this, &card](const QPoint &press) { HandOver(card, press, Qt::LeftButton); });
    layout.addWidget(&card);
    card.show();
}

StartCard *StartPage::AddMap(const RecentMap &map) {
    auto *card = new StartCard({map.name, NoteOf(map), map.path}, ProgramIcon(), kMapPicture, content_);
    AddTile(*card, *maps_, QStringLiteral("startMap"), map.path);
    card->MakeRemovable(tr("Take off the list"));
    if (map.state == RecentMap::State::Gone) card->SetGone();
    connect(card, &StartCard::clicked, this, [this, path = map.path] { Q_EMIT MapAsked(path); });
    connect(card, &StartCard::RemoveAsked, this, [this, path = map.path] { Q_EMIT RemoveAsked(path); });
    return card;
}

void StartPage::SetRecent(const std::vector<RecentMap> &maps) {
    for (const RecentMap &map : maps) mapCards_.push_back(AddMap(map));
    ShowWhetherAnyMap();
    OrderTabs();
}

void StartPage::SetTemplates(const std::vector<StartTemplate> &templates) {
    for (const StartTemplate &each : templates) {
        auto *card = new StartCard({each.caption, {}, each.file}, each.icon, kTemplatePicture, content_);
        AddTile(*card, *templates_, QStringLiteral("startTemplate"), each.file);
        connect(card, &StartCard::clicked, this, [this, file = each.file] { Q_EMIT TemplateAsked(file); });
        templateCards_.push_back(card);
    }
    templatesHeading_->setVisible(!templateCards_.empty());
    OrderTabs();
    FitWidth();
}

void StartPage::SetPicture(const QString &file, const QImage &picture) {
    for (const auto *cards : {&mapCards_, &templateCards_})
        for (StartCard *card : *cards)
            if (FileOf(*card) == file) card->SetPicture(picture);
}

void StartPage::RemoveMap(const QString &path) {
    const auto at = std::ranges::find_if(mapCards_, [&](StartCard *card) { return FileOf(*card) == path; });
    if (at == mapCards_.end()) return;
    StartCard *card = *at;
    const auto next = mapCards_.erase(at);
    StartCard *neighbour = next != mapCards_.end() ? *next : mapCards_.empty() ? open_ : mapCards_.back();
    if (card->hasFocus()) neighbour->setFocus(Qt::OtherFocusReason);
    card->hide();
    card->deleteLater(); // its button may be what was pressed
    ShowWhetherAnyMap();
}

void StartPage::ShowWhetherAnyMap() { noMaps_->setVisible(mapCards_.empty()); }

void StartPage::SetShowsAtStart(bool shows) { showsAtStart_->setChecked(shows); }

void StartPage::FocusFirst() { new_->setFocus(Qt::OtherFocusReason); }

std::vector<StartCard *> StartPage::Cards() const {
    std::vector<StartCard *> cards{new_, open_};
    cards.insert(cards.end(), mapCards_.begin(), mapCards_.end());
    for (StartCard *card : templateCards_)
        if (!card->isHidden()) cards.push_back(card);
    return cards;
}

void StartPage::OrderTabs() {
    std::vector<QWidget *> order{new_, open_};
    order.insert(order.end(), mapCards_.begin(), mapCards_.end());
    order.insert(order.end(), templateCards_.begin(), templateCards_.end());
    order.push_back(showsAtStart_);
    for (std::size_t at = 1; at < order.size(); ++at) setTabOrder(order[at - 1], order[at]);
}

void StartPage::resizeEvent(QResizeEvent *event) {
    FitWidth();
    QScrollArea::resizeEvent(event);
}

void StartPage::FitWidth() {
    const int width = viewport()->width();
    const bool narrow = width < kNarrow;
    const int margin = narrow ? kNarrowMargin : std::max(kMargin, (width - kWidest) / 2);
    content_->layout()->setContentsMargins(margin, kMargin / 2, margin, kMargin / 2);
    columns_->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    columns_->setSpacing(narrow ? kSpacing : kBetweenColumns);
    const int columns = templates_->ColumnsIn(width - 2 * margin);
    const int shown = kTemplateRows * columns;
    for (int at = 0; at < int(templateCards_.size()); ++at)
        templateCards_[std::size_t(at)]->setVisible(at < shown);
}

void StartPage::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return Q_EMIT Dismissed();
    const auto *card = qobject_cast<StartCard *>(focusWidget());
    const bool isArrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    if (card && isArrow) return FocusBeside(*card, event->key());
    QScrollArea::keyPressEvent(event);
}

void StartPage::FocusBeside(const StartCard &card, int key) {
    StartCard *best = nullptr;
    int shortest = -1;
    for (StartCard *other : Cards()) {
        const int way = DistanceTo(card.geometry(), other->geometry(), key);
        if (way < 0 || (best && way >= shortest)) continue;
        best = other;
        shortest = way;
    }
    if (!best) return;
    best->setFocus(Qt::TabFocusReason);
    ensureWidgetVisible(best, kMargin, kMargin);
}

// The page can't be hidden at once: the widget that was pressed gets the rest of the drag, and has to be
// shown for that, though out of sight.
void StartPage::HandOver(QWidget &grabber, const QPoint &at, Qt::MouseButton button) {
    handsOver_ = &grabber;
    grabber.installEventFilter(this);
    const QMouseEvent press(QEvent::MouseButtonPress, at, grabber.mapToGlobal(at), button, button, {});
    move(x(), -height());
    below_()->setFocus(Qt::MouseFocusReason);
    PassOn(press);
}

void StartPage::PassOn(const QMouseEvent &event) {
    QWidget *below = below_();
    const QPointF global = event.globalPosition();
    QMouseEvent passed(event.type(), below->mapFromGlobal(global), global, event.button(), event.buttons(),
                       event.modifiers(), event.pointingDevice());
    QCoreApplication::sendEvent(below, &passed);
}

bool StartPage::eventFilter(QObject *watched, QEvent *event) {
    const QEvent::Type type = event->type();
    const bool isMouse = type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
                         type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick;
    if (!isMouse) return QScrollArea::eventFilter(watched, event);
    auto &mouse = static_cast<QMouseEvent &>(*event);
    if (watched == handsOver_) {
        PassOn(mouse);
        if (type != QEvent::MouseButtonRelease || mouse.buttons() != Qt::NoButton) return true;
        handsOver_ = nullptr;
        Q_EMIT Dismissed();
        return true;
    }
    if (watched != content_ || type != QEvent::MouseButtonPress) return false;
    HandOver(*content_, mouse.position().toPoint(), mouse.button());
    return true;
}

} // namespace mainwindow
