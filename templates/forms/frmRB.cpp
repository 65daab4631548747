#include "templates/forms/frmRB.h"

#include "settings/Settings.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace templates {

namespace {

constexpr int kIconSide = 40;
constexpr int kTextWidth = 46; // characters of a line

QPushButton *Button(const char *name, const QString &caption, QWidget *parent) {
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

frmRB::frmRB(settings::clsRB &prompt, QWidget *parent)
    : QDialog(parent),
      prompt_(prompt),
      lblText_(new QLabel(this)),
      chkRemember_(new QCheckBox(tr("&Don't Show me again"), this)),
      cmdNew_(Button("cmdNew", tr("&New"), this)),
      cmdUpdate_(Button("cmdUpdate", tr("&Update"), this)),
      cmdCancel_(Button("cmdCancel", tr("&Cancel"), this)) {
    setObjectName(QLatin1String(settings::clsRB::kForm));
    setWindowTitle(settings::Terms().TITLE);
    prompt_.Choice = settings::clsRB::kCancel;
    lblText_->setObjectName(QStringLiteral("lblText"));
    lblText_->setTextFormat(Qt::PlainText);
    lblText_->setWordWrap(true);
    lblText_->setText(settings::ReplaceTerms(tr(
        "Select NEW if you are not sure and then enter any filename. If you select UPDATE the text from the "
        "new template will overlay the text on your screen.")));
    setAccessibleDescription(lblText_->text());
    chkRemember_->setObjectName(QStringLiteral("chkRemember"));
    chkRemember_->setChecked(prompt_.Force);
    cmdNew_->setDefault(true);
    LayOut();
    connect(cmdNew_, &QPushButton::clicked, this, [this] { Choose(settings::clsRB::kNew); });
    connect(cmdUpdate_, &QPushButton::clicked, this, [this] { Choose(settings::clsRB::kUpdate); });
    connect(cmdCancel_, &QPushButton::clicked, this, &frmRB::reject);
    cmdNew_->setFocus();
}

void frmRB::LayOut() {
    auto *icon = new QLabel(this);
    icon->setPixmap(windowIcon().pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
    lblText_->setMinimumWidth(kTextWidth * fontMetrics().averageCharWidth());
    icon->setVisible(!icon->pixmap().isNull());
    auto *head = new QHBoxLayout;
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addSpacing(12);
    head->addWidget(lblText_, 1);
    auto *foot = new QHBoxLayout;
    foot->addWidget(chkRemember_, 1);
    foot->addSpacing(24);
    foot->addWidget(cmdNew_);
    foot->addWidget(cmdUpdate_);
    foot->addWidget(cmdCancel_);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->addLayout(head, 1);
    layout->addSpacing(16);
    layout->addLayout(foot);
}

void frmRB::Choose(std::int32_t choice) {
    prompt_.SaveValue = chkRemember_->isChecked();
    prompt_.Choice = choice;
    accept();
}

void frmRB::reject() {
    prompt_.SaveValue = false;
    prompt_.Choice = settings::clsRB::kCancel;
    QDialog::reject();
}

} // namespace templates
