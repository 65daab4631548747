#include "dialogs/AttachmentsPage.h"

#include "dialogs/clsCompactPath.h"
#include "dialogs/frmAttachment.h"
#include "dialogs/OpenAttachment.h"
#include "document/MapWindow.h"
#include "support/clsGUID.h"
#include "support/Error.h"

#include <array>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTreeWidget>

namespace dialogs {

namespace {

enum Column { kFilename, kEmbed, kSize, kFile, kColumns };
constexpr int kKeyRole = Qt::UserRole;
const QString kYes = QStringLiteral("Yes");
const QString kNo = QStringLiteral("No");

// Shortens paths as labels do.
class PathDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        constexpr int kBeside = 12; // pixels that the cell keeps for itself
        option->text =
            CompactPath(index.data().toString(), option->fontMetrics, option->rect.width() - kBeside);
    }
};

// In the order of FileState.
QString TextOf(FileState state) {
    static const std::array<QString, 6> texts{
        AttachmentsPage::tr("None chosen"), AttachmentsPage::tr("Found"),
        AttachmentsPage::tr("Moved"),       AttachmentsPage::tr("Folder"),
        AttachmentsPage::tr("Not found"),   AttachmentsPage::tr("On the network")};
    return texts[std::size_t(state)];
}

QString SizeText(const AttachedFile &file) {
    const bool isFile = file.state == FileState::Found || file.state == FileState::FoundBeside;
    return isFile ? QLocale().formattedDataSize(file.size, 1, QLocale::DataSizeSIFormat) : QString();
}

AttachmentEdit RowOf(const QTreeWidgetItem &item) {
    return {item.data(kFilename, kKeyRole).toString(), item.text(kFilename), item.text(kEmbed) == kYes};
}

} // namespace

AttachmentsPage::AttachmentsPage(document::MapWindow &window, diagram::Node &oNode, QWidget *parent)
    : QWidget(parent), window_(window), oNode_(oNode) {
    BuildList();
    auto *page = new QHBoxLayout(this);
    page->addWidget(lvwAttachments_, 1);
    auto *column = new QVBoxLayout;
    page->addLayout(column);
    AddButton(*column, "cmdAttNew", tr("&New..."), &AttachmentsPage::cmdAttNew_Click);
    needRow_ = {
        AddButton(*column, "cmdAttEdit", tr("&Edit..."), &AttachmentsPage::cmdAttEdit_Click),
        AddButton(*column, "cmdAttDelete", tr("&Delete"), &AttachmentsPage::cmdAttDelete_Click),
        AddButton(*column, "cmdAttOpen", tr("&Open"), &AttachmentsPage::cmdAttOpen_Click),
        AddButton(*column, "cmdAttSaveAs", tr("&Save as..."), &AttachmentsPage::cmdAttSaveAs_Click),
        AddButton(*column, "cmdAttPointTo", tr("&Point to..."), &AttachmentsPage::cmdAttPointTo_Click)};
    needRow_.back()->setToolTip(tr("Choose the file in its new place"));
    column->addStretch(1);
    UpdateButtons();
}

void AttachmentsPage::BuildList() {
    lvwAttachments_ = new QTreeWidget(this);
    lvwAttachments_->setObjectName(QStringLiteral("lvwAttachments"));
    lvwAttachments_->setAccessibleName(tr("Attachments"));
    lvwAttachments_->setColumnCount(kColumns);
    lvwAttachments_->setHeaderLabels({tr("Filename"), tr("Embed"), tr("Size"), tr("File")});
    lvwAttachments_->headerItem()->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
    lvwAttachments_->setRootIsDecorated(false);
    lvwAttachments_->setUniformRowHeights(true);
    lvwAttachments_->setAllColumnsShowFocus(true);
    lvwAttachments_->setTabKeyNavigation(false);
    lvwAttachments_->setItemDelegateForColumn(kFilename, new PathDelegate(lvwAttachments_));
    QHeaderView &header = *lvwAttachments_->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(kFilename, QHeaderView::Stretch);
    header.setMinimumSectionSize(fontMetrics().averageCharWidth() * 8);
    connect(lvwAttachments_, &QTreeWidget::itemSelectionChanged, this, &AttachmentsPage::UpdateButtons);
    connect(lvwAttachments_, &QTreeWidget::itemDoubleClicked, this, &AttachmentsPage::cmdAttOpen_Click);
    const auto *remove =
        new QShortcut(QKeySequence::Delete, lvwAttachments_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, &AttachmentsPage::cmdAttDelete_Click);
}

