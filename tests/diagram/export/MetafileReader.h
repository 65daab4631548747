// Reads metafiles back and plays their object tables, with an expectation for whatever the formats demand.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <QByteArray>
#include <QSize>
#include <QtEndian>
#include <vector>

namespace diagram {

template <typename T>
inline T At(const QByteArray &bytes, qsizetype at) {
    return at + qsizetype(sizeof(T)) <= bytes.size() ? qFromLittleEndian<T>(bytes.constData() + at) : T(-1);
}

// Kinds of records, as the formats number them.
constexpr int kWmfEnd = 0x0000, kWmfSave = 0x001E, kWmfRestore = 0x0127, kWmfSelect = 0x012D,
              kWmfDelete = 0x01F0, kWmfExtent = 0x020C, kWmfPen = 0x02FA, kWmfFont = 0x02FB,
              kWmfBrush = 0x02FC, kWmfPolyline = 0x0325, kWmfExcludeBox = 0x0415, kWmfClipToBox = 0x0416,
              kWmfRectangle = 0x041B, kWmfPolygons = 0x0538, kWmfText = 0x0A32, kWmfBitmap = 0x0F43;
constexpr int kEmfPolylines = 7, kEmfEnd = 14, kEmfClipToBox = 30, kEmfSave = 33, kEmfRestore = 34,
              kEmfSelect = 37, kEmfBrush = 39, kEmfDelete = 40, kEmfRectangle = 43, kEmfBeginPath = 59,
              kEmfEndPath = 60, kEmfClipToPath = 67, kEmfBitmap = 81, kEmfFont = 82, kEmfText = 84,
              kEmfCurves = 88, kEmfPen = 95;

// A record without its size and kind.
struct Record {
    int kind;
    QByteArray body;
};

// What a player would see of a file, checked while it is read.
struct Played {
    std::vector<Record> records; // the last is the end's
    int objects = 0;             // slots announced
    QSize page;                  // units
    double unitsPerInch = 0;
    bool good = false;

