#include "mainwindow/templates/BarFilling.h"

#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/templates/ListBar.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImageReader>
#include <QLocale>
#include <utility>

namespace mainwindow {

namespace {

// After that many milliseconds or files events have their turn.
constexpr int kBudget = 8, kAtOnce = 50;
constexpr int kWhileBusy = 50; // milliseconds between looks at a routine that lets events run

// All sizes that the icon file holds.
QIcon IconIn(const QByteArray &file) {
    QIcon icon;
    QBuffer buffer;
    buffer.setData(file);
    QImageReader reader(&buffer);
    for (int each = 0; each < qMax(1, reader.imageCount()); ++each) {
        if (each > 0 && !reader.jumpToImage(each)) break;
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}

QIcon IconOf(const templates::BarItem &item, support::Desktop &desktop) {
    if (item.tag == templates::kExternalTag) return desktop.fileIcons.AssociatedIcon(item.key);
    if (item.tag == templates::kFlatTag) return Icon(QStringLiteral("template"));
    return item.icon.isEmpty() ? QIcon() : IconIn(item.icon);
}

} // namespace

void ShowCount(ListBar &list, int bar) {
    const int count = list.ItemCount(bar);
    list.SetBarNote(bar, count ? QLocale().toString(count) : ListBar::tr("empty"));
}

BarFilling::BarFilling(ListBar &bar, support::Desktop &desktop) : bar_(bar), desktop_(desktop) {
    next_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "LoadBarDetails", [this] { FillOn(); }); });
}

void BarFilling::Begin(const QString &key, const QString &folder, const QStringList &files) {
    jobs_.push_back({key, templates::BarFiller(folder, files, frmSplash::ShowDoing)});
    bar_.SetBarNote(bar_.FindBar(key), ListBar::tr("..."));
    next_.start(0);
}

bool BarFilling::IsFilling(const QString &key) const {
    return std::any_of(jobs_.begin(), jobs_.end(), [&](const Job &job) { return job.key == key; });
}

// Not inside a routine that lets events run: bad files are told by a message box, which must not come in
// between.
void BarFilling::FillOn() {
    if (jobs_.empty()) return;
    if (frmMain::InsideRoutine()) return next_.start(kWhileBusy);
    QElapsedTimer time;
    time.start();
    templates::BarFiller &filler = jobs_.front().filler;
    const int bar = bar_.FindBar(jobs_.front().key);
    for (int file = 0; file < kAtOnce && !filler.AtEnd() && time.elapsed() < kBudget; ++file)
        if (const auto item = filler.Next())
            bar_.AddItem(bar, {item->caption, item->key, item->tag, IconOf(*item, desktop_)});
    if (filler.AtEnd()) Finish();
    if (!jobs_.empty()) next_.start(0);
}

void BarFilling::Finish() {
    const Job done = std::move(jobs_.front());
    jobs_.pop_front();
    frmSplash::ShowDoing(QString());
    ShowCount(bar_, bar_.FindBar(done.key));
    if (!jobs_.empty()) next_.start(0); // before what follows, which may raise an error
    templates::TellOfBadFiles(done.filler.BadFiles(), done.filler.BadIcons(),
                              QStringLiteral("LoadBarDetails"));
}

} // namespace mainwindow
