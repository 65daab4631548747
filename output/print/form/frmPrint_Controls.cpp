#include "output/print/form/frmPrint.h"
#include "output/print/form/PreviewSheets.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace print {

struct frmPrint::Row {
    const char *key;
    const char *tip;
    const char *name; // for those without a tip: what it is called
    const char *image;
    bool separatorBefore;
};

namespace {

constexpr int kNumbers = 10;                      // of DOWN and WIDE
constexpr int kZoomStep = 10, kLargestZoom = 200; // per cent

} // namespace

void frmPrint::BuildToolbar() {
    static constexpr Row kRows[] = {
        {"PRINT", QT_TR_NOOP("Print"), "", "print", false},
        {"PORTRAIT", QT_TR_NOOP("Portrait"), "", "portrait", true},
        {"LANDSCAPE", QT_TR_NOOP("Landscape"), "", "landscape", false},
        {"PRIOR", QT_TR_NOOP("Previous Page"), "", "prior", true},
        {"NEXT", QT_TR_NOOP("Next Page"), "", "next", false},
        {"FIT", QT_TR_NOOP("Fit to one page"), "", "fitpage", true},
        {"DOWN", "", QT_TR_NOOP("Pages down"), "pagesdown", false},
        {"WIDE", "", QT_TR_NOOP("Pages across"), "pageswide", false},
    };
    tlbPint_ = addToolBar(tr("Preview"));
    tlbPint_->setObjectName(QStringLiteral("tlbPint"));
    tlbPint_->setMovable(false);
    tlbPint_->setIconSize({20, 20});
    for (const Row &row : kRows) AddButton(row);
    auto *group = new QActionGroup(this);
    for (const char *key : {"PORTRAIT", "LANDSCAPE"}) group->addAction(buttons_[QLatin1String(key)]);
    BuildZoom();
}

void frmPrint::AddButton(const Row &row) {
    const QString key = QLatin1String(row.key);
    if (row.separatorBefore) tlbPint_->addSeparator();
    const bool hasTip = *row.tip != '\0';
    auto *button = new QAction(tr(hasTip ? row.tip : row.name), this);
    button->setObjectName(key);
    button->setIcon(argument_.icon(QLatin1String(row.image)));
    const QStringList pressed{QStringLiteral("PORTRAIT"), QStringLiteral("LANDSCAPE"), QStringLiteral("FIT")};
    button->setCheckable(pressed.contains(key));
    tlbPint_->addAction(button);
    buttons_.insert(key, button);
    if (!hasTip) AddNumbers(key, *button);
    connect(button, &QAction::triggered, this, [this, key] { tlbPint_ButtonClick(key); });
}

void frmPrint::AddNumbers(const QString &key, QAction &button) {
    auto *menu = new QMenu(this);
    for (int number = 1; number <= kNumbers; ++number) {
        QAction *entry = menu->addAction(QString::number(number));
        entry->setData(number);
        connect(entry, &QAction::triggered, this,
                [this, key, number] { tlbPint_ButtonMenuClick(key, number); });
    }
    button.setMenu(menu);
    auto *tool = qobject_cast<QToolButton *>(tlbPint_->widgetForAction(&button));
    if (!tool) return;
    tool->setPopupMode(QToolButton::MenuButtonPopup);
    tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

void frmPrint::BuildZoom() {
    tlbPint_->addSeparator();
    auto *label = new QLabel(tr("Zoom:"), tlbPint_);
    label->setContentsMargins(4, 0, 4, 0);
    cboZoom_ = new QComboBox(tlbPint_);
    cboZoom_->setObjectName(QStringLiteral("cboZoom"));
    cboZoom_->setAccessibleName(tr("Zoom"));
    for (int zoom = kZoomStep; zoom <= kLargestZoom; zoom += kZoomStep)
        cboZoom_->addItem(QStringLiteral("%1%").arg(zoom), zoom);
    label->setBuddy(cboZoom_);
    tlbPint_->addWidget(label);
    tlbPint_->addWidget(cboZoom_);
    connect(cboZoom_, &QComboBox::activated, this, &frmPrint::cboZoom_Click);
}

void frmPrint::BuildStatus() {
    statusBar()->setObjectName(QStringLiteral("staPrint"));
    for (const char *name : {"PAGE", "VPAGE", "HPAGE"}) {
        auto *panel = new QLabel(this);
        panel->setObjectName(QLatin1String(name));
        panel->setContentsMargins(6, 0, 6, 0);
        statusBar()->addPermanentWidget(panel);
        panels_.insert(QLatin1String(name), panel);
    }
}

void frmPrint::BuildKeys() {
    buttons_[QStringLiteral("PRINT")]->setShortcut(QKeySequence::Print);
    for (const QKeySequence &keys : {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
}

} // namespace print
