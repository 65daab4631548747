#include "dialogs/NodePicturePage.h"

#include "dialogs/PictureField.h"
#include "dialogs/PictureFile.h"
#include "dialogs/PropertyRows.h"
#include "document/LastPath.h"
#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Error.h"

#include <QClipboard>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>

namespace dialogs {

namespace {

// The last row, which is selected at first, adds PNG and SVG to the others.
QString Filter() {
    return QStringLiteral(
               "All Picture Types|*.bmp;*.wmf;*.emf;*.gif;*.jpg;*.jpeg|Bitmaps|*.bmp|Metafiles|*.wmf|"
               "Enhanced Metafiles|*.emf|GIF|*.gif|JPEG|*.jpg;*.jpeg|") +
           NodePicturePage::tr("All Pictures with PNG and SVG") +
           QStringLiteral("|*.png;*.svg;*.bmp;*.wmf;*.emf;*.gif;*.jpg;*.jpeg");
}
constexpr int kEveryPicture = 7;

} // namespace

NodePicturePage::NodePicturePage(support::Desktop &desktop, QWidget *parent)
    : QWidget(parent), desktop_(desktop), picPicture_(new PictureField(QStringLiteral("picPicture"), this)) {
    setAcceptDrops(true);
    auto *buttons = new QVBoxLayout;
    buttons->addWidget(AddButton("cmdBrowse", tr("&Browse..."), &NodePicturePage::cmdBrowse_Click));
    buttons->addWidget(AddButton("cmdPaste", tr("Pas&te"), &NodePicturePage::Paste));
    buttons->addWidget(cmdClear_ = AddButton("cmdClear", tr("Clea&r"), &NodePicturePage::cmdClear_Click));
    buttons->addStretch();
    auto *upper = new QHBoxLayout;
    upper->addWidget(picPicture_, 1);
    upper->addLayout(buttons);
    auto *grid = new QGridLayout(this);
    grid->addLayout(upper, 0, 0, 1, 2);
    cboPicturePosition_ =
        AddList(*grid, "cboPicturePosition", QStringLiteral("&Picture Position"), ListOf::PicturePositions);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(0, 1);
    connect(cboPicturePosition_, &QComboBox::currentIndexChanged, this, &NodePicturePage::Changed);
    connect(new QShortcut(QKeySequence::Paste, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, &NodePicturePage::Paste);
}

QPushButton *NodePicturePage::AddButton(const char *name, const QString &text,
                                        void (NodePicturePage::*click)()) {
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, click);
    return button;
}

void NodePicturePage::Load(const NodeEdit &edit) {
    ShowValue(*cboPicturePosition_, edit.look.picturePos);
    ShowPicture(edit.Picture);
}

void NodePicturePage::Store(NodeEdit &edit) const {
    edit.look.picturePos = std::uint8_t(ValueOf(*cboPicturePosition_));
    edit.Picture = picPicture_->Picture();
}

void NodePicturePage::ShowPicture(const diagram::Picture &picture) {
    picPicture_->SetPicture(picture);
    cmdClear_->setEnabled(!picture.IsNull());
    Q_EMIT Changed();
}

// A picture of which only the header can be read has a null image.
void NodePicturePage::Take(const diagram::Picture &picture, const QString &name) {
    if (!picture.IsNull() && !picture.Image().isNull()) return ShowPicture(picture);
    desktop_.messageBoxes.Show(tr("%1 holds no picture that can be shown.").arg(name), support::Buttons::Ok,
                               support::Icon::Exclamation, settings::Terms().TITLE);
}

void NodePicturePage::cmdBrowse_Click() {
    support::Report("frmNodeDialog", "cmdBrowse_Click", [this] {
        using namespace support::fileflags;
        int row = kEveryPicture;
        const QString file = desktop_.dialogs.ShowOpenFileDialog(
            Filter(), QString(), document::LastPath(), kPathMustExist | kHideReadOnly, window(), row);
        if (!file.isEmpty()) Take(PictureIn(file), QFileInfo(file).fileName());
    });
}

void NodePicturePage::cmdClear_Click() { ShowPicture({}); }

void NodePicturePage::Paste() {
    support::Report("frmNodeDialog", "cmdPaste_Click", [this] {
        const QMimeData *held = QGuiApplication::clipboard()->mimeData();
        Take(held ? PictureIn(*held) : diagram::Picture(), tr("The clipboard"));
    });
}

void NodePicturePage::dragEnterEvent(QDragEnterEvent *event) {
    if (MayHoldPicture(*event->mimeData())) event->acceptProposedAction();
}

void NodePicturePage::dropEvent(QDropEvent *event) {
    const QString file = FileIn(*event->mimeData());
    event->acceptProposedAction();
    support::Report("frmNodeDialog", "OLEDragDrop", [&] {
        Take(PictureIn(*event->mimeData()),
             file.isEmpty() ? tr("What was dropped") : QFileInfo(file).fileName());
    });
}

} // namespace dialogs