QPushButton *AttachmentsPage::AddButton(QVBoxLayout &column, const char *name, const QString &caption,
                                        void (AttachmentsPage::*click)()) {
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, click);
    column.addWidget(button);
    return button;
}

void AttachmentsPage::Load() {
    lvwAttachments_->clear();
    for (const AttachmentEdit &row : AttachmentsOf(window_, oNode_)) AddRow(row);
    UpdateButtons();
}

std::vector<AttachmentEdit> AttachmentsPage::Rows() const {
    std::vector<AttachmentEdit> rows;
    for (int i = 0; i < lvwAttachments_->topLevelItemCount(); ++i)
        rows.push_back(RowOf(*lvwAttachments_->topLevelItem(i)));
    return rows;
}

void AttachmentsPage::AddRow(const AttachmentEdit &row) {
    auto *item = new QTreeWidgetItem(lvwAttachments_);
    item->setData(kFilename, kKeyRole, row.Key);
    item->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
    ShowRow(*item, row);
}

void AttachmentsPage::ShowRow(QTreeWidgetItem &item, const AttachmentEdit &row) {
    const AttachedFile file = LookAt(window_, row.Filename);
    item.setText(kFilename, row.Filename);
    item.setText(kEmbed, row.Embed ? kYes : kNo);
    item.setText(kSize, SizeText(file));
    item.setText(kFile, TextOf(file.state));
    item.setToolTip(kFilename, TipOf(row.Filename));
    item.setToolTip(kFile, file.state == FileState::FoundBeside ? TipOf(file.path) : QString());
}

QTreeWidgetItem *AttachmentsPage::Current() const {
    const QList<QTreeWidgetItem *> selected = lvwAttachments_->selectedItems();
    return selected.isEmpty() ? nullptr : selected.first();
}

void AttachmentsPage::UpdateButtons() {
    for (QPushButton *button : needRow_) button->setEnabled(Current());
}

void AttachmentsPage::cmdAttNew_Click() {
    support::Report("frmNodeDialog", "cmdAttNew_Click", [this] {
        cfrmAttachment attachment(window_.Desktop());
        attachment.ShowDialog(this);
        if (attachment.Cancel) return;
        AddRow({support::GetGUID(), attachment.Filename, attachment.bEmbed});
        lvwAttachments_->setCurrentItem(
            lvwAttachments_->topLevelItem(lvwAttachments_->topLevelItemCount() - 1));
    });
}

void AttachmentsPage::cmdAttEdit_Click() {
    support::Report("frmNodeDialog", "cmdAttEdit_Click", [this] {
        QTreeWidgetItem *item = Current();
        if (!item) return;
        const AttachmentEdit row = RowOf(*item);
        cfrmAttachment attachment(window_.Desktop());
        attachment.Filename = row.Filename;
        attachment.bEmbed = row.Embed;
        attachment.ShowDialog(this);
        if (!attachment.Cancel) ShowRow(*item, {row.Key, attachment.Filename, attachment.bEmbed});
    });
}

void AttachmentsPage::cmdAttDelete_Click() {
    delete Current();
    UpdateButtons();
}

void AttachmentsPage::cmdAttOpen_Click() {
    support::Report("frmNodeDialog", "cmdAttOpen_Click", [this] {
        if (const QTreeWidgetItem *item = Current()) OpenAttachment(window_, item->text(kFilename));
    });
}

void AttachmentsPage::cmdAttSaveAs_Click() {
    support::Report("frmNodeDialog", "cmdAttSaveAs_Click", [this] {
        if (const QTreeWidgetItem *item = Current()) SaveAttachmentAs(window_, item->text(kFilename), this);
    });
}

void AttachmentsPage::cmdAttPointTo_Click() {
    support::Report("frmNodeDialog", "cmdAttPointTo_Click", [this] {
        QTreeWidgetItem *item = Current();
        const QString file = item ? AskForAttachment(window_.Desktop(), this) : QString();
        if (!file.isEmpty()) ShowRow(*item, {RowOf(*item).Key, file, RowOf(*item).Embed});
    });
}

} // namespace dialogs
