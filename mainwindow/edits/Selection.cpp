#include "mainwindow/edits/Selection.h"

#include "diagram/model/Surface.h"
#include "settings/Settings.h"

#include <algorithm>
#include <QLocale>

namespace mainwindow {

namespace {

template <typename Item>
void UnselectHidden(std::vector<Item *> selected) {
    for (Item *item : selected)
        if (item->Hidden()) item->SetSelected(false);
}

template <typename Item>
bool MaySelect(const Item &item) {
    return !item.Hidden() && item.Selectable();
}

} // namespace

void DoSelectAll(diagram::Surface &flow, bool state) {
    for (diagram::Node &node : flow.Nodes())
        if (MaySelect(node)) node.SetSelected(state);
    for (const auto &link : flow.Links())
        if (MaySelect(link->Source()) && MaySelect(*link)) link->SetSelected(state);
}

void UnselectHiddenNodes(diagram::Surface &flow) { UnselectHidden(flow.SelectedNodes()); }
void UnselectHiddenLinks(diagram::Surface &flow) { UnselectHidden(flow.SelectedLinks()); }

bool NodeIsInCollection(const diagram::Node &node, const std::vector<diagram::Node *> &nodes) {
    return std::find(nodes.begin(), nodes.end(), &node) != nodes.end();
}

bool LinkIsInCollection(const diagram::Link &link, const std::vector<diagram::Link *> &links) {
    return std::find(links.begin(), links.end(), &link) != links.end();
}

QString CountedText(std::size_t count, const QString &term) {
    if (count == 0) return {};
    return QLocale().toString(qulonglong(count)) + u' ' + term +
           (count == 1 ? QString() : QStringLiteral("s"));
}

QString SelectionText(const diagram::Surface &flow) {
    const settings::ProductTerms &terms = settings::Terms();
    QStringList parts{CountedText(flow.SelectedNodes().size(), terms.NODE),
                      CountedText(flow.SelectedLinks().size(), terms.LINK)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace mainwindow
