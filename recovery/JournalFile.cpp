#include "recovery/JournalFile.h"

#include "recovery/ReadJournal.h"
#include "recovery/Records.h"
#include "support/AtomicFile.h"
#include "support/Error.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace recovery {

namespace {

constexpr std::size_t kItemsOfRecord = 500; // so that damage costs no more than these
constexpr qint64 kBlock = 1 << 20;
constexpr qint64 kGrowth = 3;

[[noreturn]] void RaiseNotWritten(const QFile &file) {
    const bool full = file.error() == QFileDevice::ResourceError || file.error() == QFileDevice::WriteError;
    throw support::Error(full ? support::kErrDiskFull : support::kErrPathFileAccess,
                         QStringLiteral("Journal"), file.errorString());
}

// As many of the items from position `from` on as `room` allows; `room` is what is left of it afterwards.
template <typename T>
std::vector<T> Taken(const std::vector<T> &items, std::size_t from, std::size_t &room) {
    if (from >= items.size()) return {};
    const std::size_t count = std::min(room, items.size() - from);
    room -= count;
    const auto begin = items.begin() + std::ptrdiff_t(from);
    return {begin, begin + std::ptrdiff_t(count)};
}

// Calls `use` with the part cut into pieces of at most kItemsOfRecord items.
template <typename Use>
void ForEachPiece(const SlicePart &part, Use use) {
    std::size_t node = 0, link = 0;
    SlicePart piece{part.slice, part.whole, part.surface, {}, {}, part.gone};
    do {
        std::size_t room = kItemsOfRecord;
        piece.nodes = Taken(part.nodes, node, room);
        piece.links = Taken(part.links, link, room);
        node += piece.nodes.size();
        link += piece.links.size();
        use(piece);
        piece = {part.slice, false, std::nullopt, {}, {}, {}};
    } while (node < part.nodes.size() || link < part.links.size());
}

// A whole map as the first step of a journal.
Step WholeStep(KeptMap map) {
    Step step{true, {}, {map.time, map.changes, std::move(map.frame)}};
    for (auto &[id, slice] : map.slices) {
        SlicePart &part = step.parts.emplace_back();
        part.slice = id;
        part.whole = true;
        part.surface = std::move(slice.surface);
        for (auto &[item, data] : slice.nodes) part.nodes.push_back({item, std::move(data)});
        for (auto &[item, data] : slice.links) part.links.push_back({item, std::move(data)});
    }
    return step;
}

} // namespace

void JournalFile::Write(const Step &step) {
    if (step.first)
        Begin(step);
    else
        Append(Records(step));
    if (step.commit.frame) TakeFiles(*step.commit.frame);
    RemoveSuperseded();
    if (size_ > compactAbove_) Compact();
}

// Replaces a former journal of this window, which stays if that fails.
void JournalFile::Begin(const Step &step) {
    if (folder_.path.isEmpty()) folder_ = MakeFolder(root_);
    copied_.clear();
    files_.clear();
    Replace(step, {});
}

void JournalFile::Replace(const Step &step, const QByteArray &behind) {
    parts_ = {};
    const QByteArray records = Record(RecordKind::Head, HeadContent()) + Records(step) + behind;
    support::AtomicFile file(JournalPath(folder_.path));
    file.Write(records);
    file.Commit();
    size_ = records.size();
    compactAbove_ = std::max(most_, kGrowth * size_);
}

QByteArray JournalFile::Records(const Step &step) {
    QByteArray records;
    for (const SlicePart &part : step.parts)
        ForEachPiece(
            part, [&](const SlicePart &piece) { records += Record(RecordKind::Part, parts_.Write(piece)); });
    return records + Record(RecordKind::Commit, Bytes(step.commit));
}

void JournalFile::Append(const QByteArray &records) {
    QFile file(JournalPath(folder_.path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) RaiseNotWritten(file);
    if (file.write(records) != records.size()) RaiseNotWritten(file);
    file.close();
    support::FlushToDisk(file.fileName());
    size_ += records.size();
}

void JournalFile::TakeFiles(const MapFrame &frame) {
    FileNames files;
    for (const document::cAttachment &attachment : frame.attachments) {
        if (!attachment.Embed) continue;
        const QString name = Copied(attachment.Filename);
        if (!name.isEmpty()) files.insert(attachment.Key, name);
    }
    if (files == files_) return;
    Append(Record(RecordKind::Files, Bytes(files)));
    files_ = files;
}

QString JournalFile::Copied(const QString &path) {
    const QFileInfo info(path);
    if (!info.isFile()) return copied_.value(path).name; // the copy of a file that is gone is kept
    const document::FileStamp stamp{info.size(), info.lastModified()};
    CopiedFile &copied = copied_[path];
    if (!copied.name.isEmpty() && copied.stamp == stamp) return copied.name;
    QFile source(path);
    const QString made = CopyPath(folder_.path, QStringLiteral("copy"));
    QFile target(made);
    if (!source.open(QIODevice::ReadOnly)) return copied.name;
    if (!target.open(QIODevice::WriteOnly | QIODevice::Truncate)) RaiseNotWritten(target);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (QByteArray block = source.read(kBlock); !block.isEmpty(); block = source.read(kBlock)) {
        hash.addData(block);
        if (target.write(block) != block.size()) RaiseNotWritten(target);
    }
    target.close();
    const QString name = QString::fromLatin1(hash.result().toHex());
    support::FlushToDisk(made);
    support::ReplaceFile(made, CopyPath(folder_.path, name));
    copied = {stamp, name};
    return name;
}

void JournalFile::Compact() {
    KeptMap map = ReadJournal(support::ReadWholeFile(JournalPath(folder_.path)));
    Replace(WholeStep(std::move(map)), Record(RecordKind::Files, Bytes(files_)));
}

void JournalFile::Remove() {
    RemoveSuperseded();
    if (!folder_.path.isEmpty()) RemoveFolder(std::exchange(folder_, {}));
}

void JournalFile::RemoveSuperseded() {
    for (HeldFolder &folder : superseded_) RemoveFolder(std::move(folder));
    superseded_.clear();
}

} // namespace recovery
