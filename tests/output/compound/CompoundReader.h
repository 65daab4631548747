// Reads a compound file by its tables alone, independently of how the writer lays it out. Offsets are those
// of [MS-CFB].
#pragma once

#include <gtest/gtest.h>
#include <map>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QtEndian>

namespace compound::testing {

class CompoundReader {
public:
    explicit CompoundReader(const QByteArray &file) : file_(file) {
        EXPECT_TRUE(file.startsWith("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
        EXPECT_EQ(file.size() % kSector, 0);
        ReadTable();
        small_ = Numbers(Chain(Number(0x3C)));
        const QByteArray directory = Chain(Number(0x30));
        for (qsizetype at = 0; at + kEntry <= directory.size(); at += kEntry)
            entries_.push_back(directory.mid(at, kEntry));
    }

    std::map<QString, QByteArray> Streams() {
        const QByteArray smallSectors = Chain(Value(entries_[0], 0x74));
        std::map<QString, QByteArray> streams;
        Walk(Value(entries_[0], 0x4C), smallSectors, streams);
        return streams;
    }
    // What Streams met on its way: the names from the tree's left to its right, and how deep the tree is.
    const QStringList &Names() const { return names_; }
    int Depth() const { return depth_; }

private:
    static constexpr int kSector = 512, kEntry = 128;
    static constexpr quint32 kEnd = 0xFFFFFFFE, kNone = 0xFFFFFFFF;

    static quint32 Value(const QByteArray &bytes, qsizetype at) {
        return qFromLittleEndian<quint32>(bytes.constData() + at);
    }
    quint32 Number(qsizetype at) const { return Value(file_, at); }
    static std::vector<quint32> Numbers(const QByteArray &bytes) {
        std::vector<quint32> numbers;
        for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4) numbers.push_back(Value(bytes, at));
        return numbers;
    }
    QByteArray Sector(quint32 number) const {
        const QByteArray sector = file_.mid((qsizetype(number) + 1) * kSector, kSector);
        EXPECT_EQ(sector.size(), kSector) << number;
        return sector;
    }
    void ReadTable() {
        std::vector<quint32> places = Numbers(file_.mid(0x4C, 109 * 4));
        quint32 difat = Number(0x44);
        for (quint32 i = 0; i < Number(0x48); ++i) {
            std::vector<quint32> more = Numbers(Sector(difat));
            difat = more.back();
            more.pop_back();
            places.insert(places.end(), more.begin(), more.end());
        }
        places.resize(Number(0x2C));
        for (const quint32 place : places)
            for (const quint32 next : Numbers(Sector(place))) table_.push_back(next);
        for (const quint32 place : places) EXPECT_EQ(table_.at(place), 0xFFFFFFFDu);
    }
    QByteArray Chain(quint32 sector) const {
        QByteArray bytes;
        for (; sector != kEnd; sector = table_.at(sector)) {
            bytes += Sector(sector);
            if (bytes.size() > file_.size()) {
                ADD_FAILURE() << "a chain without end";
                break;
            }
        }
        return bytes;
    }
    QByteArray Small(quint32 sector, const QByteArray &sectors) const {
        QByteArray bytes;
        for (; sector != kEnd; sector = small_.at(sector)) bytes += sectors.mid(qsizetype(sector) * 64, 64);
        return bytes;
    }
    void Walk(quint32 at, const QByteArray &sectors, std::map<QString, QByteArray> &streams, int depth = 1) {
        if (at == kNone) return;
        depth_ = std::max(depth_, depth);
        const QByteArray &entry = entries_.at(at);
        const int length = qFromLittleEndian<quint16>(entry.constData() + 0x40) / 2 - 1;
        const QString name(reinterpret_cast<const QChar *>(entry.constData()), length);
        const auto size = qsizetype(Value(entry, 0x78));
        const quint32 start = Value(entry, 0x74);
        Walk(Value(entry, 0x44), sectors, streams, depth + 1);
        names_ << name;
        streams[name] = (size < 4096 ? Small(start, sectors) : Chain(start)).left(size);
        EXPECT_EQ(streams[name].size(), size);
        Walk(Value(entry, 0x48), sectors, streams, depth + 1);
    }

    QByteArray file_;
    std::vector<quint32> table_, small_;
    std::vector<QByteArray> entries_;
    QStringList names_;
    int depth_ = 0;
};

inline std::map<QString, QByteArray> ReadCompoundFile(const QByteArray &file) {
    return CompoundReader(file).Streams();
}

} // namespace compound::testing
