#include "document/MemoryWindow.h"

#include "support/clsGUID.h"
#include "support/Error.h"

#include <algorithm>

namespace document {

std::size_t MemoryTabs::Checked(int index) const {
    if (index < 0 || index >= TabCount())
        support::Raise(support::kErrInvalidPropertyValue, QStringLiteral("TabStrip"));
    return static_cast<std::size_t>(index);
}

void MemoryTabs::SetTabCount(int count) {
    tabs_.resize(static_cast<std::size_t>(std::max(count, 1)));
    current_ = std::min(current_, TabCount() - 1);
}

void MemoryTabs::SetTheTab(int index) { current_ = static_cast<int>(Checked(index)); }

QString MemoryTabs::TabCaption(int index) const { return tabs_[Checked(index)].caption; }

QString MemoryTabs::TabKey(int index) {
    QString &key = tabs_[Checked(index)].key;
    if (key.isEmpty()) key = support::GetGUID();
    return key;
}

void MemoryWindow::AddFlow1_AfterMove(int index) {
    calls.append(QStringLiteral("AddFlow1_AfterMove %1").arg(index));
}

} // namespace document
