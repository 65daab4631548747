// What the texts of slices need not say twice.
#include "product/LayoutText.h"
#include "support/Error.h"

#include <gtest/gtest.h>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

QJsonArray Nodes(const char *slice, const char *looks = "{}") {
    return product::WrittenOut(Json(slice), Json(looks))["nodes"].toArray();
}
QJsonArray Links(const char *slice, const char *looks = "{}") {
    return product::WrittenOut(Json(slice), Json(looks))["links"].toArray();
}

QString Places(const QJsonArray &nodes) {
    QStringList places;
    for (const QJsonValue node : nodes)
        places << QStringLiteral("%1,%2 %3x%4")
                      .arg(node["x"].toDouble())
                      .arg(node["y"].toDouble())
                      .arg(node["w"].toDouble())
                      .arg(node["h"].toDouble());
    return places.join("; ");
}

QString Ends(const QJsonArray &links) {
    QStringList ends;
    for (const QJsonValue link : links) ends << link["from"].toString() + link["to"].toString();
    return ends.join(' ');
}

} // namespace

TEST(LayoutText, ABoxIsAPlaceAndASize) {
    EXPECT_EQ(Places(Nodes(R"({"nodes": [{"box": [1, 2, 3, 4]}]})")), "1,2 3x4");
}

TEST(LayoutText, CellsStandInARowWithoutColumns) {
    EXPECT_EQ(Places(Nodes(
                  R"({"nodes": [{"at": [10, 20], "size": [30, 40], "gap": [5, 6], "cells": ["a", "b"]}]})")),
              "10,20 30x40; 45,20 30x40");
}

TEST(LayoutText, AGridHasItsOwnWidthsAndHeightsAndLeavesNullOut) {
    const QJsonArray nodes = Nodes(
        R"({"nodes": [{"id": "n", "at": [0, 0], "size": [[10, 20], [5, 8]], "gap": [1, 2], "columns": 2, "cells": ["a", null, "c", "d"]}]})");
    EXPECT_EQ(Places(nodes), "0,0 10x5; 0,7 10x8; 11,7 20x8");
    EXPECT_EQ(nodes[2]["id"].toString(), "n4");
    EXPECT_EQ(nodes[2]["text"].toString(), "d");
}

TEST(LayoutText, ACellHasTheKeysOfItsGridUnlessItSaysOtherwise) {
    const QJsonArray nodes = Nodes(
        R"({"nodes": [{"at": [0, 0], "size": [1, 1], "level": "1", "shape": "Ellipse", "cells": [{"level": "2", "x": 7}, "b"]}]})");
    EXPECT_EQ(nodes[0]["level"].toString(), "2");
    EXPECT_EQ(nodes[0]["x"].toDouble(), 7);
    EXPECT_EQ(nodes[0]["shape"].toString(), "Ellipse");
    EXPECT_EQ(nodes[1]["level"].toString(), "1");
}

TEST(LayoutText, ALookFillsInWhatTheNodeLeavesOpenAndALevelColoursBeforeIt) {
    constexpr char kLooks[] = R"({"nodes": {"l": {"fill": "#111111", "border": "#222222"}}})";
    const QJsonArray nodes = Nodes(
        R"({"nodes": [{"look": "l"}, {"look": "l", "border": "#333333"}, {"look": "l", "level": "1"}, {"look": "l", "level": "1", "fill": "#444444"}]})",
        kLooks);
    EXPECT_EQ(nodes[0].toObject(), Json(R"({"fill": "#111111", "border": "#222222"})"));
    EXPECT_EQ(nodes[1]["border"].toString(), "#333333");
    EXPECT_FALSE(nodes[2].toObject().contains("fill"));
    EXPECT_EQ(nodes[3]["fill"].toString(), "#444444");
}

TEST(LayoutText, AnUnknownLookIsAnError) {
    EXPECT_THROW(Nodes(R"({"nodes": [{"look": "none"}]})"), support::Error);
    EXPECT_THROW(Links(R"({"links": [{"look": "none", "chain": ["a", "b"]}]})"), support::Error);
}

TEST(LayoutText, AChainJoinsEachToTheNextAndListsEachToEach) {
    EXPECT_EQ(Ends(Links(R"({"links": [{"chain": ["a", "b", "c"]}]})")), "ab bc");
    EXPECT_EQ(Ends(Links(R"({"links": [{"from": ["a", "b"], "to": ["c", "d"]}]})")), "ac ad bc bd");
    EXPECT_EQ(Ends(Links(R"({"links": [{"from": "a", "to": "b"}]})")), "ab");
}

TEST(LayoutText, TheHeadOfThePageStandsWhereItIsTold) {
    constexpr char kLooks[] = R"({"nodes": {"title": {"colour": "#1F3A5F"}, "note": {}}})";
    const QJsonArray usual = Nodes(R"({"title": "T", "note": "N"})", kLooks);
    EXPECT_EQ(Places(usual), "20,20 700x40; 720,40 400x50");
    EXPECT_EQ(usual[0]["colour"].toString(), "#1F3A5F");
    EXPECT_EQ(Places(Nodes(R"({"title": "T", "headAt": [100, 600]})", kLooks)), "100,600 620x40");
}

TEST(LayoutText, LineEndsBecomeThoseOfTheSurface) {
    EXPECT_EQ(Nodes(R"({"nodes": [{"text": "a\nb"}]})")[0].toObject()["text"].toString(), "a\r\nb");
    EXPECT_EQ(Nodes(R"({"nodes": [{"text": "a\r\nb"}]})")[0].toObject()["text"].toString(), "a\r\nb");
}
