// Surfaces full of chance, and the whole of a surface as text: for tests that compare what must come out
// equal.
#pragma once

#include "diagram/model/Properties.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"

#include <map>
#include <QImage>
#include <QStringList>
#include <random>

namespace diagram::testing {

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int Roll(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(engine_); }
    float Real(float lowest, float highest) {
        return std::uniform_real_distribution<float>(lowest, highest)(engine_);
    }
    bool Flip() { return Roll(0, 1) == 1; }
    support::Colour Colour() { return Roll(0, 0xFFFFFF); }
    QString Text() {
        static const char16_t *const words[] = {u"",       u"Plan", u"two\r\nlines", u"Straße",
                                                u"日本語", u"שלום", u"a'b\"c|d"};
        QString text = QString::fromUtf16(words[Roll(0, 6)]);
        for (int i = Roll(0, 4); i > 0; --i) text += QChar(Roll('a', 'z'));
        return text;
    }
    QString Key() { return QStringLiteral("{%1}").arg(Roll(0, 1 << 30), 8, 16, QLatin1Char('0')); }
    diagram::Font Font() {
        return diagram::Font(Flip() ? QStringLiteral("Arial") : QStringLiteral("Times New Roman"),
                             Roll(1, 288) / 4.0, Flip(), Flip(), Flip(), Flip());
    }
    diagram::Picture Picture() {
        if (Roll(0, 2) > 0) return {};
        QImage image(Roll(1, 4), Roll(1, 4), QImage::Format_RGB32);
        image.fill(QRgb(Colour()));
        return diagram::Picture::FromImage(image);
    }
    template <typename List>
    auto &OneOf(List &&list) {
        return list[std::size_t(Roll(0, int(std::size(list)) - 1))];
    }

private:
    std::mt19937 engine_;
};

inline Node &AnyNode(Surface &surface, Dice &dice) {
    return surface.Nodes().Item(dice.Roll(1, surface.Nodes().Count()));
}
inline Link &AnyLink(Surface &surface, Dice &dice) { return *dice.OneOf(surface.Links()); }
inline int AnyShape(Dice &dice) { return dice.Flip() ? dice.Roll(0, 15) : dice.Roll(50, 77); }

using NodeWrite = void (*)(Node &, Dice &);
inline const NodeWrite kNodeWrites[] = {
    [](Node &n, Dice &d) {
        n.SetBounds(d.Real(-9000, 9000), d.Real(-9000, 9000), d.Real(0, 3000), d.Real(0, 3000));
    },
    [](Node &n, Dice &d) { n.SetLeft(d.Real(-9000, 9000)); },
    [](Node &n, Dice &d) { n.SetTop(d.Real(-9000, 9000)); },
    [](Node &n, Dice &d) { n.SetWidth(d.Real(0, 3000)); },
    [](Node &n, Dice &d) { n.SetHeight(d.Real(0, 3000)); },
    [](Node &n, Dice &d) { n.SetShape(AnyShape(d)); },
    [](Node &n, Dice &d) { n.SetShapeOrientation(d.Roll(0, 3)); },
    [](Node &n, Dice &d) { n.SetDrawStyle(d.Roll(0, 6)); },
    [](Node &n, Dice &d) { n.SetDrawWidth(d.Real(0, 8)); },
    [](Node &n, Dice &d) { n.SetxTextMargin(d.Roll(0, 50)); },
    [](Node &n, Dice &d) { n.SetyTextMargin(d.Roll(0, 50)); },
    [](Node &n, Dice &d) { n.SetAlignment(d.Roll(0, 8)); },
    [](Node &n, Dice &d) { n.SetShadow(d.Roll(0, 4)); },
    [](Node &n, Dice &d) { n.SetPicturePos(d.Roll(0, 9)); },
    [](Node &n, Dice &d) { n.SetText(d.Text()); },
    [](Node &n, Dice &d) { n.SetEvent(d.Text()); },
    [](Node &n, Dice &d) { n.SetTag(d.Text()); },
    [](Node &n, Dice &d) { n.SetFont(d.Font()); },
    [](Node &n, Dice &d) { n.SetBorderColor(d.Colour()); },
    [](Node &n, Dice &d) { n.SetFillColor(d.Colour()); },
    [](Node &n, Dice &d) { n.SetForeColor(d.Colour()); },
    [](Node &n, Dice &d) { n.SetHidden(d.Roll(0, 5) == 0); },
    [](Node &n, Dice &d) { n.SetSelectable(d.Flip()); },
    [](Node &n, Dice &d) { n.SetMarked(d.Flip()); },
    [](Node &n, Dice &d) { n.SetTransparent(d.Flip()); },
    [](Node &n, Dice &d) { n.SetAutoSize(d.Roll(0, 3)); },
    [](Node &n, Dice &d) { n.SetPicture(d.Picture()); },
    [](Node &n, Dice &d) { n.SetSelected(d.Flip()); },
    [](Node &n, Dice &d) { n.SetZOrder(d.Roll(-1, 60)); },
    [](Node &n, Dice &) { n.BringToFront(); },
    [](Node &n, Dice &) { n.SendToBack(); },
    [](Node &n, Dice &d) {
        const QString key = d.Key();
        if (!n.Owner().Nodes().Find(key)) n.SetKey(d.Flip() ? key : QString());
    },
};

