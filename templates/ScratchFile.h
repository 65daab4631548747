// A file in the temporary folder that goes with the object.
#pragma once

#include <QByteArray>
#include <QString>

namespace templates {

class ScratchFile {
public:
    // A free name; the file is not made yet.
    ScratchFile();
    // A file with these bytes. Error 61 when they can't be written.
    explicit ScratchFile(const QByteArray &bytes);
    ~ScratchFile();
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    const QString &Path() const { return path_; }

private:
    QString path_;
};

} // namespace templates
