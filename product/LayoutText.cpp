#include "product/LayoutText.h"

#include "product/NodeText.h"

#include <QJsonArray>
#include <QStringList>

namespace product {

namespace {

QJsonArray ListOf(const QJsonValue &value) { return value.isArray() ? value.toArray() : QJsonArray{value}; }

// `under` with the values of `over` added, in the place of its own of the same names.
QJsonObject Over(QJsonObject under, const QJsonObject &over) {
    for (auto it = over.begin(); it != over.end(); ++it) under[it.key()] = it.value();
    return under;
}

QJsonObject Without(QJsonObject object, std::initializer_list<const char *> keys) {
    for (const char *key : keys) object.remove(QLatin1String(key));
    return object;
}

QJsonObject WithLook(const QJsonObject &item, const QJsonObject &looks) {
    if (!item.contains("look")) return item;
    const QString name = item["look"].toString();
    if (!looks.contains(name)) Complain(QStringLiteral("there is no look \"%1\"").arg(name));
    QJsonObject look = looks[name].toObject();
    if (item.contains("level")) look.remove(QStringLiteral("fill"));
    return Over(look, Without(item, {"look"}));
}

QJsonObject WithLineEnds(const QJsonObject &item) {
    QString text = item["text"].toString();
    if (text.contains('\r') || !text.contains('\n')) return item;
    return Over(item, {{"text", text.replace(QLatin1String("\n"), QLatin1String("\r\n"))}});
}

QJsonObject WithBox(const QJsonObject &node) {
    if (!node.contains("box")) return node;
    const QJsonArray box = node["box"].toArray();
    return Over(Without(node, {"box"}), {{"x", box[0]}, {"y", box[1]}, {"w", box[2]}, {"h", box[3]}});
}

// The columns or the rows of a grid: where each begins, and how wide or high it is.
class Track {
public:
    Track(double start, const QJsonValue &sizes, double gap)
        : start_(start), sizes_(ListOf(sizes)), gap_(gap) {}
    double Size(int index) const {
        return sizes_[sizes_.size() == 1 ? 0 : std::min<qsizetype>(index, sizes_.size() - 1)].toDouble();
    }
    double Start(int index) const {
        double at = start_;
        for (int i = 0; i < index; ++i) at += Size(i) + gap_;
        return at;
    }

private:
    double start_;
    QJsonArray sizes_;
    double gap_;
};

class Grid {
public:
    explicit Grid(const QJsonObject &text)
        : cells_(text["cells"].toArray()),
          columns_(text["columns"].toInt(int(cells_.size()))),
          across_(text["at"][0].toDouble(), text["size"][0], text["gap"][0].toDouble()),
          down_(text["at"][1].toDouble(), text["size"][1], text["gap"][1].toDouble()),
          common_(Without(text, {"cells", "columns", "at", "size", "gap"})) {}

    void AppendTo(QJsonArray &nodes) const {
        for (int i = 0; i < cells_.size(); ++i)
            if (!cells_[i].isNull()) nodes.append(Node(i));
    }

private:
    QJsonObject Node(int index) const {
        const int column = index % columns_, row = index / columns_;
        QJsonObject node = common_;
        node["x"] = across_.Start(column), node["w"] = across_.Size(column);
        node["y"] = down_.Start(row), node["h"] = down_.Size(row);
        if (node.contains("id")) node["id"] = common_["id"].toString() + QString::number(index + 1);
        if (cells_[index].isString()) node["text"] = cells_[index];
        return Over(node, cells_[index].toObject());
    }

    QJsonArray cells_;
    int columns_;
    Track across_, down_;
    QJsonObject common_;
};

// The lines at the head of a page.
QJsonArray Head(const QJsonObject &slice) {
    constexpr double kMiddle = 720, kRight = 1120; // pixels: the note begins and ends there
    const double x = slice["headAt"][0].toDouble(20), y = slice["headAt"][1].toDouble(20);
    const std::pair<const char *, QJsonArray> lines[] = {{"title", {x, y, kMiddle - x, 40}},
                                                         {"subtitle", {x, y + 40, kMiddle - x, 30}},
                                                         {"note", {kMiddle, y + 20, kRight - kMiddle, 50}}};
    QJsonArray nodes;
    for (const auto &[name, box] : lines) {
        const QLatin1String key(name);
        if (slice.contains(key)) nodes.append(QJsonObject{{"look", key}, {"text", slice[key]}, {"box", box}});
    }
    return nodes;
}

QJsonArray Nodes(const QJsonObject &slice, const QJsonObject &looks) {
    QJsonArray entries = Head(slice), placed, nodes;
    for (const QJsonValue entry : slice["nodes"].toArray()) entries.append(entry);
    for (const QJsonValue entry : entries) {
        if (entry.toObject().contains("cells"))
            Grid(entry.toObject()).AppendTo(placed);
        else
            placed.append(WithBox(entry.toObject()));
    }
    for (const QJsonValue node : placed) nodes.append(WithLineEnds(WithLook(node.toObject(), looks)));
    return nodes;
}

void AppendLinks(const QJsonObject &entry, QJsonArray &links) {
    const QJsonObject common = Without(entry, {"chain", "from", "to"});
    const auto join = [&](const QJsonValue &from, const QJsonValue &to) {
        links.append(Over(common, {{"from", from}, {"to", to}}));
    };
    const QJsonArray chain = entry["chain"].toArray();
    for (int i = 1; i < chain.size(); ++i) join(chain[i - 1], chain[i]);
    if (!entry.contains("from")) return;
    for (const QJsonValue from : ListOf(entry["from"]))
        for (const QJsonValue to : ListOf(entry["to"])) join(from, to);
}

QJsonArray Links(const QJsonArray &entries, const QJsonObject &looks) {
    QJsonArray links;
    for (const QJsonValue entry : entries)
        AppendLinks(WithLineEnds(WithLook(entry.toObject(), looks)), links);
    return links;
}

} // namespace

QJsonObject WrittenOut(const QJsonObject &slice, const QJsonObject &looks) {
    return Over(slice, {{"nodes", Nodes(slice, looks["nodes"].toObject())},
                        {"links", Links(slice["links"].toArray(), looks["links"].toObject())}});
}

} // namespace product