using LinkWrite = void (*)(Link &, Dice &);
inline const LinkWrite kLinkWrites[] = {
    [](Link &l, Dice &d) { l.SetKey(d.Key()); },
    [](Link &l, Dice &d) { l.SetSource(AnyNode(l.Owner(), d)); },
    [](Link &l, Dice &d) { l.SetDestination(AnyNode(l.Owner(), d)); },
    [](Link &l, Dice &d) { l.SetStyle(d.Roll(0, 14)); },
    [](Link &l, Dice &d) { l.SetArrowSource(d.Roll(0, 32)); },
    [](Link &l, Dice &d) { l.SetArrowDest(d.Roll(0, 32)); },
    [](Link &l, Dice &d) { l.SetArrowMiddle(d.Roll(0, 32)); },
    [](Link &l, Dice &d) { l.SetArrowSizeSource(d.Roll(0, 2)); },
    [](Link &l, Dice &d) { l.SetArrowSizeDest(d.Roll(0, 2)); },
    [](Link &l, Dice &d) { l.SetArrowSizeMiddle(d.Roll(0, 2)); },
    [](Link &l, Dice &d) { l.SetDrawStyle(d.Roll(0, 6)); },
    [](Link &l, Dice &d) { l.SetDrawWidth(d.Real(0, 8)); },
    [](Link &l, Dice &d) { l.SetJumpStyle(d.Roll(0, 2)); },
    [](Link &l, Dice &d) { l.SetText(d.Text()); },
    [](Link &l, Dice &d) { l.SetFont(d.Font()); },
    [](Link &l, Dice &d) { l.SetForeColor(d.Colour()); },
    [](Link &l, Dice &d) { l.SetLineColor(d.Colour()); },
    [](Link &l, Dice &d) { l.SetHidden(d.Roll(0, 5) == 0); },
    [](Link &l, Dice &d) { l.SetSelectable(d.Flip()); },
    [](Link &l, Dice &d) { l.SetSelected(d.Flip()); },
    [](Link &l, Dice &d) { l.SetMarked(d.Flip()); },
    [](Link &l, Dice &d) { l.SetRigid(d.Flip()); },
    [](Link &l, Dice &d) { l.SetOriented(d.Flip()); },
    [](Link &l, Dice &d) { l.SetAddPointsMode(d.Roll(0, 3) == 0); },
    [](Link &l, Dice &d) { l.SetMovePointsMode(d.Roll(0, 3) == 0); },
    [](Link &l, Dice &d) { l.SetOwnBends(d.Flip()); },
    [](Link &l, Dice &d) { l.SetZorder(d.Roll(-1, 60)); },
    [](Link &l, Dice &) { l.BringToFront(); },
    [](Link &l, Dice &) { l.SendToBack(); },
    [](Link &l, Dice &d) {
        l.Points().SetItem(d.Roll(0, l.Points().Count() - 1), {d.Real(-9e3F, 9e3F), d.Real(-9e3F, 9e3F)});
    },
    [](Link &l, Dice &d) { l.Points().Add(d.Real(-9000, 9000), d.Real(-9000, 9000)); },
    [](Link &l, Dice &d) {
        l.Points().Insert(d.Roll(0, l.Points().Count()), {d.Real(-9e3F, 9e3F), d.Real(-9e3F, 9e3F)});
    },
    [](Link &l, Dice &d) {
        if (l.Points().Count() > 2) l.Points().Remove(d.Roll(0, l.Points().Count() - 1));
    },
    [](Link &l, Dice &d) {
        l.Points().Assign({{1, 2}, {d.Real(-9000, 9000), 5}, {d.Real(-9000, 9000), 70}});
    },
};

