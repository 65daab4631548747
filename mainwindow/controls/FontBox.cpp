#include "mainwindow/controls/FontBox.h"

#include "mainwindow/controls/FontSamples.h"

#include <QCompleter>
#include <QListView>
#include <QStyle>
#include <utility>

namespace mainwindow {

namespace {

void ShowSamples(QAbstractItemView &list) {
    list.setItemDelegate(new FontSamples(&list));
    if (auto *rows = qobject_cast<QListView *>(&list)) rows->setUniformItemSizes(true);
}

template <typename Fits>
QString FirstOf(const QStringList &names, Fits fits) {
    for (const QString &name : names)
        if (fits(name)) return name;
    return {};
}

} // namespace

QString FontMeant(const QStringList &names, const QString &typed) {
    const QString sought = typed.trimmed();
    if (sought.isEmpty()) return typed;
    const auto equals = [&](const QString &name) { return name.compare(sought, Qt::CaseInsensitive) == 0; };
    const auto begins = [&](const QString &name) { return name.startsWith(sought, Qt::CaseInsensitive); };
    const auto holds = [&](const QString &name) { return name.contains(sought, Qt::CaseInsensitive); };
    for (const QString &name : {FirstOf(names, equals), FirstOf(names, begins), FirstOf(names, holds)})
        if (!name.isEmpty()) return name;
    return typed;
}

QString FontBox::Meant(const QString &typed) const {
    if (findText(typed, Qt::MatchFixedString | Qt::MatchCaseSensitive) >= 0) return typed;
    QStringList names;
    for (int row = 0; row < count(); ++row) names << itemText(row);
    return FontMeant(names, typed);
}

void FontBox::Prepare() {
    if (std::exchange(prepared_, true)) return;
    ShowSamples(*view());
    auto *matches = new QCompleter(model(), this);
    matches->setCompletionMode(QCompleter::PopupCompletion);
    matches->setFilterMode(Qt::MatchContains);
    matches->setCaseSensitivity(Qt::CaseInsensitive);
    matches->setMaxVisibleItems(maxVisibleItems());
    ShowSamples(*matches->popup());
    matches->popup()->setMinimumWidth(view()->sizeHintForColumn(0) +
                                      style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this));
    setCompleter(matches);
}

void FontBox::showPopup() {
    Prepare();
    PickBox::showPopup();
}

void FontBox::focusInEvent(QFocusEvent *event) {
    Prepare();
    PickBox::focusInEvent(event);
}

} // namespace mainwindow
