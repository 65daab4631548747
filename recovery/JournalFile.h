// The journal of one window on the disk. To be used in the writer's thread alone.
#pragma once

#include "recovery/Folders.h"
#include "recovery/Parts.h"

#include <vector>

namespace recovery {

class JournalFile {
public:
    explicit JournalFile(QString root) : root_(std::move(root)) {}

    // Appends the step, or begins anew with one that is a first one, and waits until it is on the disk; then
    // copies the embedded files that have changed. After an error the steps before this one can still be
    // read; the next step must be a first one.
    void Write(const Step &step);
    // Deletes this journal and those that it supersedes.
    void Remove();
    // The journal in `folder` is deleted once the next step, which has its work too, is written.
    void Supersede(HeldFolder folder) { superseded_.push_back(std::move(folder)); }

    // The journal is compacted once it is longer than this and has grown to three times its size after the
    // last compaction.
    void SetMostBytes(qint64 bytes) { most_ = bytes; }

private:
    void Begin(const Step &step);
    // Writes the journal anew: the step, and the records `behind` it.
    void Replace(const Step &step, const QByteArray &behind);
    void Append(const QByteArray &records);
    QByteArray Records(const Step &step);
    void TakeFiles(const MapFrame &frame);
    // Copies the file into the journal's folder unless that has it already. The name of the copy; empty for a
    // file that can't be read.
    QString Copied(const QString &path);
    void Compact();
    void RemoveSuperseded();

    struct CopiedFile {
        document::FileStamp stamp;
        QString name;
    };

    QString root_;
    HeldFolder folder_;
    PartWriter parts_;
    static constexpr qint64 kMostBytes = qint64{8} * 1024 * 1024;
    qint64 size_ = 0, compactAbove_ = 0, most_ = kMostBytes;
    QHash<QString, CopiedFile> copied_; // by path
    FileNames files_;                   // as they stand in the journal
    std::vector<HeldFolder> superseded_;
};

} // namespace recovery
