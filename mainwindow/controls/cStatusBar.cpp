#include "mainwindow/controls/cStatusBar.h"

#include "mainwindow/icons/Icons.h"

#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace mainwindow {

namespace {
// Pixels; margins are those of both sides together.
constexpr int kProgressWidth = 160;
constexpr int kDoingIndent = 6;
constexpr int kProgressMargins = 6, kSavedMargins = 8, kZoomMargins = 16;
constexpr int kIconSide = 16;

QString SavedText(bool unsaved) {
    return unsaved ? cStatusBar::tr("Unsaved changes") : cStatusBar::tr("All saved");
}
} // namespace

cStatusBar::cStatusBar(QWidget *parent)
    : QStatusBar(parent),
      doing_(new QLabel(this)),
      progress_(new QWidget(this)),
      selection_(new QLabel(this)),
      saved_(new QLabel(this)) {
    AddDoing();
    AddPutBack();
    AddProgress();
    selection_->setTextFormat(Qt::PlainText);
    addPermanentWidget(selection_);
    AddSaved();
    AddHidden();
    AddZoom();
}

void cStatusBar::AddDoing() {
    doing_->setObjectName(QStringLiteral("DOING"));
    doing_->setTextFormat(Qt::PlainText);
    doing_->setMinimumWidth(1); // a long text is cut off rather than widening the window
    doing_->setIndent(kDoingIndent);
    addWidget(doing_, 1);
}

void cStatusBar::AddPutBack() {
    putBack_ = AddButton(QStringLiteral("undo"), tr("Gives it look and text as before"));
    putBack_->setObjectName(QStringLiteral("PUTBACK"));
    putBack_->setText(tr("Put &back"));
    putBack_->setAccessibleName(tr("Put back"));
    putBack_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    putBack_->setAutoRaise(false);
    putBack_->hide();
    connect(putBack_, &QToolButton::clicked, this, &cStatusBar::PutBackClicked);
}

void cStatusBar::AddProgress() {
    progress_->setObjectName(QStringLiteral("PROGRESS"));
    progress_->setFixedWidth(kProgressWidth);
    progress_->setMinimumHeight(fontMetrics().height() + kProgressMargins);
    addPermanentWidget(progress_);
}

void cStatusBar::AddSaved() {
    saved_->setObjectName(QStringLiteral("SAVED"));
    saved_->setMinimumWidth(fontMetrics().horizontalAdvance(SavedText(true)) + kSavedMargins);
    saved_->setAlignment(Qt::AlignCenter);
    addPermanentWidget(saved_);
    SetUnsaved(false);
}

void cStatusBar::AddHidden() {
    hidden_ = AddButton(QStringLiteral("filter"), tr("Hidden by the filter"));
    hidden_->setObjectName(QStringLiteral("HIDDEN"));
    hidden_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    hidden_->setAutoRaise(false);
    hidden_->hide();
    connect(hidden_, &QToolButton::clicked, this, &cStatusBar::HiddenClicked);
}

void cStatusBar::AddZoom() {
    QToolButton *out = AddButton(QStringLiteral("zoomout"), tr("Zoom out"));
    zoom_ = AddButton(QString(), tr("Zoom"));
    zoom_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    zoom_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("10000 %")) + kZoomMargins);
    QToolButton *in = AddButton(QStringLiteral("zoomin"), tr("Zoom in"));
    connect(out, &QToolButton::clicked, this, &cStatusBar::ZoomOut);
    connect(zoom_, &QToolButton::clicked, this, &cStatusBar::PopUpZoomMenu);
    connect(in, &QToolButton::clicked, this, &cStatusBar::ZoomIn);
    SetZoom(100);
}

QToolButton *cStatusBar::AddButton(const QString &image, const QString &name) {
    auto *button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setIcon(Icon(image));
    button->setIconSize(QSize(kIconSide, kIconSide));
    button->setToolTip(name);
    button->setAccessibleName(name);
    addPermanentWidget(button);
    return button;
}

QWidget *cStatusBar::Panel(const QString &key) const {
    if (key == doing_->objectName()) return doing_;
    if (key == progress_->objectName()) return progress_;
    return nullptr;
}

void cStatusBar::SetDoing(const QString &text) { doing_->setText(text); }
QString cStatusBar::Doing() const { return doing_->text(); }
void cStatusBar::SetSelection(const QString &text) { selection_->setText(text); }
void cStatusBar::SetHidden(const QString &text) {
    hidden_->setText(text);
    hidden_->setAccessibleName(text);
    hidden_->setVisible(!text.isEmpty());
}
void cStatusBar::OfferPutBack(bool on) { putBack_->setVisible(on); }
void cStatusBar::SetUnsaved(bool unsaved) {
    saved_->setText(SavedText(unsaved));
    saved_->setAccessibleName(SavedText(unsaved));
}
void cStatusBar::SetZoom(double percent) { zoom_->setText(tr("%1 %").arg(qRound(percent))); }
void cStatusBar::SetZoomMenu(QMenu *menu) { zoomMenu_ = menu; }

// Above the button: below it is the edge of the window.
void cStatusBar::PopUpZoomMenu() {
    if (!zoomMenu_) return;
    zoomMenu_->popup(zoom_->mapToGlobal(QPoint(0, -zoomMenu_->sizeHint().height())));
}

} // namespace mainwindow
