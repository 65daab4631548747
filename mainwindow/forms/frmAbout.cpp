#include "mainwindow/forms/frmAbout.h"

#include "mainwindow/controls/ucEctchedLines.h"
#include "mainwindow/forms/Version.h"
#include "mainwindow/icons/Icons.h"
#include "settings/Settings.h"
#include "support/cRegistry.h"
#include "support/Error.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace mainwindow {

namespace {

constexpr int kIconSide = 64;

QLabel *Line(const QString &text, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel *Title(QWidget *parent) {
    QLabel *label = Line(settings::Terms().TITLE, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    font.setBold(true);
    label->setFont(font);
    return label;
}

QLayout *Head(QWidget *parent) {
    auto *head = new QHBoxLayout;
    auto *icon = new QLabel(parent);
    icon->setPixmap(ProgramIcon().pixmap(QSize(kIconSide, kIconSide), parent->devicePixelRatioF()));
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addSpacing(16);
    auto *texts = new QVBoxLayout;
    texts->addWidget(Title(parent));
    texts->addWidget(Line(VersionText(), parent));
    texts->addSpacing(8);
    texts->addWidget(
        Line(settings::ReplaceTerms(QObject::tr("Draws plans as @MAPs of @NODEs and @LINKs, and keeps "
                                                "their dates, groups and levels.")),
             parent));
    head->addLayout(texts, 1);
    return head;
}

QString RegistryText(support::RegistryStore &registry, const char *section, const char *value) {
    support::cRegistry key(registry);
    key.ClassKey = std::uint32_t(support::RegistryRoot::LocalMachine);
    key.SectionKey = QLatin1String(section);
    key.ValueKey = QLatin1String(value);
    return key.Value().toString();
}

} // namespace

frmAbout::frmAbout(support::Desktop &desktop, QWidget *parent) : QDialog(parent) {
    setObjectName(QLatin1String(AboutForm::kForm));
    setWindowTitle(tr("About %1").arg(settings::Terms().TITLE));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);
    layout->addLayout(Head(this));
    auto *line = new ucEctchedLines(this);
    line->SetVertical(false);
    layout->addWidget(line);
    QLabel *disclaimer = Line(tr("This program comes without any warranty, as far as the law allows."), this);
    layout->addWidget(disclaimer);

    auto *buttons = new QDialogButtonBox(this);
    cmdSysInfo_ = buttons->addButton(tr("&System Info..."), QDialogButtonBox::ActionRole);
    cmdOK_ = buttons->addButton(QDialogButtonBox::Ok);
    cmdOK_->setDefault(true);
    layout->addWidget(buttons);
    setMinimumWidth(440);
    connect(cmdOK_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo_, &QPushButton::clicked, this,
            [&desktop] { support::Report("frmAbout", "cmdSysInfo_Click", [&] { StartSysInfo(desktop); }); });
}

QString SysInfoProgram(support::RegistryStore &registry) {
    const QString program = RegistryText(registry, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH");
    if (!program.isEmpty()) return program;
    const QString folder = RegistryText(registry, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO");
    return folder.isEmpty() ? QString() : folder + QStringLiteral("\\MSINFO32.EXE");
}

void StartSysInfo(support::Desktop &desktop) {
    const QString program = SysInfoProgram(desktop.registry);
    if (!program.isEmpty() && desktop.launcher.OpenFile(program)) return;
    desktop.messageBoxes.Show(QStringLiteral("System Information Is Unavailable At This Time"),
                              support::Buttons::Ok, support::Icon::None, settings::Terms().TITLE);
}

} // namespace mainwindow
