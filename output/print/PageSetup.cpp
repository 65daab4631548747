#include "output/print/PageSetup.h"

#include "settings/GetSet.h"
#include "support/Val.h"

#include <array>
#include <QLocale>
#include <QPageSize>
#include <QRegularExpression>

namespace print {

namespace {

const QString kTrue = QStringLiteral("True"), kFalse = QStringLiteral("False");

struct Paper {
    const char *key;
    QPageSize::PageSizeId id;
};
constexpr Paper kPapers[] = {
    {"A4", QPageSize::A4},         {"A3", QPageSize::A3},       {"A5", QPageSize::A5},
    {"A2", QPageSize::A2},         {"A1", QPageSize::A1},       {"A0", QPageSize::A0},
    {"Letter", QPageSize::Letter}, {"Legal", QPageSize::Legal}, {"Tabloid", QPageSize::Tabloid},
};

const Paper &PaperOf(const QString &key) {
    for (const Paper &paper : kPapers)
        if (key == QLatin1String(paper.key)) return paper;
    return kPapers[0];
}

// In the order of Slices. Chosen is not remembered: positions mean nothing for the next map.
constexpr const char *kSlices[] = {"This", "All"};

struct Flag {
    const char *name;
    bool PageSetup::*member;
};
constexpr Flag kFlags[] = {{"FitToPage", &PageSetup::FitToPage},
                           {"PageMarks", &PageSetup::marks},
                           {"PageKeepWhole", &PageSetup::keepWhole},
                           {"PageGrid", &PageSetup::grid}};

void LoadFlag(const QString &name, bool &value) {
    const QString text = settings::GetSet(name, value ? kTrue : kFalse).trimmed();
    if (text.compare(kTrue, Qt::CaseInsensitive) == 0) value = true;
    if (text.compare(kFalse, Qt::CaseInsensitive) == 0) value = false;
}

QString TextOf(const QMarginsF &m) {
    return QStringLiteral("%1 %2 %3 %4").arg(m.left()).arg(m.top()).arg(m.right()).arg(m.bottom());
}

void LoadMargins(QMarginsF &margins) {
    const QStringList parts = settings::GetSet(QStringLiteral("PageMargins"), TextOf(margins)).split(u' ');
    std::array<double, 4> sides{};
    if (parts.size() != int(sides.size())) return;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        bool good = false;
        sides[i] = parts[int(i)].toDouble(&good);
        if (!good || !(sides[i] >= 0 && sides[i] <= kWidestMargin)) return;
    }
    margins = {sides[0], sides[1], sides[2], sides[3]};
}

} // namespace

QStringList PaperKeys() {
    QStringList keys;
    for (const Paper &paper : kPapers) keys << QLatin1String(paper.key);
    return keys;
}

QString PaperName(const QString &key) { return QPageSize::name(PaperOf(key).id); }

QSizeF PaperSize(const QString &key) { return QPageSize::size(PaperOf(key).id, QPageSize::Millimeter); }

QString UsualPaper() {
    const bool inches = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return inches ? QStringLiteral("Letter") : QStringLiteral("A4");
}

void LoadSetup(PageSetup &setup) {
    for (const Flag &flag : kFlags) LoadFlag(QLatin1String(flag.name), setup.*flag.member);
    setup.Footer = settings::GetSet(QStringLiteral("Footer"), setup.Footer);
    setup.Header = settings::GetSet(QStringLiteral("Header"), setup.Header);
    const double ori =
        support::Val(settings::GetSet(QStringLiteral("Ori"), QString::number(setup.Orientation)));
    if (ori == kPortrait || ori == kLandscape) setup.Orientation = int(ori);
    const QString paper = settings::GetSet(QStringLiteral("PagePaper"), setup.paper);
    if (PaperKeys().contains(paper)) setup.paper = paper;
    LoadMargins(setup.margins);
    const QString slices = settings::GetSet(QStringLiteral("PageSlices"));
    for (std::size_t i = 0; i < std::size(kSlices); ++i)
        if (slices == QLatin1String(kSlices[i])) setup.slices = Slices(i);
}

void SaveSetup(const PageSetup &setup) {
    for (const Flag &flag : kFlags)
        settings::SaveSet(QLatin1String(flag.name), setup.*flag.member ? kTrue : kFalse);
    settings::SaveSet(QStringLiteral("Footer"), setup.Footer);
    settings::SaveSet(QStringLiteral("Header"), setup.Header);
    settings::SaveSet(QStringLiteral("Ori"), QString::number(setup.Orientation));
    settings::SaveSet(QStringLiteral("PagePaper"), setup.paper);
    settings::SaveSet(QStringLiteral("PageMargins"), TextOf(setup.margins));
    if (std::size_t(setup.slices) < std::size(kSlices))
        settings::SaveSet(QStringLiteral("PageSlices"), QLatin1String(kSlices[std::size_t(setup.slices)]));
}

bool ReadRange(const QString &text, PageRange &range) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*(\\d{0,6})\\s*(?:([-\\x{2013}])\\s*(\\d{0,6})\\s*)?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return false;
    const int from = match.captured(1).toInt();
    const bool single = match.captured(2).isEmpty();
    const int to = single ? from : match.captured(3).toInt();
    const bool zero =
        (!match.captured(1).isEmpty() && from == 0) || (!match.captured(3).isEmpty() && to == 0);
    if (zero || (to != 0 && to < from)) return false;
    range = {from, to};
    return true;
}

QString RangeText(const PageRange &range) {
    if (range == PageRange()) return {};
    if (range.from == range.to) return QString::number(range.from);
    const auto side = [](int page) { return page ? QString::number(page) : QString(); };
    return side(range.from) + u'-' + side(range.to);
}

} // namespace print