using SurfaceWrite = void (*)(Surface &, Dice &);
inline const SurfaceWrite kSurfaceWrites[] = {
    [](Surface &s, Dice &d) { s.SetTag(d.Text()); },
    [](Surface &s, Dice &d) { s.SetPicture(d.Picture()); },
    [](Surface &s, Dice &d) { s.SetBackColor(d.Colour()); },
    [](Surface &s, Dice &d) { s.SetxZoom(d.Roll(0, 400)); },
    [](Surface &s, Dice &d) { s.SetyZoom(d.Roll(0, 400)); },
    [](Surface &s, Dice &d) { s.SetGridLines(d.Flip()); },
    [](Surface &s, Dice &d) {
        NodeLook defaults;
        defaults.shape = std::uint8_t(AnyShape(d));
        defaults.shapeOrientation = std::uint8_t(d.Roll(0, 3));
        defaults.shadow = std::uint8_t(d.Roll(0, 4));
        defaults.drawStyle = std::uint8_t(d.Roll(0, 6));
        defaults.borderColor = d.Colour();
        defaults.fillColor = d.Colour();
        defaults.foreColor = d.Colour();
        defaults.font = d.Font();
        defaults.alignment = std::uint8_t(d.Roll(0, 8));
        defaults.autoSize = std::uint8_t(d.Roll(0, 3));
        defaults.drawWidth = d.Real(0, 8);
        defaults.picturePos = std::uint8_t(d.Roll(0, 9));
        s.SetDefaults(defaults);
    },
    [](Surface &s, Dice &d) {
        std::vector<std::pair<Item *, int>> positions;
        for (Item *item : s.Stacking().Order()) {
            if (d.Flip()) positions.emplace_back(item, d.Roll(0, 40));
        }
        s.Stacking().Restack(positions);
    },
};

inline void AddAnything(Surface &surface, Dice &dice) {
    if (surface.Nodes().Count() < 2 || dice.Flip()) {
        surface.Nodes().Add(dice.Real(-9000, 9000), dice.Real(-9000, 9000), dice.Real(0, 3000),
                            dice.Real(0, 3000));
    } else {
        AnyNode(surface, dice).Links().Add(AnyNode(surface, dice));
    }
}

inline void RemoveAnything(Surface &surface, Dice &dice) {
    if (surface.Nodes().Count() == 0) return;
    if (!surface.Links().empty() && dice.Flip()) {
        surface.Remove(AnyLink(surface, dice));
    } else if (surface.Nodes().Count() > 6 || dice.Roll(0, 9) == 0) {
        surface.Remove(AnyNode(surface, dice));
    } else if (dice.Roll(0, 9) == 0) {
        surface.Nodes().Clear();
    }
}

// One change of any kind to any part.
inline void EditAnything(Surface &surface, Dice &dice) {
    const int what = dice.Roll(0, 19);
    if (surface.Nodes().Count() == 0 || what < 3) return AddAnything(surface, dice);
    if (what == 3) return RemoveAnything(surface, dice);
    if (what == 4) return dice.OneOf(kSurfaceWrites)(surface, dice);
    if (what < 13 || surface.Links().empty()) return dice.OneOf(kNodeWrites)(AnyNode(surface, dice), dice);
    dice.OneOf(kLinkWrites)(AnyLink(surface, dice), dice);
}

inline void Fill(Surface &surface, Dice &dice, int edits) {
    while (edits-- > 0) EditAnything(surface, dice);
}

