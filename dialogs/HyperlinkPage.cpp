#include "dialogs/HyperlinkPage.h"

#include "diagram/model/Node.h"
#include "dialogs/clsCompactPath.h"
#include "document/MapWindow.h"
#include "document/OpenMap.h"
#include "document/Tags.h"
#include "settings/Settings.h"
#include "support/Error.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>

namespace dialogs {

namespace {
enum Option { kThisMap, kOtherMap };
constexpr int kIndexRole = Qt::UserRole;
} // namespace

HyperlinkPage::HyperlinkPage(document::MapWindow &window, diagram::Node &oNode, QWidget *parent)
    : QWidget(parent), window_(window), oNode_(oNode) {
    Build();
    connect(chkHyperlink_, &QCheckBox::clicked, this, &HyperlinkPage::chkHyperlink_Click);
    for (const int index : {kThisMap, kOtherMap})
        connect(optLink_[std::size_t(index)], &QRadioButton::clicked, this, [this, index] {
            support::Report("frmNodeDialog", "optLink_Click", [&] { optLink_Click(index); });
        });
    connect(cmdBrowseLink_, &QPushButton::clicked, this, &HyperlinkPage::cmdBrowseLink_Click);
}

void HyperlinkPage::Build() {
    chkHyperlink_ = new QCheckBox(settings::ReplaceTerms(tr("This @NODE has a &hyperlink")), this);
    chkHyperlink_->setObjectName(QStringLiteral("chkHyperlink"));
    auto *fraHyperlink = new QWidget(this);
    fraHyperlink->setObjectName(QStringLiteral("fraHyperlink"));
    optLink_ = {new QRadioButton(settings::ReplaceTerms(QStringLiteral("This @BOOK")), fraHyperlink),
                new QRadioButton(settings::ReplaceTerms(QStringLiteral("Specified @BOOK")), fraHyperlink)};
    for (const int index : {kThisMap, kOtherMap})
        optLink_[std::size_t(index)]->setObjectName(QStringLiteral("optLink(%1)").arg(index));
    optLink_[kThisMap]->setChecked(true);
    lblFilename_ = new PathLabel(fraHyperlink);
    lblFilename_->setObjectName(QStringLiteral("lblFilename"));
    lblFilename_->setAccessibleName(optLink_[kOtherMap]->text());
    cmdBrowseLink_ = new QPushButton(tr("&Browse..."), fraHyperlink);
    cmdBrowseLink_->setObjectName(QStringLiteral("cmdBrowseLink"));
    cmdBrowseLink_->setAutoDefault(false);
    auto *grid = new QGridLayout(fraHyperlink);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(optLink_[kThisMap], 0, 0, 1, 3);
    grid->addWidget(optLink_[kOtherMap], 1, 0);
    grid->addWidget(lblFilename_, 1, 1);
    grid->addWidget(cmdBrowseLink_, 1, 2);
    grid->addWidget(BuildSlices(), 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    auto *page = new QVBoxLayout(this);
    page->addWidget(chkHyperlink_);
    page->addWidget(fraHyperlink, 1);
}

QGroupBox *HyperlinkPage::BuildSlices() {
    fraSlice_ = new QGroupBox(settings::ReplaceTerms(QStringLiteral("Link to this @SLICE")), this);
    fraSlice_->setObjectName(QStringLiteral("fraSlice"));
    lstSlice_ = new QListWidget(fraSlice_);
    lstSlice_->setObjectName(QStringLiteral("lstSlice"));
    lstSlice_->setAccessibleName(fraSlice_->title());
    lstSlice_->setUniformItemSizes(true);
    lstSlice_->setTextElideMode(Qt::ElideRight);
    lblNotFound_ = new QLabel(fraSlice_);
    lblNotFound_->setObjectName(QStringLiteral("lblNotFound"));
    lblNotFound_->setTextFormat(Qt::PlainText);
    lblNotFound_->setWordWrap(true);
    lblNotFound_->setMinimumWidth(1); // a long path must not widen the form
    lblNotFound_->hide();
    auto *column = new QVBoxLayout(fraSlice_);
    column->addWidget(lstSlice_, 1);
    column->addWidget(lblNotFound_);
    return fraSlice_;
}

void HyperlinkPage::Load() {
    const std::vector<document::cHyperlink> hyperlinks = HyperlinksOf(window_, oNode_);
    const bool ticked = document::IsOn(oNode_, document::tags::kHyper);
    chkHyperlink_->setChecked(ticked);
    if (hyperlinks.empty() && !ticked) optLink_Click(kThisMap);
    for (const document::cHyperlink &hyperlink : hyperlinks) ShowHyperlink(hyperlink);
    chkHyperlink_Click();
}

void HyperlinkPage::ShowHyperlink(const document::cHyperlink &hyperlink) {
    const bool isHere = hyperlink.Map.isEmpty();
    optLink_[isHere ? kThisMap : kOtherMap]->setChecked(true);
    if (isHere) {
        optLink_Click(kThisMap);
        return SelectSlice(PositionOf(window_, hyperlink));
    }
    ShowPath(hyperlink.Map);
    ReadOrKeep();
    SelectSlice(hyperlink.Slice);
}

HyperlinkEdit HyperlinkPage::Edit() const {
    const QListWidgetItem *current = lstSlice_->currentItem();
    return {chkHyperlink_->isChecked(), lblFilename_->Tag(),
            current ? std::optional(current->data(kIndexRole).toInt()) : std::nullopt};
}

void HyperlinkPage::chkHyperlink_Click() {
    const bool ticked = chkHyperlink_->isChecked();
    for (QWidget *control : std::initializer_list<QWidget *>{optLink_[kThisMap], optLink_[kOtherMap],
                                                             lblFilename_, cmdBrowseLink_, lstSlice_})
        control->setEnabled(ticked);
}

void HyperlinkPage::optLink_Click(int index) {
    optLink_[std::size_t(index)]->setChecked(true);
    cmdBrowseLink_->setEnabled(index == kOtherMap);
    lstSlice_->clear();
    lblNotFound_->hide();
    if (index == kThisMap) return LoadLinkSlices(SlicesOfThisMap(window_));
    if (lblFilename_->Tag().isEmpty()) return cmdBrowseLink_Click();
    ReadOrKeep();
}

void HyperlinkPage::cmdBrowseLink_Click() {
    support::Report("frmNodeDialog", "cmdBrowseLink_Click", [this] {
        QString path;
        if (const std::optional<storage::Database> map = document::OpenMapToRead(path))
            SetLinkFile(map->Name());
    });
}

void HyperlinkPage::ShowPath(const QString &path) {
    clsCompactPath().CompactPathIntoControl(path, *lblFilename_);
}

void HyperlinkPage::SetLinkFile(const QString &path) {
    ShowPath(path);
    ReadLinkFile();
}

void HyperlinkPage::ReadLinkFile() { LoadLinkSlices(SlicesOfMap(window_, lblFilename_->Tag())); }

// A map that can't be read is kept where it is that of the node's hyperlink; any other is an error.
void HyperlinkPage::ReadOrKeep() {
    lstSlice_->clear();
    try {
        ReadLinkFile();
    } catch (const support::Error &error) {
        for (const document::cHyperlink &hyperlink : HyperlinksOf(window_, oNode_)) {
            if (hyperlink.Map != lblFilename_->Tag()) continue;
            TellNotFound(error.Description());
            return SelectSlice(hyperlink.Slice);
        }
        throw;
    }
}

void HyperlinkPage::LoadLinkSlices(const std::vector<LinkSlice> &slices) {
    lstSlice_->clear();
    lblNotFound_->hide();
    for (const LinkSlice &slice : slices) {
        auto *entry = new QListWidgetItem(QString(slice.text).replace(u'\n', u' '), lstSlice_);
        entry->setData(kIndexRole, slice.index);
    }
    lstSlice_->setCurrentRow(slices.empty() ? -1 : 0);
}

// One that isn't there gets an entry of its own, so that it is kept unless the user chooses another.
void HyperlinkPage::SelectSlice(int slice) {
    for (int row = 0; row < lstSlice_->count(); ++row)
        if (lstSlice_->item(row)->data(kIndexRole).toInt() == slice) return lstSlice_->setCurrentRow(row);
    const QString text = settings::ReplaceTerms(tr("@SLICE %1 (not found)")).arg(slice);
    auto *entry = new QListWidgetItem(text, lstSlice_);
    entry->setData(kIndexRole, slice);
    lstSlice_->setCurrentItem(entry);
    if (lblNotFound_->isHidden())
        TellNotFound(settings::ReplaceTerms(tr("The @SLICE that this hyperlink leads to is not there.")));
}

void HyperlinkPage::TellNotFound(const QString &why) {
    static const QRegularExpression separator(QStringLiteral("([/\\\\])"));
    constexpr qsizetype kLongest = 600;
    const QString breakable = WithoutMiddle(why, kLongest).replace(separator, QStringLiteral("\\1\u200b"));
    lblNotFound_->setText(tr("%1 The hyperlink stays as it is unless you choose another.").arg(breakable));
    lblNotFound_->show();
}

} // namespace dialogs
