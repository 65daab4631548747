#include "widgets/ShapeGrid.h"

#include "widgets/ShapeNames.h"

#include <algorithm>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace widgets {

namespace {

constexpr int kMargin = 6;
constexpr int kColumns = 6; // of pictures, where there is room

// The name of a shape may be wider than the grid.
class NameLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
};

} // namespace

bool HasWords(const QString &name, const QString &words) {
    const QString joined = QString(name).remove(u' ');
    const QStringList each = words.split(u' ', Qt::SkipEmptyParts);
    return std::all_of(each.begin(), each.end(),
                       [&](const QString &word) { return joined.contains(word, Qt::CaseInsensitive); });
}

ShapeGrid::ShapeGrid(QWidget *parent)
    : QWidget(parent), words_(new QLineEdit(this)), list_(new ShapeList(this)), name_(new NameLabel(this)) {
    words_->setObjectName(QStringLiteral("ShapeWords"));
    words_->setPlaceholderText(tr("Search shapes"));
    words_->setAccessibleName(tr("Search shapes"));
    words_->setClearButtonEnabled(true);
    words_->installEventFilter(this);
    name_->setObjectName(QStringLiteral("ShapeName"));
    name_->setAlignment(Qt::AlignCenter);
    name_->setText(QStringLiteral(" ")); // its height stays
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(words_);
    column->addWidget(list_, 1);
    column->addWidget(name_);
    connect(words_, &QLineEdit::textChanged, this, &ShapeGrid::Fill);
    connect(list_, &ShapeList::Picked, this, &ShapeGrid::Pick);
    connect(list_, &ShapeList::Pointed, this, &ShapeGrid::ShowName);
    connect(list_, &ShapeList::LeftUpwards, words_, qOverload<>(&QWidget::setFocus));
    connect(list_, &ShapeList::Typed, this, [this](const QString &text) {
        words_->setFocus();
        words_->insert(text);
    });
    Fill();
}

QSize ShapeGrid::sizeHint() const {
    const auto rows = [](std::size_t shapes) { return int(shapes + kColumns - 1) / kColumns; };
    const QSize pictures = list_->SizeOf(kColumns, rows(ShapeNames().size()) + rows(recent_.size()));
    const int headings = recent_.empty() ? 0 : 2 * list_->HeadingHeight();
    const int others = words_->sizeHint().height() + name_->sizeHint().height() + headings;
    return {pictures.width() + 2 * kMargin,
            pictures.height() + others + 2 * kMargin + 2 * layout()->spacing()};
}

void ShapeGrid::SetRecent(const std::vector<int> &shapes) {
    recent_.clear();
    for (const int shape : shapes)
        if (!ShapeCaption(shape).isEmpty()) recent_.push_back(shape);
    Fill();
}

void ShapeGrid::SetChosen(std::optional<int> shape) { list_->SetChosen(shape); }

void ShapeGrid::Begin() {
    words_->clear();
    if (const auto shape = list_->Chosen()) list_->GoTo(*shape);
    words_->setFocus(Qt::PopupFocusReason);
}

void ShapeGrid::Fill() {
    const QString words = words_->text();
    const bool searched = !words.trimmed().isEmpty();
    std::vector<int> found;
    for (const ShapeName &shape : ShapeNames())
        if (HasWords(shape.caption, words)) found.push_back(shape.value);
    std::vector<ShapeSection> sections;
    if (!searched && !recent_.empty()) sections.push_back({tr("Recently used"), recent_});
    sections.push_back({found.empty()                 ? tr("No such shape")
                        : recent_.empty() || searched ? QString()
                                                      : tr("All shapes"),
                        found});
    list_->SetSections(sections);
    if (searched) list_->GoToFirst();
}

void ShapeGrid::Pick(int shape) { Q_EMIT Chosen(shape); }

void ShapeGrid::ShowName(std::optional<int> shape) {
    const QString name = shape ? ShapeCaption(*shape) : QString();
    name_->setText(name.isEmpty() ? QStringLiteral(" ") : name);
}

bool ShapeGrid::eventFilter(QObject *watched, QEvent *event) {
    const bool comesOrGoes = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (comesOrGoes) list_->viewport()->update();
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Down) {
        if (!list_->Current()) list_->GoToFirst();
        list_->setFocus();
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return QWidget::eventFilter(watched, event);
    if (const auto shape = list_->Current()) Pick(*shape);
    return true;
}

// Takes the words away first.
void ShapeGrid::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Escape || words_->text().isEmpty()) return QWidget::keyPressEvent(event);
    words_->clear();
    words_->setFocus();
}

} // namespace widgets