struct ToText {
    QString operator()(const QString &v) const { return v; }
    QString operator()(const Font &v) const {
        return QStringLiteral("%1 %2 %3%4%5%6")
            .arg(v.Name())
            .arg(v.Size())
            .arg(v.Bold())
            .arg(v.Italic())
            .arg(v.Underline())
            .arg(v.Strike());
    }
    QString operator()(const Picture &v) const { return QString::fromLatin1(v.Bytes().toHex()); }
    QString operator()(const std::vector<Point> &v) const {
        QString text;
        for (const Point &p : v) text += QStringLiteral("(%1 %2)").arg(p.x, 0, 'g', 9).arg(p.y, 0, 'g', 9);
        return text;
    }
    QString operator()(const std::shared_ptr<const NodeLook> &v) const {
        QStringList parts;
        for (const auto &row : LookProperties()) parts << std::visit(*this, row.get(*v));
        return parts.join(QLatin1Char(','));
    }
    QString operator()(float v) const { return QString::number(v, 'g', 9); }
    template <typename T>
    QString operator()(T v) const {
        return QString::number(qint64(v));
    }
};

// Identities as they are, or by their order among all, which a file keeps.
class Names {
public:
    explicit Names(const Surface &surface, bool byOrder) {
        if (!byOrder) return;
        for (Node &node : surface.Nodes()) order_[node.Id()];
        for (const auto &link : surface.Links()) order_[link->Id()];
        ItemId next = 1;
        for (auto &[id, name] : order_) name = next++;
    }
    ItemId operator[](ItemId id) const { return order_.empty() ? id : order_.at(id); }

private:
    std::map<ItemId, ItemId> order_;
};

template <typename Data>
QString DumpData(const Data &data) {
    QString text;
    for (const auto &row : PropertiesOf(data)) {
        // Keys of the stacking may differ where the order, which is dumped apart, is the same.
        if (row.what == Change::Stacking) continue;
        text +=
            QStringLiteral(" %1=%2").arg(QString::fromLatin1(row.name), std::visit(ToText{}, row.get(data)));
    }
    return text;
}

// Everything of the surface but what is selected: equal texts, equal surfaces.
inline QString Dump(Surface &surface, bool namesByOrder = false) {
    const Names names(surface, namesByOrder);
    QStringList lines;
    lines << QStringLiteral("surface") + DumpData(surface.Data());
    for (Node &node : surface.Nodes()) {
        lines << QStringLiteral("node %1").arg(names[node.Id()]) + DumpData(node.Data());
        QString links = QStringLiteral("  links");
        for (const Link *link : node.Links()) links += QStringLiteral(" %1").arg(names[link->Id()]);
        lines << links;
    }
    for (const auto &link : surface.Links()) {
        link->OwnBends();
        link->Route();
        LinkData data = link->Data();
        data.source = names[data.source];
        data.destination = names[data.destination];
        lines << QStringLiteral("link %1").arg(names[link->Id()]) + DumpData(data);
    }
    QString order = QStringLiteral("order");
    for (const Item *item : surface.Stacking().Order()) order += QStringLiteral(" %1").arg(names[item->Id()]);
    lines << order;
    return lines.join(QLatin1Char('\n'));
}

// The lines in which two dumps differ, for reading; empty for equal ones.
inline std::string Differing(const QString &a, const QString &b) {
    const QStringList left = a.split(QLatin1Char('\n')), right = b.split(QLatin1Char('\n'));
    QString text;
    for (qsizetype i = 0; i < std::max(left.size(), right.size()); ++i) {
        if (left.value(i) != right.value(i))
            text += QStringLiteral("\n- %1\n+ %2").arg(left.value(i), right.value(i));
    }
    return text.toStdString();
}

// A grid of nodes with streets between them.
inline void BuildGrid(Surface &surface, Dice &dice, int columns, int rows, float street, int links,
                      int lowestStyle) {
    for (int i = 0; i < columns * rows; ++i)
        surface.Nodes().Add(float(i % columns) * (1500 + street) + dice.Real(0, 300),
                            float(i / columns) * (900 + street) + dice.Real(0, 200), dice.Real(900, 1500),
                            dice.Real(600, 900));
    surface.BeginAction(1);
    while (int(surface.Links().size()) < links) {
        Node &from = AnyNode(surface, dice), &to = AnyNode(surface, dice);
        if (&from != &to) from.Links().Add(to).SetStyle(dice.Roll(lowestStyle, 13));
    }
    surface.EndAction();
}

} // namespace diagram::testing