    int Count(int kind) const {
        return int(std::count_if(records.begin(), records.end(), [&](auto &r) { return r.kind == kind; }));
    }
    std::vector<QByteArray> Of(int kind) const {
        std::vector<QByteArray> found;
        for (const Record &record : records)
            if (record.kind == kind) found.push_back(record.body);
        return found;
    }
};

inline Played ReadWmf(const QByteArray &file) {
    Played played;
    EXPECT_EQ(At<quint32>(file, 0), 0x9AC6CDD7u);
    quint16 sum = 0;
    for (int i = 0; i < 20; i += 2) sum = quint16(sum ^ At<quint16>(file, i));
    EXPECT_EQ(At<quint16>(file, 20), sum);
    played.page = {At<qint16>(file, 10) - At<qint16>(file, 6), At<qint16>(file, 12) - At<qint16>(file, 8)};
    played.unitsPerInch = At<quint16>(file, 14);
    EXPECT_EQ(At<quint16>(file, 22), 1);
    EXPECT_EQ(At<quint16>(file, 24), 9);
    EXPECT_EQ(At<quint16>(file, 26), 0x0300);
    EXPECT_EQ(qint64(At<quint32>(file, 28)) * 2, file.size() - 22);
    played.objects = At<quint16>(file, 32);
    quint32 longest = 0;
    for (qsizetype at = 40; at < file.size();) {
        const quint32 words = At<quint32>(file, at);
        if (words < 3 || at + qsizetype(words) * 2 > file.size()) return played;
        longest = std::max(longest, words);
        played.records.push_back({At<quint16>(file, at + 4), file.mid(at + 6, qsizetype(words) * 2 - 6)});
        at += qsizetype(words) * 2;
    }
    EXPECT_EQ(At<quint32>(file, 34), longest);
    played.good =
        !played.records.empty() && played.records.back().kind == kWmfEnd && played.Count(kWmfEnd) == 1;
    return played;
}

inline Played ReadEmf(const QByteArray &file) {
    Played played;
    EXPECT_EQ(At<quint32>(file, 0), 1u);
    EXPECT_EQ(At<quint32>(file, 40), 0x464D4520u);
    EXPECT_EQ(qint64(At<quint32>(file, 48)), file.size());
    played.page = {At<qint32>(file, 16), At<qint32>(file, 20)};
    played.unitsPerInch = 2540.0 * played.page.width() / At<qint32>(file, 32);
    played.objects = At<quint16>(file, 56);
    for (qsizetype at = 0; at < file.size();) {
        const quint32 size = At<quint32>(file, at + 4);
        if (size < 8 || size % 4 || at + qsizetype(size) > file.size()) return played;
        played.records.push_back({int(At<quint32>(file, at)), file.mid(at + 8, qsizetype(size) - 8)});
        at += qsizetype(size);
    }
    EXPECT_EQ(At<quint32>(file, 52), played.records.size());
    EXPECT_EQ(At<quint32>(file, file.size() - 4), 20u);
    played.good = played.records.back().kind == kEmfEnd && played.Count(kEmfEnd) == 1;
    return played;
}

enum class Deed { Create, Select, Delete, Save, Restore };
inline const std::map<int, Deed> kWmfDeeds = {{kWmfPen, Deed::Create},     {kWmfFont, Deed::Create},
                                              {kWmfBrush, Deed::Create},   {kWmfSelect, Deed::Select},
                                              {kWmfDelete, Deed::Delete},  {kWmfSave, Deed::Save},
                                              {kWmfRestore, Deed::Restore}};
inline const std::map<int, Deed> kEmfDeeds = {{kEmfBrush, Deed::Create},   {kEmfFont, Deed::Create},
                                              {kEmfPen, Deed::Create},     {kEmfSelect, Deed::Select},
                                              {kEmfDelete, Deed::Delete},  {kEmfSave, Deed::Save},
                                              {kEmfRestore, Deed::Restore}};

// Objects of an enhanced metafile that every player has.
constexpr int kNoBrush = int(0x80000005), kNoPen = int(0x80000008);

// Plays the object table: no slot is taken twice, selected or deleted while empty, deleted while a saved or
// the present state has it selected, or left at the end.
struct Slots {
    std::map<int, int> kinds; // of the objects by their slot
    std::vector<std::map<int, int>> states{{}};
    int most = 0;

    void Do(Deed deed, int kind, int slot) {
        const bool there = kinds.count(slot) > 0;
        if (deed == Deed::Create) {
            EXPECT_FALSE(there);
            kinds[slot] = kind;
            most = std::max(most, int(kinds.size()));
        } else if (slot == kNoBrush || slot == kNoPen) {
            states.back().erase(slot == kNoBrush ? kEmfBrush : kEmfPen);
        } else if (deed == Deed::Select) {
            EXPECT_TRUE(there);
            states.back()[kinds[slot]] = slot;
        } else if (deed == Deed::Delete) {
            EXPECT_TRUE(there);
            for (const auto &state : states)
                for (const auto &[of, selected] : state) EXPECT_NE(selected, slot);
            kinds.erase(slot);
        } else if (deed == Deed::Save) {
            states.push_back(states.back());
        } else {
            ASSERT_GT(states.size(), 1u);
            states.pop_back();
        }
    }
    int LowestFree() const {
        int slot = 0;
        while (kinds.count(slot)) ++slot;
        return slot;
    }
    void ExpectNothingLeft(int announced) const {
        EXPECT_TRUE(kinds.empty());
        EXPECT_EQ(states.size(), 1u);
        EXPECT_LE(most, announced);
    }
};

inline void ExpectSlotsKept(const Played &played, bool wmf) {
    Slots slots;
    for (const Record &record : played.records) {
        const auto &deeds = wmf ? kWmfDeeds : kEmfDeeds;
        const auto deed = deeds.find(record.kind);
        if (deed == deeds.end()) continue;
        const bool creates = deed->second == Deed::Create;
        slots.Do(deed->second, record.kind,
                 wmf ? (creates ? slots.LowestFree() : At<quint16>(record.body, 0))
                     : int(At<quint32>(record.body, 0)));
    }
    slots.ExpectNothingLeft(played.objects);
}

} // namespace diagram
