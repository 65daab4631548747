// Reports as rich text (Rich Text Format 1.9.1), in pieces that follow each other in the file.
#pragma once

#include "output/report/Report.h"

namespace output {

// The bytes are ASCII. Pictures are enhanced metafiles, followed by 16-bit metafiles for older readers, and
// no larger than fits the page.
class RtfWriter {
public:
    explicit RtfWriter(const ReportProperties &properties) : properties_(properties) {}

    QByteArray Begin() const;
    QByteArray Body(const ReportBlocks &blocks) const;
    QByteArray End() const;

private:
    QByteArray FontTable() const;
    QByteArray Info() const;
    QByteArray Page() const;
    QByteArray Block(const ReportLine &line) const;
    QByteArray Block(const ReportPicture &picture) const;
    QByteArray Block(const ReportPageBreak &) const;
    QByteArray Run(const ReportRun &run, bool rightToLeft) const;
    QByteArray Stretch(const QString &text, ReportStyle style, bool rightToLeft) const;
    QSizeF Fitted(const QSizeF &size) const;

    ReportProperties properties_;
};

} // namespace output
