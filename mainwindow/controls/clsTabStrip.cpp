#include "mainwindow/controls/clsTabStrip.h"

#include "support/clsGUID.h"
#include "support/Error.h"

namespace mainwindow {

namespace {
// The tab bar reads & as the mark of a key; captions hold it as a letter.
QString Escaped(QString text) { return text.replace(u'&', QLatin1String("&&")); }
QString Unescaped(QString text) { return text.replace(QLatin1String("&&"), QLatin1String("&")); }
} // namespace

clsTabStrip::clsTabStrip(QObject *parent) : QObject(parent) {}

void clsTabStrip::SetTabStrip(QTabBar *bar) {
    if (bar_) bar_->disconnect(this);
    bar_ = bar;
    if (bar_) connect(bar_, &QTabBar::currentChanged, this, &clsTabStrip::Click);
}

QTabBar &clsTabStrip::Bar() const {
    if (!bar_) support::Raise(support::kErrObjectNotSet, QStringLiteral("clsTabStrip"));
    return *bar_;
}

int clsTabStrip::Checked(int index) const {
    if (index < 0 || index >= Bar().count())
        support::Raise(support::kErrInvalidPropertyValue, QStringLiteral("clsTabStrip"));
    return index;
}

QString clsTabStrip::TabCaption(int index) const { return Unescaped(Bar().tabText(Checked(index))); }

QString clsTabStrip::TabKey(int index) {
    QString key = Bar().tabData(Checked(index)).toString();
    if (key.isEmpty()) {
        key = support::GetGUID();
        Bar().setTabData(index, key);
    }
    return key;
}

int clsTabStrip::TabCount() const { return Bar().count(); }

void clsTabStrip::SetTabCount(int count) {
    QTabBar &bar = Bar();
    while (bar.count() > qMax(count, 0)) bar.removeTab(bar.count() - 1);
    while (bar.count() < count) bar.addTab(QString());
}

QString clsTabStrip::Caption() const { return TabCaption(TheTab()); }

void clsTabStrip::SetCaption(const QString &caption) {
    Bar().setTabText(Checked(TheTab()), Escaped(caption));
}

int clsTabStrip::TheTab() const { return Bar().currentIndex(); }

void clsTabStrip::SetTheTab(int index) { Bar().setCurrentIndex(Checked(index)); }

int clsTabStrip::TabHeight() const {
    const QTabBar &bar = Bar();
    const int inTab = bar.tabRect(bar.count() - 1).height();
    return qMax(inTab, bar.sizeHint().height());
}

void clsTabStrip::Move(int left, int top, int width, int height) {
    const int tabs = TabHeight();
    Bar().setGeometry(left, top + height - tabs, width, tabs);
}

} // namespace mainwindow
