#include "dialogs/frmAttachment.h"

#include "dialogs/clsCompactPath.h"
#include "dialogs/OpenAttachment.h"
#include "settings/Settings.h"
#include "support/Error.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QPushButton>
#include <QTimer>

namespace dialogs {

frmAttachment::frmAttachment(cfrmAttachment &attachment, QWidget *parent)
    : QDialog(parent), attachment_(attachment) {
    setObjectName(QLatin1String(cfrmAttachment::kForm));
    setWindowTitle(tr("Attachments"));
    Build();
    if (attachment_.Filename.isEmpty()) return;
    clsCompactPath().CompactPathIntoControl(attachment_.Filename, *lblFilename_);
    chkEmbed_->setChecked(attachment_.bEmbed);
}

void frmAttachment::Build() {
    auto *lblFilenameCap = new QLabel(tr("Filename:"), this);
    lblFilenameCap->setObjectName(QStringLiteral("lblFilenameCap"));
    lblFilename_ = new PathLabel(this);
    lblFilename_->setObjectName(QStringLiteral("lblFilename"));
    lblFilename_->setAccessibleName(tr("Filename"));
    constexpr int kLeast = 36; // characters of the path that are seen on any screen
    lblFilename_->setMinimumWidth(kLeast * fontMetrics().averageCharWidth());
    cmdBrowseLink_ = new QPushButton(tr("&Browse..."), this);
    cmdBrowseLink_->setObjectName(QStringLiteral("cmdBrowseLink"));
    cmdBrowseLink_->setAutoDefault(false);
    chkEmbed_ = new QCheckBox(tr("&Embed"), this);
    chkEmbed_->setObjectName(QStringLiteral("chkEmbed"));
    chkEmbed_->setToolTip(settings::ReplaceTerms(tr("Keep a copy of the file inside the @MAP")));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    QPushButton *cancel = buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    auto *grid = new QGridLayout(this);
    grid->addWidget(lblFilenameCap, 0, 0);
    grid->addWidget(lblFilename_, 0, 1);
    grid->addWidget(cmdBrowseLink_, 0, 2);
    grid->addWidget(chkEmbed_, 1, 1, 1, 2);
    grid->addWidget(buttons, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    connect(cmdBrowseLink_, &QPushButton::clicked, this, &frmAttachment::cmdBrowseLink_Click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmAttachment::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    QTimer::singleShot(0, this, &frmAttachment::Form_Activate);
}

void frmAttachment::Form_Activate() {
    if (std::exchange(wasActive_, true)) return;
    if (lblFilename_->Tag().isEmpty()) cmdBrowseLink_Click();
}

void frmAttachment::cmdBrowseLink_Click() {
    support::Report("frmAttachment", "cmdBrowseLink_Click", [this] {
        const QString file = AskForAttachment(attachment_.Desktop(), this);
        if (!file.isEmpty()) clsCompactPath().CompactPathIntoControl(file, *lblFilename_);
    });
}

void frmAttachment::accept() {
    attachment_.Cancel = false;
    attachment_.Filename = lblFilename_->Tag();
    attachment_.bEmbed = chkEmbed_->isChecked();
    QDialog::accept();
}

} // namespace dialogs
