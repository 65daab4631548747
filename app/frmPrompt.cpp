#include "app/frmPrompt.h"

#include "mainwindow/icons/Icons.h"
#include "mainwindow/start/StartupSetting.h"
#include "settings/Settings.h"
#include "support/Error.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace app {

namespace {
constexpr int kIconSide = 48;
}

frmPrompt::frmPrompt(StartupOffer &offer, QWidget *parent)
    : QDialog(parent),
      offer_(offer),
      lbl_(new QLabel(this)),
      cmdYes_(new QPushButton(tr("&Yes"), this)),
      cmdNo_(new QPushButton(tr("&No"), this)),
      chkNotAgain_(new QCheckBox(tr("&Do not ask again"), this)) {
    setObjectName(QLatin1String(StartupOffer::kForm));
    setWindowTitle(settings::Terms().TITLE);
    lbl_->setTextFormat(Qt::PlainText);
    lbl_->setWordWrap(true);
    lbl_->setText(
        QStringLiteral("Would you like to open %FILE%?").replace(QLatin1String("%FILE%"), offer.file));
    cmdYes_->setDefault(true);
    LayOut();
    connect(cmdYes_, &QPushButton::clicked, this, [this] { Answer(true); });
    connect(cmdNo_, &QPushButton::clicked, this, [this] { Answer(false); });
}

void frmPrompt::LayOut() {
    auto *icon = new QLabel(this);
    icon->setPixmap(mainwindow::ProgramIcon().pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
    auto *head = new QHBoxLayout;
    head->addWidget(icon);
    head->addSpacing(12);
    head->addWidget(lbl_, 1);
    auto *foot = new QHBoxLayout;
    foot->addWidget(chkNotAgain_, 1);
    foot->addWidget(cmdYes_);
    foot->addWidget(cmdNo_);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->addLayout(head, 1);
    layout->addSpacing(12);
    layout->addLayout(foot);
    setMinimumWidth(420);
}

void frmPrompt::Answer(bool yes) {
    support::Report("frmPrompt", yes ? "cmdYes_Click" : "cmdNo_Click", [&] {
        if (chkNotAgain_->isChecked()) mainwindow::SetStartupEnabled(false);
        offer_.ClickYes = yes;
    });
    done(yes ? Accepted : Rejected);
}

bool AskToOpen(support::Desktop &desktop, const QString &file, support::Owner owner) {
    StartupOffer offer{file};
    support::Show(desktop, offer, owner);
    return offer.ClickYes;
}

} // namespace app
