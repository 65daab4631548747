// The journal of one window on the disk. Works in the writer's thread alone.
#pragma once

#include "recovery/Folders.h"
#include "recovery/Parts.h"

#include <vector>

namespace recovery {

class JournalFile {
public:
    explicit JournalFile(QString root) : root_(std::move(root)) {}

    // Writes the step behind the others, or begins anew with it, and waits until it is on the disk; then
    // takes along the embedded files that have changed. An error leaves the steps before it readable; the
    // next step must be a first one.
    void Write(const Step &step);
    // Nothing stays, and nothing of what was superseded.
    void Remove();
    // A journal whose work the next step holds too: it goes once that is written.
    void Supersede(HeldFolder folder) { superseded_.push_back(std::move(folder)); }

    // The journal is written anew once it is longer than this, and than three times what it would be then.
    void SetMostBytes(qint64 bytes) { most_ = bytes; }

private:
    void Begin(const Step &step);
    // The journal anew with that step and the records behind it.
    void Replace(const Step &step, const QByteArray &behind);
    void Append(const QByteArray &records);
    QByteArray Records(const Step &step);
    void TakeFiles(const MapFrame &frame);
    // The name of the copy; empty for a file that can't be read.
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
    qint64 size_ = 0, compactAbove_ = 0, most_ = qint64(8) << 20;
    QHash<QString, CopiedFile> copied_; // by path
    FileNames files_;                   // as they stand in the journal
    std::vector<HeldFolder> superseded_;
};

} // namespace recovery
